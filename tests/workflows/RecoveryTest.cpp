#include "SimulatedProgram.h"
#include "controls/sliders/AQSliderBrightness.h"
#include "data/AQDataSourceWriter.h"
#include "workflows/ScriptedPrompts.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>

namespace {

using namespace std::chrono_literals;
using Program = SimulatedProgram<ScriptedPrompts>;
using testing::HasSubstr;

/// Runs of the program, after one another or side by side, with the same folder for their copies.
/// One that is destroyed leaves what one leaves that is killed.
class RecoveryTest : public testing::Test {
protected:
    std::unique_ptr<Program> start(const QString& file = {}, std::deque<bool> answers = {}) {
        auto run = std::make_unique<Program>(YMessageController::Intervals{}, m_copies);
        run->prompts.confirmations = std::move(answers);
        QObject::connect(&run->delegate, &AppDelegate::recoversElsewhere,
                         [this](const QString& copy) { m_elsewhere += copy; });
        run->start(file);
        return run;
    }
    static void change(Program& run, double to) { run.ui().sliderTaskBrightness->userSetValue(to); }
    /// A run that was ended with this change.
    void leave(double brightness, const QString& file = {}) {
        const auto run = start(file);
        change(*run, brightness);
        run->delegate.applicationShouldTerminate(AppDelegate::Ask::Nothing);
    }
    QStringList files() const { return QDir(m_copies).entryList(QDir::Files); }
    static bool holds(const Program& run, double brightness) {
        return std::abs(run.data.taskLight().brightness - brightness) < 1 / 255.0;
    }

    QStringList m_elsewhere; ///< what was to be opened by another process
    QTemporaryDir m_folder;
    QString m_copies = m_folder.filePath(QStringLiteral("state/aquelon"));
    QString m_reef = m_folder.filePath(QStringLiteral("reef.sq"));
};

TEST_F(RecoveryTest, copyComesInTwoSecondsWhileChangesGoOnAndGoesWithThem) {
    const auto run = start();
    const auto comes = [&] {
        QElapsedTimer time;
        for (time.start(); files().isEmpty() && time.elapsed() < 2000;) {
            change(*run, run->data.taskLight().brightness - 1 / 1024.0);
            runUntil([] { return false; }, 20ms);
        }
        return files().size() == 2; // with its lock
    };
    EXPECT_TRUE(comes());
    EXPECT_TRUE(start()->prompts.asked.isEmpty()) << "this one is alive";
    run->ui().menuitemUndo->trigger();
    EXPECT_TRUE(files().isEmpty()) << "undone";
    EXPECT_TRUE(comes());
    run->prompts.placesToSave = {m_reef};
    run->ui().menuitemSave->trigger();
    EXPECT_TRUE(files().isEmpty()) << "saved";
    EXPECT_TRUE(comes());
    run->prompts.saveAnswers = {Prompts::SaveAnswer::Cancel, Prompts::SaveAnswer::Discard};
    run->delegate.window().close();
    EXPECT_EQ(files().size(), 2) << "cancelled";
    run->delegate.window().close();
    EXPECT_TRUE(files().isEmpty()) << "given up";
}

TEST_F(RecoveryTest, offersTheNewestFirstAndOpensOneHere) {
    for (const double brightness : {0.25, 0.125, 0.75})
        leave(brightness);
    {
        const auto unanswered = start();
        EXPECT_EQ(unanswered->prompts.asked.size(), 1);
        EXPECT_TRUE(start()->prompts.asked.isEmpty()) << "asked about there";
    }
    const auto run = start({}, {false, true, true});
    EXPECT_TRUE(holds(*run, 0.125) && run->data.isDirty());
    ASSERT_EQ(m_elsewhere.size(), 1);
    qputenv("AQUELON_RECOVER", m_elsewhere[0].toUtf8());
    const auto other = start();
    EXPECT_TRUE(holds(*other, 0.25) && other->prompts.asked.isEmpty());
}

TEST_F(RecoveryTest, belongsToItsFileAndDoesNotOverwriteItUnasked) {
    NotificationCenter notifications;
    AQDataSource defaults(notifications);
    AQDataSourceWriter(defaults).saveToFile(m_reef);
    leave(0.125);
    for (const bool isChanged : {false, true}) {
        leave(isChanged ? 0.5 : 0.25, m_reef);
        if (isChanged)
            QFile::resize(m_reef, QFile(m_reef).size() - 1);
        const auto run = start(m_reef, {true, false, true});
        EXPECT_EQ(run->prompts.asked.size(), 1) << "the other copy is not this file's";
        EXPECT_EQ(run->delegate.window().windowTitle(), QStringLiteral("Aquelon - reef.sq *"));
        run->ui().menuitemSave->trigger();
        EXPECT_THAT(run->prompts.asked.last().toStdString(),
                    HasSubstr(isChanged ? "reef.sq was changed by another program"
                                        : "not the one that was opened from reef.sq"));
        EXPECT_EQ(files().size(), 3);
        run->ui().menuitemSave->trigger();
        EXPECT_EQ(files().size(), 1);
    }
}

TEST_F(RecoveryTest, whatCannotBeWrittenIsToldOnceAndWhatCannotBeReadIsLeft) {
    QDir().mkpath(m_copies);
    const auto write = [&](const char* name, const char* text) {
        QFile file(m_copies + QLatin1String(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    };
    write("/broken.recovery", R"({"program": "<settings", "time": "2026-11-22T06:00:00Z"})");
    write("/killed.recovery.aBcDeF", "");
    EXPECT_TRUE(start()->prompts.asked.isEmpty());
    EXPECT_EQ(files(), QStringList{QStringLiteral("broken.recovery")});

    m_copies += QStringLiteral("/broken.recovery/aquelon");
    const auto run = start();
    for (const double brightness : {0.25, 0.75}) {
        change(*run, brightness);
        runUntil([] { return false; }, 2s);
    }
    ASSERT_EQ(run->prompts.told.size(), 1);
    EXPECT_THAT(run->prompts.told[0].toStdString(), HasSubstr("/aquelon: Not a directory"));
}

} // namespace
