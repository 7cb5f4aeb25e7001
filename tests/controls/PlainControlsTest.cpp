#include "controls/AQAboutPanel.h"
#include "controls/AQBrandBar.h"
#include "controls/AQFlatButton.h"
#include "controls/AQGroupHeader.h"
#include "controls/AQHelpButton.h"
#include "controls/AQHelpPopover.h"
#include "controls/AQSwitchButton.h"
#include "controls/AccentColor.h"
#include "controls/DisplayColors.h"

#include <QAccessible>
#include <QLabel>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace {

double luminance(const QColor& color) {
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(const QColor& a, const QColor& b) {
    const double first = luminance(a) + 0.05;
    const double second = luminance(b) + 0.05;
    return std::max(first / second, second / first);
}

TEST(AccentColor, isReadableOnLightAndDarkWindows) {
    QPalette light(QColor(240, 240, 240));
    QPalette dark(QColor(42, 42, 46));
    EXPECT_FALSE(AccentColor::isDark(light));
    EXPECT_TRUE(AccentColor::isDark(dark));
    for (const QPalette& palette : {light, dark}) {
        const QColor window = palette.color(QPalette::Window);
        EXPECT_GE(contrast(AccentColor::onWindow(palette), window), 4.5);
        EXPECT_GE(contrast(AccentColor::fill(palette), Qt::white), 4.5);
    }
    EXPECT_EQ(AccentColor::fill(light), DisplayColors::cold);
}

TEST(AQSwitchButton, isACheckBoxToKeyboardMouseAndScreenReaders) {
    QWidget window;
    AQSwitchButton button(&window);
    button.resize(button.sizeHint());
    window.show();
    QSignalSpy toggled(&button, &AQSwitchButton::toggled);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        const bool before = button.isChecked();
        QTest::keyClick(&button, key);
        EXPECT_NE(button.isChecked(), before) << key;
    }
    QTest::mouseClick(&button, Qt::LeftButton, {}, {3, 3});
    EXPECT_FALSE(button.isChecked());
    EXPECT_EQ(toggled.count(), 4);
    button.setEnabled(false);
    QTest::keyClick(&button, Qt::Key_Return);
    EXPECT_FALSE(button.isChecked());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&button)->role(), QAccessible::CheckBox);
}

TEST(AQSwitchButton, theKnobArrivesAndItsValueNeverWaits) {
    QWidget window;
    AQSwitchButton button(&window);
    button.resize(button.sizeHint());
    window.show();
    const auto center = [&button] {
        return button.grab().toImage().pixelColor(button.rect().center());
    };
    const QColor off = center();
    button.setChecked(true);
    EXPECT_TRUE(button.isChecked());
    EXPECT_TRUE(QTest::qWaitFor([&] { return center() == DisplayColors::cold; }, 2000));
    EXPECT_NE(off, center());
}

TEST(AQFlatButton, enterAndSpacePressItWhenEnabled) {
    AQFlatButton button;
    button.setText(QStringLiteral("&Send"));
    QSignalSpy clicked(&button, &AQFlatButton::clicked);
    QTest::keyClick(&button, Qt::Key_Return);
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(clicked.count(), 2);
    button.setEnabled(false);
    QTest::keyClick(&button, Qt::Key_Return);
    EXPECT_EQ(clicked.count(), 2);
}

TEST(AQFlatButton, onlyTheEnabledPrimaryButtonIsFilledWithTheAccent) {
    AQFlatButton button;
    button.resize(120, 32);
    const auto fill = [&button] { return button.grab().toImage().pixelColor(8, 16); };
    EXPECT_NE(fill(), DisplayColors::cold);
    button.setPrimary(true);
    EXPECT_EQ(fill(), DisplayColors::cold);
    button.setEnabled(false);
    EXPECT_NE(fill(), DisplayColors::cold);
}

TEST(AQGroupHeader, offersHelpOnRequest) {
    AQGroupHeader header;
    header.setTitle(QStringLiteral("Task light"));
    EXPECT_FALSE(header.isHelpAvailable());
    header.setHelpAvailable(true);
    QSignalSpy requested(&header, &AQGroupHeader::helpRequested);
    QTest::keyClick(header.helpButton(), Qt::Key_Return);
    EXPECT_EQ(requested.count(), 1);
    EXPECT_EQ(header.helpButton()->accessibleName(), QStringLiteral("Help on Task light"));
}

TEST(AQBrandBar, keepsTheWordMarkClearOfWhatTheWindowAdds) {
    AQBrandBar bar;
    bar.resize(400, 48);
    auto* status = new QLabel(QStringLiteral("CONNECTED"));
    bar.addTrailingWidget(status);
    bar.show();
    const QImage image = bar.grab().toImage();
    int lastMark = 0;
    for (int x = 0; x < status->x(); ++x) {
        for (int y = 0; y < 46; ++y) {
            lastMark = image.pixelColor(x, y) == DisplayColors::cold ? x : lastMark;
        }
    }
    EXPECT_GT(lastMark, 80);
    EXPECT_LE(lastMark, bar.contentsRect().left());
    EXPECT_EQ(status->geometry().right(), 400 - 16 - 1);
}

TEST(AQAboutPanel, namesTheProgramAndItsLibraries) {
    QCoreApplication::setApplicationVersion(QStringLiteral("1.2.3"));
    AQAboutPanel panel;
    QString texts;
    for (const QLabel* label : panel.findChildren<QLabel*>()) {
        texts += label->text() + QLatin1Char('\n');
    }
    for (const char* expected : {"1.2.3", "Qt\nLGPL v3", "spdlog\nMIT", "fmt\nMIT", "libudev"}) {
        EXPECT_TRUE(texts.contains(QLatin1String(expected))) << expected;
    }
}

struct HelpPopoverTest : ::testing::Test {
    QWidget window;
    AQHelpButton button{&window};
    const QString text =
        QStringLiteral("What it is\n\nA text that is long enough to need more than one line of "
                       "the room which the popover offers.");

    HelpPopoverTest() {
        window.setGeometry(100, 100, 500, 400);
        button.setGeometry(460, 10, 24, 24);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        button.setFocus();
    }
    QRect onScreen(const QWidget& widget) const {
        return {widget.mapToGlobal(QPoint(0, 0)), widget.size()};
    }
};

TEST_F(HelpPopoverTest, standsInItsWindowAndPointsAtItsButton) {
    struct Case {
        QPoint button;
        bool isAbove;
    };
    for (const Case& each :
         {Case{{460, 10}, false}, Case{{10, 360}, true}, Case{{240, 10}, false}}) {
        button.move(each.button);
        AQHelpPopover popover(text, {300, 120}, &window);
        popover.showAt(button);
        const QRect frame = popover.placement().frame;
        EXPECT_EQ(popover.placement().isAbove, each.isAbove);
        EXPECT_FALSE(frame.intersects(onScreen(button)));
        EXPECT_TRUE(onScreen(window).contains(frame));
        EXPECT_NEAR(frame.x() + popover.placement().arrowX, onScreen(button).center().x(), 12);
        EXPECT_EQ(frame.size(), QSize(300, 120 + PopoverPlacement::arrowLength));
    }
}

TEST_F(HelpPopoverTest, growsWithTheFontOfItsWindow) {
    QFont large = window.font();
    large.setPixelSize(30);
    window.setFont(large);
    AQHelpPopover popover(text, {300, 120}, &window);
    popover.showAt(button);
    EXPECT_EQ(popover.findChild<QLabel*>()->font().pixelSize(), 30);
    EXPECT_EQ(popover.placement().frame.width(), 300);
    EXPECT_GT(popover.placement().frame.height(), 200);
    const auto* label = popover.findChild<QLabel*>();
    EXPECT_GE(label->height(), label->heightForWidth(label->width()));
}

TEST_F(HelpPopoverTest, escapeAndClicksElsewhereCloseAndDeleteIt) {
    QPointer<AQHelpPopover> popover = AQHelpPopover::present(button, text, {300, 120});
    EXPECT_EQ(popover->text(), text);
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return QGuiApplication::focusWindow() == popover->windowHandle(); }));
    EXPECT_TRUE(popover->findChild<QLabel*>()->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return popover.isNull(); }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return button.hasFocus(); }));

    popover = AQHelpPopover::present(button, text, {300, 120});
    QTest::mouseClick(popover, Qt::LeftButton, {}, {-50, -20});
    EXPECT_TRUE(QTest::qWaitFor([&] { return popover.isNull(); }));
}

} // namespace
