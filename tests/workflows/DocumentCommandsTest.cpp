#include "workflows/DocumentCommands.h"
#include "data/AQDataSource.h"
#include "workflows/ScriptedPrompts.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include <filesystem>
#include <functional>

namespace {

using SaveAnswer = Prompts::SaveAnswer;

class DocumentCommandsTest : public testing::Test {
protected:
    QString path(const char* name) const { return m_folder.filePath(QLatin1String(name)); }
    static void write(const QString& path, const QByteArray& bytes) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    static QByteArray read(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void edit() { m_data.sequence().updateWithRow(0, AQSequence::Brightness{0.25}, nullptr); }
    /// Makes `name` the open file, holding the present document.
    void saveAs(const char* name) {
        m_prompts.placesToSave.push_back(path(name));
        m_commands.saveDocumentAs();
        ASSERT_EQ(m_commands.openFilePath(), path(name));
        m_prompts.asked.clear();
    }

    QTemporaryDir m_folder;
    NotificationCenter m_notifications;
    AQDataSource m_data{m_notifications};
    ScriptedPrompts m_prompts;
    DocumentCommands m_commands{m_data, m_prompts};
};

const QString unsaved =
    QStringLiteral("|There are unsaved changes. Do you want to save them first?");

TEST_F(DocumentCommandsTest, titleFollowsFileAndDirtyMark) {
    EXPECT_EQ(m_commands.windowTitle(), QStringLiteral("Aquelon - Untitled"));
    edit();
    EXPECT_EQ(m_commands.windowTitle(), QStringLiteral("Aquelon - Untitled *"));
    saveAs("reef [*].sq");
    EXPECT_EQ(m_commands.windowTitle(), QStringLiteral("Aquelon - reef [*][*].sq"));
    edit();
    m_commands.saveDocument();
    EXPECT_TRUE(m_prompts.asked.isEmpty());
    EXPECT_FALSE(m_data.isDirty());
}

TEST_F(DocumentCommandsTest, cleanDocumentIsNeverAskedAbout) {
    int went = 0;
    m_commands.askAboutChanges(QStringLiteral("Save changed before quitting?"), [&] { ++went; });
    m_commands.loadDefaults();
    EXPECT_EQ(went, 1);
    EXPECT_TRUE(m_prompts.asked.isEmpty());
}

// What a person answers to the question, and whether the command then goes on.
TEST_F(DocumentCommandsTest, unsavedChangesAreAskedAbout) {
    struct Case {
        SaveAnswer answer;
        std::optional<QString> place;
        bool goesOn;
        bool dirty;
    };
    const Case cases[] = {
        {SaveAnswer::Discard, {}, true, true},
        {SaveAnswer::Cancel, {}, false, true},
        {SaveAnswer::Save, {}, false, true}, // the save panel is cancelled
        {SaveAnswer::Save, path("missing/a.sq"), false, true},
        {SaveAnswer::Save, path("a.sq"), true, false},
    };
    for (const Case& test : cases) {
        edit();
        m_prompts.saveAnswers = {test.answer};
        m_prompts.placesToSave = {test.place};
        bool wentOn = false;
        bool cancelled = false;
        m_commands.askAboutChanges(
            QStringLiteral("Save changed before quitting?"), [&] { wentOn = true; },
            [&] { cancelled = true; });
        EXPECT_EQ(m_prompts.asked.takeFirst(),
                  QStringLiteral("Save changed before quitting?") + unsaved);
        EXPECT_EQ(wentOn, test.goesOn);
        EXPECT_EQ(cancelled, !test.goesOn);
        EXPECT_EQ(m_data.isDirty(), test.dirty);
        m_prompts.asked.clear();
    }
}

TEST_F(DocumentCommandsTest, failedSaveTellsAndKeepsTheMark) {
    saveAs("a.sq");
    const QByteArray saved = read(path("a.sq"));
    edit();
    m_prompts.placesToSave = {path("missing/b.sq")};
    m_commands.saveDocumentAs();
    EXPECT_EQ(
        m_prompts.told,
        QStringList(QStringLiteral("Could not save file!|There was an error while saving to ") +
                    path("missing/b.sq")));
    EXPECT_EQ(m_commands.windowTitle(), QStringLiteral("Aquelon - a.sq *"));
    EXPECT_EQ(read(path("a.sq")), saved);
}

TEST_F(DocumentCommandsTest, opensAndTakesOverTheFile) {
    saveAs("a.sq");
    edit();
    saveAs("b.sq");
    m_prompts.filesToOpen = {path("a.sq")};
    m_commands.open();
    EXPECT_EQ(m_commands.windowTitle(), QStringLiteral("Aquelon - a.sq"));
    EXPECT_EQ(m_data.sequence().at(0).brightness, 0.0);

    m_prompts.filesToOpen = {std::nullopt};
    m_commands.open();
    EXPECT_EQ(m_commands.windowTitle(), QStringLiteral("Aquelon - a.sq"));
    EXPECT_TRUE(m_prompts.told.isEmpty());

    edit();
    m_prompts.saveAnswers = {SaveAnswer::Discard};
    m_commands.openPath(path("b.sq"));
    EXPECT_EQ(m_prompts.asked.last(),
              QStringLiteral("Save changes before opening new file?") + unsaved);
    EXPECT_EQ(m_commands.windowTitle(), QStringLiteral("Aquelon - b.sq"));
}

TEST_F(DocumentCommandsTest, newDocumentForgetsTheFile) {
    saveAs("a.sq");
    edit();
    m_prompts.saveAnswers = {SaveAnswer::Discard};
    m_commands.loadDefaults();
    EXPECT_EQ(m_prompts.asked,
              QStringList(QStringLiteral("Save changes before loading defaults?") + unsaved));
    EXPECT_EQ(m_commands.windowTitle(), QStringLiteral("Aquelon - Untitled"));
    EXPECT_EQ(m_data.sequence().count(), 7);
}

TEST_F(DocumentCommandsTest, brokenFileKeepsTheOldOneSafe) {
    saveAs("a.sq");
    const QByteArray saved = read(path("a.sq"));
    write(path("broken.sq"), "<settings><timeline><point>");
    m_commands.openPath(path("broken.sq"));
    EXPECT_EQ(m_prompts.told,
              QStringList(QStringLiteral("Could not open file!|") + path("broken.sq") +
                          QStringLiteral(" could not be opened. Maybe the file is corrupt or "
                                         "contains invalid data.")));
    EXPECT_EQ(m_commands.windowTitle(), QStringLiteral("Aquelon - a.sq"));
    EXPECT_EQ(m_data.sequence().count(), 0);

    // Now the window holds half of another file, which a plain save must not put over a.sq.
    m_prompts.confirmations = {false};
    m_commands.saveDocument();
    EXPECT_EQ(read(path("a.sq")), saved);
    m_prompts.confirmations = {true};
    m_commands.saveDocument();
    EXPECT_NE(read(path("a.sq")), saved);
}

TEST_F(DocumentCommandsTest, missingFileChangesNothing) {
    edit();
    m_prompts.saveAnswers = {SaveAnswer::Discard};
    m_commands.openPath(path("nowhere.sq"));
    EXPECT_EQ(m_prompts.told.size(), 1);
    EXPECT_EQ(m_data.sequence().count(), 7);
    EXPECT_EQ(m_commands.windowTitle(), QStringLiteral("Aquelon - Untitled *"));
}

TEST_F(DocumentCommandsTest, fileChangedOnDiskIsNotOverwrittenUnasked) {
    namespace fs = std::filesystem;
    const fs::path file = path("a.sq").toStdString();
    const fs::path other = path("b.sq").toStdString();
    saveAs("a.sq");
    const QByteArray ours = read(path("a.sq"));
    const QByteArray theirs = QByteArray(ours).replace("<color>255<", "<color>254<");
    // Copying programs give the copy the time of the original.
    const auto putWithTime = [](const fs::path& where, const QByteArray& bytes,
                                fs::file_time_type time) {
        write(QString::fromStdString(where.string()), bytes);
        fs::last_write_time(where, time);
    };
    const struct {
        const char* name;
        std::function<void()> meanwhile;
        bool asked;
    } cases[] = {
        {"nothing", [] {}, false},
        {"changed", [&] { write(path("a.sq"), "somebody else's work"); }, true},
        {"changed, with the same size and time",
         [&] { putWithTime(file, theirs, fs::last_write_time(file)); }, true},
        {"changed and changed back", [&] { putWithTime(file, ours, {}); }, false},
        {"renamed over, with the same size and time",
         [&] {
             putWithTime(other, theirs, fs::last_write_time(file));
             fs::rename(other, file);
         },
         true},
        {"deleted", [&] { fs::remove(file); }, false},
        {"deleted and made again",
         [&] {
             const auto time = fs::last_write_time(file);
             fs::remove(file);
             putWithTime(file, theirs, time);
         },
         true},
        {"the link turned to another file",
         [&] {
             putWithTime(other, theirs, fs::last_write_time(file));
             fs::remove(path("link.sq").toStdString());
             fs::create_symlink(other, path("link.sq").toStdString());
         },
         true},
        {"replaced by a folder",
         [&] {
             fs::remove(file);
             fs::create_directory(file);
         },
         true},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        fs::remove_all(file);
        fs::remove(path("link.sq").toStdString());
        write(path("a.sq"), ours);
        fs::create_symlink(file, path("link.sq").toStdString());
        m_commands.openPath(path("link.sq"));
        ASSERT_FALSE(m_data.isDirty());
        test.meanwhile();
        const QByteArray found = read(path("link.sq"));
        edit();
        m_prompts.asked.clear();
        m_prompts.confirmations = {false};
        m_commands.saveDocument();
        EXPECT_EQ(m_prompts.asked.size(), test.asked ? 1 : 0);
        EXPECT_EQ(m_data.isDirty(), test.asked);
        EXPECT_EQ(read(path("link.sq")) == found, test.asked);
        m_data.setIsDirty(false);
    }
}

TEST_F(DocumentCommandsTest, savesOverAChangedFileWhenToldTo) {
    saveAs("a.sq");
    write(path("b.sq"), "somebody else's work");
    edit();
    saveAs("b.sq"); // the file dialog has asked
    write(path("b.sq"), "and more of it");
    edit();
    m_prompts.confirmations = {true};
    m_commands.saveDocument();
    EXPECT_EQ(m_prompts.asked.size(), 1);
    m_prompts.asked.clear();
    edit();
    m_commands.saveDocument();
    EXPECT_TRUE(m_prompts.asked.isEmpty());
    EXPECT_TRUE(read(path("b.sq")).startsWith("<?xml"));
}

} // namespace
