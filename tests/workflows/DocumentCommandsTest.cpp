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

// What a person answers to the question, and whether the command then goes on.
TEST_F(DocumentCommandsTest, unsavedChangesAreAskedAbout) {
    const struct {
        SaveAnswer answer;
        std::optional<QString> place;
        bool goesOn;
        bool dirty;
    } cases[] = {
        {SaveAnswer::Discard, {}, true, true},
        {SaveAnswer::Cancel, {}, false, true},
        {SaveAnswer::Save, {}, false, true}, // the save panel is cancelled
        {SaveAnswer::Save, path("missing/a.sq"), false, true},
        {SaveAnswer::Save, path("a.sq"), true, false},
    };
    bool wentOn = false;
    const auto ask = [&] {
        m_commands.askAboutChanges(QStringLiteral("Really?"), [&] { wentOn = true; });
    };
    for (const auto& test : cases) {
        edit();
        m_prompts.saveAnswers = {test.answer};
        m_prompts.placesToSave = {test.place};
        wentOn = false;
        ask();
        EXPECT_EQ(wentOn, test.goesOn);
        EXPECT_EQ(m_data.isDirty(), test.dirty);
        m_prompts.asked.clear();
    }
    ask();
    EXPECT_TRUE(m_prompts.asked.isEmpty()) << "a clean document is never asked about";
}

// The save panel cannot ask about a file whose name it was not given.
TEST_F(DocumentCommandsTest, nameWithoutEndingReplacesNoFileUnasked) {
    const QByteArray other = "another program";
    write(path("reef.sq"), other);
    for (const bool yes : {false, true}) {
        m_prompts.placesToSave = {path("reef")};
        m_prompts.confirmations = {yes};
        m_commands.saveDocumentAs();
        EXPECT_EQ(read(path("reef.sq")) == other, !yes);
    }
    m_prompts.placesToSave = {path("[*] 2.0")};
    m_commands.saveDocumentAs();
    EXPECT_EQ(title(), "Aquelon - [*][*] 2.0.sq") << "shown as it stands";
}

TEST_F(DocumentCommandsTest, brokenFileKeepsTheOldOneSafe) {
    saveAs("a.sq");
    const QByteArray saved = read(path("a.sq"));
    write(path("broken.sq"), "<settings><timeline><point>");
    m_commands.openPath(path("broken.sq"));
    EXPECT_EQ(m_prompts.told.size(), 1);
    EXPECT_EQ(title(), "Aquelon - a.sq *");
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
    const auto replace = [&] {
        const auto time = fs::last_write_time(file);
        write(path("a.sq"), theirs);
        fs::last_write_time(file, time);
    };
    const auto openAgain = [&](const char* contents) {
        write(path("a.sq"), contents);
        m_commands.openPath(path("a.sq"));
    };
    const struct {
        const char* name;
        std::function<void()> meanwhile;
        const char* asked;
    } cases[] = {
        {"nothing", [] {}, nullptr},
        {"changed, with the same size and time", replace, "was changed by another program"},
        {"deleted", [&] { fs::remove(file); }, nullptr},
        {"replaced by a folder", [&] { fs::remove(file) && fs::create_directory(file); },
         "a.sq cannot be read any more (Is a directory)."},
        {"opened again, now without a program", [&] { openAgain("<settings/>"); },
         "not the one that was opened from a.sq"},
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
        EXPECT_TRUE(m_prompts.asked.value(0).contains(QLatin1String(test.asked)));
        EXPECT_EQ(m_data.isDirty(), test.asked != nullptr);
        EXPECT_EQ(read(path("a.sq")) == found, test.asked != nullptr);
        m_data.setIsDirty(false);
    }
}

} // namespace
