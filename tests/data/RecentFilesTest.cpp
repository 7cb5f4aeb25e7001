#include "data/RecentFiles.h"

#include <gmock/gmock.h>

#include <QFile>
#include <QTemporaryDir>

namespace {

/// As other programs write it: a text, and a light program that a file manager has opened.
constexpr const char* desktopsList = R"(<?xml version="1.0" encoding="UTF-8"?>
<xbel version="1.0" xmlns:bookmark="http://www.freedesktop.org/standards/desktop-bookmarks"
      xmlns:mime="http://www.freedesktop.org/standards/shared-mime-info">
  <bookmark href="file:///home/a/notes.txt" added="2026-01-01T10:00:00Z" modified="2026-01-01T10:00:00Z" visited="2026-01-01T10:00:00Z">
    <info><metadata owner="http://freedesktop.org"><mime:mime-type type="text/plain"/>
      <bookmark:applications><bookmark:application name="Editor" exec="&apos;editor %u&apos;" modified="2026-01-01T10:00:00Z" count="1"/></bookmark:applications></metadata></info>
  </bookmark>
  <bookmark href="file:///home/a/s%C3%BC%C3%9F.sq" added="2026-01-02T10:00:00Z" modified="2026-01-02T10:00:00Z" visited="2026-01-02T10:00:00Z">
    <info><metadata owner="http://freedesktop.org"><mime:mime-type type="application/x-aquelon-program+xml"/>
      <bookmark:applications><bookmark:application name="Files" exec="&apos;files %u&apos;" modified="2026-01-02T10:00:00Z" count="1"/></bookmark:applications></metadata></info>
  </bookmark>
</xbel>)";

class RecentFilesTest : public testing::Test {
protected:
    void write(const QByteArray& text) {
        QFile file(m_list);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    std::string text() const {
        QFile file(m_list);
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
    }
    /// "path" of what another program has used alone, "path*" of ours.
    std::string entries() const {
        QString line;
        for (const auto& entry : m_files.entries())
            line += entry.path + QLatin1String(entry.isOurs ? "* " : " ");
        return line.trimmed().toStdString();
    }

    QTemporaryDir m_folder;
    QString m_list = m_folder.filePath(QStringLiteral("share/recently-used.xbel"));
    RecentFiles m_files{m_list};
};

TEST_F(RecentFilesTest, sharesTheDesktopsList) {
    m_files.add(QStringLiteral("/home/a/../b/reef (1)'s.sq")); // there is no list yet
    EXPECT_EQ(entries(), "/home/b/reef (1)'s.sq*");
    EXPECT_EQ(QFile::permissions(m_list) & (QFile::ReadGroup | QFile::ReadOther), 0);

    write(desktopsList);
    EXPECT_EQ(entries(), "/home/a/süß.sq");
    m_files.add(QStringLiteral("/home/b/reef.sq"));
    m_files.add(QStringLiteral("/home/b/nano.sq"));
    EXPECT_EQ(entries(), "/home/b/nano.sq* /home/b/reef.sq* /home/a/süß.sq");
    m_files.add(QStringLiteral("/home/a/süß.sq"));
    EXPECT_EQ(entries(), "/home/a/süß.sq* /home/b/nano.sq* /home/b/reef.sq*");
    m_files.clear();
    EXPECT_EQ(entries(), "/home/a/süß.sq") << "the other program's";
    EXPECT_THAT(text(), testing::AllOf(testing::HasSubstr("notes.txt"), testing::HasSubstr("Files"),
                                       testing::Not(testing::HasSubstr("Aquelon"))));
}

TEST_F(RecentFilesTest, leavesAListThatItCannotReadAsItIs) {
    m_files.add(QStringLiteral("/home/b/reef.sq"));
    for (const std::string& broken : {text().substr(0, text().size() / 2), std::string("{}")}) {
        write(QByteArray::fromStdString(broken));
        EXPECT_EQ(entries(), "");
        m_files.add(QStringLiteral("/home/b/nano.sq"));
        m_files.clear();
        EXPECT_EQ(text(), broken);
    }
}

} // namespace
