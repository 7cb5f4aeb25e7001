#include "controls/popovers/AQHelpPopover.h"
#include "controls/window/AQFlatButton.h"
#include "controls/window/AQHelpButton.h"
#include "controls/window/AQSwitchButton.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

TEST(Buttons, answerToKeyboardAndMouseWhenEnabled) {
    AQSwitchButton toggle;
    AQFlatButton button;
    toggle.resize(toggle.sizeHint());
    for (QAbstractButton* each : std::initializer_list<QAbstractButton*>{&toggle, &button}) {
        const QSignalSpy clicked(each, &QAbstractButton::clicked);
        QTest::mouseClick(each, Qt::LeftButton, {}, {3, 3});
        QTest::keyClick(each, Qt::Key_Return);
        each->setEnabled(false);
        QTest::keyClick(each, Qt::Key_Return);
        EXPECT_EQ(clicked.count(), 2);
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
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return QGuiApplication::focusWindow() == popover->windowHandle(); }));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return popover.isNull() && button.hasFocus(); }));

    popover = AQHelpPopover::present(button, text, {300, 120});
    QTest::mouseClick(popover, Qt::LeftButton, {}, {-50, -20});
    EXPECT_TRUE(QTest::qWaitFor([&] { return popover.isNull(); }));
}

} // namespace
