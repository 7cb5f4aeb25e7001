#include "workflows/DocumentCommands.h"
#include "data/AQDataSource.h"
#include "workflows/ScriptedPrompts.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include <filesystem>
#include <functional>

namespace {

namespace fs = std::filesystem;
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
        m_prompts.placesToSave = {path(name)};
        m_commands.saveDocumentAs();
        ASSERT_EQ(m_commands.openFilePath(), path(name));
        m_prompts.asked.clear();
    }
    std::string title() const { return m_commands.windowTitle().toStdString(); }

    QTemporaryDir m_folder;
    NotificationCenter m_notifications;
    AQDataSource m_data{m_notifications};
    ScriptedPrompts m_prompts;
    DocumentCommands m_commands{m_data, m_prompts};
};

const QString unsaved =
    QStringLiteral("|There are unsaved changes. Do you want to save them first?");

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
        m_commands.askAboutChanges(QStringLiteral("Really?"), [&] { wentOn = true; });
        EXPECT_EQ(m_prompts.asked.takeFirst(), QStringLiteral("Really?") + unsaved);
        EXPECT_EQ(wentOn, test.goesOn);
        EXPECT_EQ(m_data.isDirty(), test.dirty);
        m_prompts.asked.clear();
    }
}

// The save panel cannot ask about a file whose name it was not given.
TEST_F(DocumentCommandsTest, nameWithoutEndingReplacesNoFileUnasked) {
    const QByteArray other = "another program";
    write(path("reef.sq"), other);
    for (const bool yes : {false, true}) {
        m_prompts.placesToSave = {path("reef")};
        m_prompts.confirmations = {yes};
        m_commands.saveDocumentAs();
        EXPECT_EQ(m_prompts.asked.last(),
                  QStringLiteral("The file will be overwritten!|reef.sq exists already. Are you "
                                 "sure you want to continue?"));
        EXPECT_EQ(read(path("reef.sq")) == other, !yes);
    }
    saveAs("lagoon.sq");
    m_prompts.placesToSave = {path("atoll")};
    m_commands.saveDocumentAs();
    EXPECT_EQ(m_commands.openFilePath(), path("atoll.sq"));
    EXPECT_EQ(m_prompts.asked.size(), 1) << "nothing to ask but the place";
}

TEST_F(DocumentCommandsTest, opensAndTakesOverTheFile) {
    saveAs("a.sq");
    edit();
    saveAs("reef [*].sq");
    EXPECT_EQ(title(), "Aquelon - reef [*][*].sq");
    saveAs("b.sq");
    m_prompts.filesToOpen = {path("a.sq"), std::nullopt};
    m_commands.open();
    m_commands.open();
    m_commands.openPath(path("nowhere.sq"));
    EXPECT_EQ(m_prompts.told.size(), 1);
    EXPECT_EQ(title(), "Aquelon - a.sq");
    EXPECT_EQ(m_data.sequence().at(0).brightness, 0.0);

    edit();
    EXPECT_EQ(title(), "Aquelon - a.sq *");
    m_prompts.asked.clear();
    m_prompts.saveAnswers = {SaveAnswer::Discard};
    m_commands.openPath(path("b.sq"));
    EXPECT_EQ(title(), "Aquelon - b.sq");
    m_commands.loadDefaults(); // a clean document is never asked about
    EXPECT_EQ(m_prompts.asked,
              QStringList(QStringLiteral("Save changes before opening new file?") + unsaved));
    EXPECT_EQ(title(), "Aquelon - Untitled");
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
    EXPECT_EQ(title(), "Aquelon - a.sq");
    EXPECT_EQ(m_data.sequence().count(), 0);

    // Now the window holds half of another file, which a plain save must not put over a.sq.
    m_prompts.confirmations = {false, true};
    m_commands.saveDocument();
    EXPECT_EQ(read(path("a.sq")), saved);
    m_commands.saveDocument();
    EXPECT_NE(read(path("a.sq")), saved);
    m_prompts.asked.clear();
    m_commands.saveDocument();
    EXPECT_TRUE(m_prompts.asked.isEmpty());
}

TEST_F(DocumentCommandsTest, fileChangedOnDiskIsNotOverwrittenUnasked) {
    const fs::path file = path("a.sq").toStdString();
    saveAs("a.sq");
    const QByteArray ours = read(path("a.sq"));
    const QByteArray theirs = QByteArray(ours).replace("<color>255<", "<color>254<");
    // Copying programs give the copy the time of the original.
    const auto replaceWithin = [&](const QByteArray& bytes, fs::file_time_type time) {
        write(path("a.sq"), bytes);
        fs::last_write_time(file, time);
    };
    const struct {
        const char* name;
        std::function<void()> meanwhile;
        bool asked;
    } cases[] = {
        {"nothing", [] {}, false},
        {"changed, with the same size and time",
         [&] { replaceWithin(theirs, fs::last_write_time(file)); }, true},
        {"changed and changed back", [&] { replaceWithin(ours, {}); }, false},
        {"deleted", [&] { fs::remove(file); }, false},
        {"replaced by a folder", [&] { fs::remove(file) && fs::create_directory(file); }, true},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        fs::remove_all(file);
        write(path("a.sq"), ours);
        m_commands.openPath(path("a.sq"));
        test.meanwhile();
        const QByteArray found = read(path("a.sq"));
        edit();
        m_prompts.asked.clear();
        m_prompts.confirmations = {false};
        m_commands.saveDocument();
        EXPECT_EQ(m_prompts.asked.size(), test.asked ? 1 : 0);
        EXPECT_EQ(m_data.isDirty(), test.asked);
        EXPECT_EQ(read(path("a.sq")) == found, test.asked);
        m_data.setIsDirty(false);
    }
}

} // namespace
