#include "controls/popovers/AQHelpPopover.h"
#include "controls/window/AQHelpButton.h"

#include <QPointer>
#include <QTest>

#include <gtest/gtest.h>

namespace {

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
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return QGuiApplication::focusWindow() == popover->windowHandle(); }));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return popover.isNull() && button.hasFocus(); }));

    popover = AQHelpPopover::present(button, text, {300, 120});
    QTest::mouseClick(popover, Qt::LeftButton, {}, {-50, -20});
    EXPECT_TRUE(QTest::qWaitFor([&] { return popover.isNull(); }));
}

} // namespace
