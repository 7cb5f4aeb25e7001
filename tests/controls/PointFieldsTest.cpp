#include "controls/CurveFixture.h"
#include "controls/TypedField.h"
#include "controls/popovers/AQPointFields.h"
#include "controls/popovers/RefusalTip.h"
#include "data/History.h"

#include <QDialog>
#include <QLabel>

#include <algorithm>
#include <functional>
#include <string>

namespace {

/// Open at the third point of the default program: 15:00, 100 %, 50 %.
class PointFields : public CurveFixture {
protected:
    void SetUp() override {
        CurveFixture::SetUp();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        view.setFocus();
        // No text of one decimal is this value.
        document.sequence().updateWithRow(2, AQSequence::ColorTemp{0.56789}, nullptr);
        document.history().restart();
        open();
    }
    void open() { fields.openFor(document.sequence().idAt(2), QPointF(550, 40)); }
    void type(const char* text) {
        for (; *text; ++text)
            QTest::keyClick(window.focusWidget(), *text);
    }
    std::string values() const {
        const AQTimePoint& point = document.sequence().at(2);
        return QString::asprintf("%d:%d %g %g", point.time.hour, point.time.minute,
                                 point.brightness, point.colorTemp)
            .toStdString();
    }
    std::string focused() const { return window.focusWidget()->objectName().toStdString(); }
    std::string told() const {
        const auto* tip = window.findChild<RefusalTip*>();
        return tip && tip->isVisible() ? tip->text().toStdString() : std::string();
    }

    AQPointFields fields{document.sequence(), view};
    QLineEdit other{&window};
};

} // namespace

TEST_F(PointFields, keepWhatIsTypedAsOneStepOrSayWhyNot) {
    const struct {
        const char* keys;
        const char* values;
        const char* focused; ///< empty when it is closed
    } table[] = {
        {"1605\t80\t20\r", "16:5 0.8 0.2", ""},
        {"+10\t-2.5 %\r", "15:10 0.975 0.56789", ""},
        {"\t\t+2\r", "15:0 1 0.58789", ""},
        {"\r", "15:0 1 0.56789", ""},
        {"\t\t\t14\r", "14:0 1 0.56789", ""},
        {"20:00\t30\r", "15:0 1 0.56789", "fieldTime"},
        {"16\t120\r", "15:0 1 0.56789", "fieldIntensity"},
        {"16\t\tx\t\t", "15:0 1 0.56789", "fieldIntensity"},
    };
    for (const auto& [keys, expected, field] : table) {
        type(keys);
        EXPECT_EQ(values(), expected) << keys;
        EXPECT_FALSE(document.history().isInGesture());
        EXPECT_EQ(fields.isOpen() ? focused() : "", field) << keys;
        EXPECT_TRUE(fields.isOpen() || view.hasFocus()) << keys;
        QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
        EXPECT_FALSE(fields.isVisible());
        if (document.history().canUndo())
            document.history().undo();
        EXPECT_EQ(values(), "15:0 1 0.56789") << keys;
        EXPECT_FALSE(document.history().canUndo()) << keys << " is one step";
        open();
    }
}

TEST_F(PointFields, tellAWrongTextAfterAPauseAndDropItWithAWord) {
    auto* time = fields.findChild<TypedField*>(QStringLiteral("fieldTime"));
    type("20");
    EXPECT_EQ(time->fault(), QString()) << "2030 may be on its way";
    EXPECT_TRUE(QTest::qWaitFor([&] { return !time->fault().isEmpty(); }, 2000));
    const auto labels = fields.findChildren<QLabel*>();
    EXPECT_TRUE(std::ranges::count(labels, time->fault(), &QLabel::text));
    EXPECT_EQ(time->fault(), QStringLiteral("Another point already has the time 20:00."));
    type("30");
    EXPECT_EQ(time->fault(), QString());

    type("\b\b\t45");
    QDialog message(&window);
    message.open();
    message.close();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_TRUE(fields.isOpen()) << "another window is no place to leave for";
    other.setFocus(Qt::MouseFocusReason);
    EXPECT_FALSE(fields.isOpen());
    EXPECT_TRUE(other.hasFocus());
    EXPECT_EQ(values(), "15:0 0.45 0.56789");
    EXPECT_EQ(told(), "Another point already has the time 20:00.");
}

TEST_F(PointFields, goWithTheirPointAndTheirOwnerAndStayInTheWindow) {
    const std::function<void()> ends[] = {[this] { document.sequence().deleteWithRow(2, nullptr); },
                                          [this] {
                                              show({{.time = {1, 0, 0}}, {}, {.time = {15, 0, 0}}});
                                          },
                                          [this] { view.setEnabled(false); },
                                          [this] { view.hide(); }};
    for (const auto& end : ends) {
        view.show();
        view.setEnabled(true);
        open();
        type("12");
        end();
        EXPECT_FALSE(fields.isOpen() || fields.isVisible());
        EXPECT_EQ(told(), "");
    }
    view.show();
    window.setFont(QFont(window.font().family(), 15));
    for (const QSize size : {QSize(1000, 480), QSize(500, 150)}) {
        window.resize(size);
        for (const QPointF anchor : {QPointF(0, 0), QPointF(size.width(), 100)}) {
            open();
            fields.setAnchor(anchor);
            EXPECT_TRUE(window.rect().contains(fields.geometry())) << size.width();
        }
    }
}
