#include "data/AQDataSourceWriter.h"
#include "data/AQDataSource.h"
#include "data/NotificationLog.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Lines = std::vector<std::string>;

QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

void put(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

unsigned mode(const QString& path) {
    struct stat info {};
    ::lstat(QFile::encodeName(path).constData(), &info);
    return info.st_mode;
}

/// Below this limit no file can be written, as on a full disk.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &m_old);
        const rlimit limit{bytes, m_old.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &m_old);
        std::signal(SIGXFSZ, m_handler);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    void (*m_handler)(int);
    rlimit m_old{};
};

class AQDataSourceWriterTest : public testing::Test {
protected:
    AQDataSourceWriterTest() { log.name(document, "document"); }

    QString path(const char* name) const { return folder.filePath(QLatin1String(name)); }
    QStringList files() const {
        return QDir(folder.path())
            .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
    }
    void expectFailure(const QString& target, const char* reason) {
        document.setIsDirty(true);
        log.take();
        const QStringList before = files();
        EXPECT_FALSE(writer.saveToFile(target));
        EXPECT_EQ(writer.errorString().toStdString(), reason);
        EXPECT_TRUE(document.isDirty());
        EXPECT_EQ(log.take(), Lines{});
        EXPECT_EQ(files(), before);
    }

    QTemporaryDir folder;
    NotificationCenter center;
    std::optional<DeviceInfo> device;
    AQDataSource document{center, [this] { return device; }};
    AQDataSourceWriter writer{document};
    NotificationLog log{center};
};

TEST_F(AQDataSourceWriterTest, writesTheFormat) {
    device = DeviceInfo{{1, 4}, 17, 5, 2, 20};
    document.setTaskLight({{1, 5, 30}, -1.0, 0.5});
    document.setIsProgramMode(false);
    document.sequence().replacePoints({{{10, 0, 0}, 0.565, 0.8}, {{23, 59, 59}, 1.5, 0.0}});
    EXPECT_EQ(writer.text().toStdString(), "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
                                           "<settings>\n"
                                           "\t<task_light_mode>\n"
                                           "\t\t<nMinutes>65</nMinutes>\n"
                                           "\t\t<nSeconds>30</nSeconds>\n"
                                           "\t\t<color>0</color>\n"
                                           "\t\t<intensity>128</intensity>\n"
                                           "\t</task_light_mode>\n"
                                           "\t<mode1_10v>0</mode1_10v>\n"
                                           "\t<firmware>1.4.17</firmware>\n"
                                           "\t<dev_type>5</dev_type>\n"
                                           "\t<timeline>\n"
                                           "\t\t<point>\n"
                                           "\t\t\t<time>600</time>\n"
                                           "\t\t\t<intensity>204</intensity>\n"
                                           "\t\t\t<color>144</color>\n"
                                           "\t\t</point>\n"
                                           "\t\t<point>\n"
                                           "\t\t\t<time>1439</time>\n"
                                           "\t\t\t<intensity>0</intensity>\n"
                                           "\t\t\t<color>255</color>\n"
                                           "\t\t</point>\n"
                                           "\t</timeline>\n"
                                           "</settings>\n");
}

TEST_F(AQDataSourceWriterTest, writesAnEmptyProgramWithoutAController) {
    document.sequence().replacePoints({});
    EXPECT_TRUE(writer.text().endsWith("\t<mode1_10v>1</mode1_10v>\n"
                                       "\t<firmware>0.0.0</firmware>\n"
                                       "\t<dev_type>0</dev_type>\n"
                                       "\t<timeline>\n"
                                       "\t</timeline>\n"
                                       "</settings>\n"));
}

TEST_F(AQDataSourceWriterTest, savesAndCleans) {
    document.setIsDirty(true);
    log.take();
    ASSERT_TRUE(writer.saveToFile(path("new.sq"))) << writer.errorString().toStdString();
    EXPECT_EQ(contents(path("new.sq")), writer.text());
    EXPECT_EQ(log.take(), Lines{"dataDirty from document"});
    ASSERT_TRUE(writer.saveToFile(path("new.sq")));
    EXPECT_EQ(log.take(), Lines{});
    EXPECT_EQ(files(), QStringList{QStringLiteral("new.sq")});
}

TEST_F(AQDataSourceWriterTest, keepsThePermissionsOfTheOldFile) {
    for (const unsigned permissions : {0600U, 0640U, 0666U, 0755U}) {
        put(path("old.sq"), "old");
        ASSERT_EQ(::chmod(QFile::encodeName(path("old.sq")).constData(), permissions), 0);
        ASSERT_TRUE(writer.saveToFile(path("old.sq")));
        EXPECT_EQ(mode(path("old.sq")), S_IFREG | permissions);
    }
}

TEST_F(AQDataSourceWriterTest, followsLinks) {
    QDir(folder.path()).mkdir(QStringLiteral("sub"));
    put(path("sub/target.sq"), "old");
    // A chain, its links relative to where they stand.
    ASSERT_EQ(::symlink("sub/second.sq", QFile::encodeName(path("first.sq")).constData()), 0);
    ASSERT_EQ(::symlink("target.sq", QFile::encodeName(path("sub/second.sq")).constData()), 0);
    ASSERT_EQ(::symlink("sub/new.sq", QFile::encodeName(path("dangling.sq")).constData()), 0);
    ASSERT_TRUE(writer.saveToFile(path("first.sq"))) << writer.errorString().toStdString();
    ASSERT_TRUE(writer.saveToFile(path("dangling.sq"))) << writer.errorString().toStdString();
    for (const char* link : {"first.sq", "sub/second.sq", "dangling.sq"})
        EXPECT_TRUE(S_ISLNK(mode(path(link)))) << link;
    for (const char* file : {"sub/target.sq", "sub/new.sq"})
        EXPECT_TRUE(S_ISREG(mode(path(file)))) << file;
    EXPECT_EQ(contents(path("sub/target.sq")), writer.text());
    EXPECT_EQ(contents(path("sub/new.sq")), writer.text());
}

TEST_F(AQDataSourceWriterTest, refusesWhatIsNoFile) {
    const QByteArray fifo = QFile::encodeName(path("fifo"));
    ASSERT_EQ(::mkfifo(fifo.constData(), 0600), 0);
    ASSERT_EQ(::symlink("/dev/full", QFile::encodeName(path("full")).constData()), 0);
    ASSERT_EQ(::symlink("loop", QFile::encodeName(path("loop")).constData()), 0);
    put(path("plain"), "");

    expectFailure(path("fifo"), "Not a regular file");
    // A writer that replaces a FIFO must not get at the system's own device.
    ASSERT_TRUE(S_ISFIFO(mode(path("fifo"))));
    expectFailure(path("full"), "Not a regular file");
    expectFailure(folder.path(), "Is a directory");
    expectFailure(path("loop"), "Too many levels of symbolic links");
    expectFailure(path("missing/new.sq"), "No such file or directory");
    expectFailure(path("plain/new.sq"), "Not a directory");
    EXPECT_TRUE(S_ISCHR(mode(QStringLiteral("/dev/full"))));
}

TEST_F(AQDataSourceWriterTest, keepsTheOldFileWhenTheDiskIsFull) {
    put(path("old.sq"), "old");
    // Whether the first or a later byte does not fit, and whether the text is larger than buffers.
    for (const int points : {7, 1000}) {
        document.sequence().replacePoints(
            std::vector<AQTimePoint>(static_cast<std::size_t>(points)));
        for (const rlim_t room :
             {rlim_t{0}, rlim_t{100}, static_cast<rlim_t>(writer.text().size()) - 1}) {
            SCOPED_TRACE(room);
            const FileSizeLimit limit(room);
            expectFailure(path("old.sq"), "File too large");
            EXPECT_EQ(contents(path("old.sq")), "old");
        }
    }
    EXPECT_TRUE(writer.saveToFile(path("old.sq")));
    EXPECT_EQ(writer.errorString(), QString());
}

TEST_F(AQDataSourceWriterTest, respectsProtectedFilesAndFolders) {
    put(path("old.sq"), "old");
    ASSERT_EQ(::chmod(QFile::encodeName(folder.path()).constData(), 0555), 0);
    // The administrator may write everywhere, another person may not.
    const bool isRoot = ::geteuid() == 0;
    ASSERT_EQ(isRoot ? ::seteuid(65534) : 0, 0);
    const bool saved = writer.saveToFile(path("old.sq"));
    ASSERT_EQ(isRoot ? ::seteuid(0) : 0, 0);
    ASSERT_EQ(::chmod(QFile::encodeName(folder.path()).constData(), 0755), 0);
    EXPECT_FALSE(saved);
    EXPECT_FALSE(writer.errorString().isEmpty());
    EXPECT_EQ(contents(path("old.sq")), "old");
}

} // namespace
