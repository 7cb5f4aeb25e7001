#include "controls/AQFlatButton.h"
#include "controls/AQHelpButton.h"
#include "controls/AQHelpPopover.h"
#include "controls/AQSwitchButton.h"

#include <QLabel>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

TEST(Buttons, answerToKeyboardAndMouseWhenEnabled) {
    AQSwitchButton toggle;
    AQFlatButton button;
    toggle.resize(toggle.sizeHint());
    for (QAbstractButton* each :
         {static_cast<QAbstractButton*>(&toggle), static_cast<QAbstractButton*>(&button)}) {
        QSignalSpy clicked(each, &QAbstractButton::clicked);
        QTest::mouseClick(each, Qt::LeftButton, {}, {3, 3});
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter})
            QTest::keyClick(each, key);
        each->setEnabled(false);
        QTest::keyClick(each, Qt::Key_Return);
        EXPECT_EQ(clicked.count(), 4);
    }
    EXPECT_FALSE(toggle.isChecked());
}

TEST(HelpPopover, standsInItsWindowGrowsWithTheFontAndClosesByItself) {
    const QString text = QStringLiteral("A text that is long enough to need more than one line of "
                                        "the room which the popover offers.");
    QWidget window;
    AQHelpButton button(&window);
    window.setGeometry(100, 100, 500, 400);
    button.setGeometry(460, 10, 24, 24);
    QFont large = window.font();
    large.setPixelSize(30);
    window.setFont(large);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    button.setFocus();

    QPointer<AQHelpPopover> popover = AQHelpPopover::present(button, text, {300, 120});
    const auto* label = popover->findChild<QLabel*>();
    EXPECT_GE(label->height(), label->heightForWidth(label->width()));
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
