#include "SimulatedProgram.h"
#include "controls/curve/AQCurveView.h"
#include "controls/time/TimeField.h"
#include "data/AQDataSourceWriter.h"
#include "data/ColorMapping.h"
#include "data/ProgramInterpolation.h"
#include "data/ProgramText.h"
#include "workflows/ScriptedPrompts.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QClipboard>
#include <QDialog>
#include <QDialogButtonBox>
#include <QImage>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTimeEdit>

namespace {

using namespace std::chrono_literals;

/// The whole program; its commands come from the menu.
class ProgramEditingTest : public testing::Test, public SimulatedProgram<ScriptedPrompts> {
protected:
    ProgramEditingTest() : SimulatedProgram({.scan = 20ms, .arrival = 1ms}) { start(); }

    /// As it would be saved, byte by byte.
    QByteArray text() { return AQDataSourceWriter(data).text(); }
    void select(int row) { data.sequence().notifySelectionChange(row, nullptr); }
    void paste(const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        ui().menuitemPaste->trigger();
    }
    static QString lines(int count, const char* minute) {
        QString lines;
        for (int hour = 0; hour < count; ++hour)
            lines += QStringLiteral("%1:%2\t50\t50\n").arg(hour).arg(QLatin1String(minute));
        return lines;
    }
    static QDialog* dialog() { return qobject_cast<QDialog*>(QApplication::activeModalWidget()); }
    template <class Field>
    Field* field(const char* name) {
        return delegate.window().findChild<Field*>(QLatin1String(name));
    }
};

TEST_F(ProgramEditingTest, cutNamesItsStepAndPasteKeepsThePointsThatAreThere) {
    for (const int row : {2, -1}) {
        select(row);
        ui().menuitemCut->trigger();
        EXPECT_EQ(data.history().undoName(),
                  row < 0 ? QStringLiteral("Cut Program") : QStringLiteral("Cut 15:00"));
        EXPECT_EQ(ui().menuitemCopy->isEnabled(), row >= 0) << "without points";
        ui().menuitemUndo->trigger();
    }
    const AQPointId id = data.sequence().idAt(2);
    paste(QStringLiteral("15:00;40 %;50\r\n6:00;1,5;2"));
    EXPECT_EQ(data.sequence().count(), 8);
    EXPECT_EQ(data.sequence().at(data.sequence().rowOf(id)).brightness, 0.4);
    EXPECT_EQ(data.selection().row(), 0) << "the first of the pasted ones";
}

TEST_F(ProgramEditingTest, whatCannotBePastedIsExplainedAndChangesNothing) {
    const QByteArray before = text();
    const auto answer = [&](const QString& clipboard) {
        prompts.told.clear();
        paste(clipboard);
        return prompts.told.join(u'#');
    };
    const QString nothing = QStringLiteral("There is no text with time points in the clipboard.");
    EXPECT_TRUE(answer(QStringLiteral(" \n")).startsWith(nothing));
    QGuiApplication::clipboard()->setImage(QImage(4, 4, QImage::Format_RGB32));
    prompts.told.clear();
    ui().menuitemPaste->trigger();
    EXPECT_TRUE(prompts.told.value(0).startsWith(nothing));

    const QString reasons = answer(lines(2, "00") + lines(13, "77"));
    EXPECT_TRUE(reasons.contains(QStringLiteral("Line 3: ")) &&
                reasons.contains(QStringLiteral("Line 12: ")) &&
                reasons.endsWith(QStringLiteral("\nand 3 more lines")))
        << reasons.toStdString();
    EXPECT_LT(answer(QString(ProgramText::maxLength, u'8')).size(), 300);

    // 16 new points and two for times that are taken, in a program of 7.
    const QString tooMany = lines(16, "15") + QStringLiteral("15:00\t1\t1\n20:00\t1\t1\n");
    answer(tooMany);
    EXPECT_TRUE(prompts.asked.value(0).contains(QStringLiteral(
        "The program has 7 points and can have 20: 15 of the 18 pasted points fit.")))
        << prompts.asked.value(0).toStdString();
    EXPECT_TRUE(prompts.told.isEmpty());
    EXPECT_TRUE(answer(lines(21, "15")).contains(QStringLiteral("13 of the 21 pasted points fit")));
    EXPECT_EQ(prompts.asked.size(), 1) << "they do not fit alone";
    EXPECT_EQ(text(), before);

    prompts.confirmations = {true};
    answer(tooMany);
    EXPECT_EQ(data.sequence().count(), 18);
    ui().menuitemUndo->trigger();
    EXPECT_EQ(text(), before);
}

TEST_F(ProgramEditingTest, lampAndFiguresShowAPreviewThatTheDocumentDoesNotKnow) {
    connect();
    const QByteArray before = text();
    const QString figures = ui().lblStatistics->text();
    const AQPointId id = data.sequence().idAt(2);
    select(2);
    ui().bttnLiveModeSwitch->setChecked(true);
    const auto lampShows = [&](double brightness) {
        const ChannelLevels levels = levelsFromLight(data.sequence().at(2).colorTemp, brightness);
        return runUntil([&] {
            const auto shown = device.lampLevels();
            return device.state().demoActive && shown[0] == levels.cold && shown[1] == levels.warm;
        });
    };
    ASSERT_TRUE(lampShows(1.0));

    ui().menuitemScaleIntensity->trigger();
    field<QSpinBox>("spinScale")->setValue(50);
    EXPECT_TRUE(lampShows(0.5));
    EXPECT_EQ(ui().lblStatistics->text(), QStringLiteral("Light 15 h 00 min, 5.4 h of full light"));
    EXPECT_EQ(text(), before);
    dialog()->reject();
    EXPECT_TRUE(lampShows(1.0));
    EXPECT_EQ(ui().lblStatistics->text(), figures);
    EXPECT_FALSE(data.history().canUndo() || data.isDirty());

    // Without a change no step; a program that changes under the dialog is the one that is changed.
    ui().menuitemShiftDay->trigger();
    dialog()->accept();
    EXPECT_FALSE(data.history().canUndo());
    ui().menuitemShiftDay->trigger();
    field<QTimeEdit>("pickerShift")->setTime(QTime(10, 30));
    data.sequence().deleteWithRow(0, nullptr);
    dialog()->accept();
    EXPECT_EQ(data.history().undoName(), QStringLiteral("Shift Day by +10:30"));
    EXPECT_EQ(data.sequence().count(), 6);
    EXPECT_EQ(data.sequence().at(data.sequence().rowOf(id)).time, (AQTime{1, 30, 0}));
    EXPECT_EQ(data.selection().id(), id);
    ui().menuitemUndo->trigger();
    ui().menuitemUndo->trigger();
    EXPECT_EQ(text(), before);
}

TEST_F(ProgramEditingTest, newDayIsMadeOnlyWhenItCanBeAndMayReplaceTheOld) {
    connect({.maxPoints = 8});
    data.sequence().deleteWithRow(0, nullptr);
    const QByteArray before = text();
    ui().menuitemNewDay->trigger();
    const auto* panel = dialog();
    const auto pressOk = [&] {
        auto* ok = panel->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
        ok->click();
        return ok->isEnabled();
    };
    const auto typeTime = [&](const char* name, const char* text) {
        auto* time = field<TimeField>(name);
        QTest::keyClick(time, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(time, QLatin1String(text));
        return time->commit();
    };
    EXPECT_EQ(panel->findChild<AQCurveView*>()->pointViews().size(), 8U);
    EXPECT_FALSE(typeTime("pickerStart", "9999"));
    typeTime("pickerStart", "1800");
    typeTime("pickerEnd", "0200");
    field<QCheckBox>("chkBreak")->setChecked(true);
    const auto* fault = field<QLabel>("lblBreakFault");
    EXPECT_TRUE(!pressOk() && fault->text().contains(u"19:30") && fault->text().contains(u"00:30"))
        << fault->text().toStdString();
    typeTime("pickerBreak", "2000");
    EXPECT_TRUE(!pressOk() && fault->text().contains(u"8 points")) << fault->text().toStdString();
    field<QCheckBox>("chkBreak")->setChecked(false);
    EXPECT_TRUE(fault->text().isEmpty());
    QTest::keyClicks(field<QSpinBox>("spinNoon"), QStringLiteral("-7e9x"));
    field<QSpinBox>("spinNoon")->setValue(60);

    // Cancelled, the question loses neither the old day nor what was described.
    EXPECT_TRUE(pressOk());
    EXPECT_EQ(text(), before);
    EXPECT_TRUE(panel->isVisible());
    prompts.saveAnswers = {Prompts::SaveAnswer::Discard};
    pressOk();
    EXPECT_FALSE(panel->isVisible());
    EXPECT_DOUBLE_EQ(lightAt(data.sequence().points(), {0, 0}).brightness, 0.6);
    EXPECT_LE(data.sequence().count(), 8);
    EXPECT_EQ(delegate.window().windowTitle(), QStringLiteral("Aquelon - Untitled *"));
    EXPECT_FALSE(data.history().canUndo());
}

TEST_F(ProgramEditingTest, commandsThatCannotBeUsedSayWhy) {
    const std::initializer_list<const QAction*> changes{
        ui().menuitemCut, ui().menuitemPaste, ui().menuitemShiftDay, ui().menuitemScaleIntensity};
    ui().bttnSwitchProgMode->click();
    for (const QAction* item : changes)
        EXPECT_TRUE(!item->isEnabled() && item->toolTip().contains(QStringLiteral("analog")))
            << item->text().toStdString();
    EXPECT_TRUE(ui().menuitemCopy->isEnabled());
}

} // namespace
