#include "controls/popovers/AQHelpPopover.h"
#include "controls/popovers/PopoverPlacement.h"
#include "controls/window/AQHelpButton.h"

#include <QLabel>
#include <QPointer>
#include <QTest>

#include <gtest/gtest.h>

namespace {

TEST(PopoverPlacement, StandsBesideItsPlaceOnTheScreen) {
    constexpr QSize body{182, 77};
    constexpr int height = 77 + PopoverPlacement::arrowLength;
    constexpr int corner = PopoverPlacement::cornerRadius + PopoverPlacement::arrowHalfWidth;
    const struct {
        const char* what;
        QPoint place;
        QPoint expected; ///< of its upper left corner
        bool isAbove;
        int arrowX;
        QRect screen{100, 50, 1000, 700}; // to x 1100 and y 750
    } cases[] = {
        {"below at the top", {500, 64 + height}, {409, 79 + height}, false, 91},
        {"corner", {1099, 60}, {918, 75}, false, 182 - corner},
        {"low screen, more room above", {415, 95}, {324, 80 - height}, true, 91, {0, 0, 800, 120}},
    };
    for (const auto& c : cases) {
        const QRect anchor(c.place - QPoint(15, 15), QSize(30, 30));
        const PopoverPlacement placement = PopoverPlacement::place(anchor, body, c.screen);
        EXPECT_EQ(placement.frame, QRect(c.expected, QSize(182, height))) << c.what;
        EXPECT_EQ(placement.isAbove, c.isAbove) << c.what;
        EXPECT_EQ(placement.arrowX, c.arrowX) << c.what;
    }
}

TEST(HelpPopover, standsInItsWindowAndClosesByItself) {
    QWidget window;
    AQHelpButton button(&window);
    window.setGeometry(100, 100, 500, 400);
    button.setGeometry(460, 10, 24, 24);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    button.setFocus();
    const QString text = QStringLiteral("word ").repeated(25);
    QPointer popover(AQHelpPopover::present(button, text, {300, 120}));
    EXPECT_TRUE(window.geometry().contains(popover->placement().frame));
    EXPECT_EQ(popover->findChild<QLabel*>()->text(), text);
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return QGuiApplication::focusWindow() == popover->windowHandle(); }));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return popover.isNull() && button.hasFocus(); }));

    popover = AQHelpPopover::present(button, text, {300, 120});
    QTest::mouseClick(popover, Qt::LeftButton, {}, {-50, -20});
    EXPECT_TRUE(QTest::qWaitFor([&] { return popover.isNull(); }));
}

} // namespace
