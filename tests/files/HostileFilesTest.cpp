#include "data/AQDataSourceReader.h"
#include "data/GuardedXml.h"
#include "data/ReaderFixture.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include <fstream>
#include <malloc.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr qint64 maxSize = AQDataSourceReader::maxFileSize;

// What a file may cost: processor time, since the machine may be busy with something else, and
// memory on top of what the program has. Sanitizers and builds for the debugger get more of both.
#if defined(__SANITIZE_ADDRESS__)
constexpr int slowness = 6;
constexpr long maxKilobytes = 128 * 1024;
#else
constexpr int slowness = 3;
constexpr long maxKilobytes = 16 * 1024;
#endif
constexpr long maxMilliseconds = 100 * slowness;

struct Cost {
    long milliseconds = 0;
    long kilobytes = 0;
};

/// Of loading a file, in a process of its own so that nothing hides the peak.
Cost costOfLoading(const QString& path) {
    ::malloc_trim(0);
    long pages = 0;
    std::ifstream("/proc/self/statm").ignore(64, ' ') >> pages;
    const pid_t child = ::fork();
    if (child == 0) {
        ReaderFixture().reader.loadFromFile(path);
        ::_exit(0);
    }
    rusage usage{};
    int status = -1;
    ::wait4(child, &status, 0, &usage);
    EXPECT_EQ(status, 0);
    const auto milliseconds = [](timeval time) { return time.tv_sec * 1000 + time.tv_usec / 1000; };
    return {milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime),
            usage.ru_maxrss - pages * (::sysconf(_SC_PAGESIZE) / 1024)};
}

class HostileFiles : public testing::Test {
protected:
    QString path(const char* name) const { return m_folder.filePath(QLatin1String(name)); }
    /// The path of a file with these contents.
    QString put(const QByteArray& bytes, const char* name = "hostile.sq") const {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return file.fileName();
    }
    static void expectCheap(const QString& file) {
        const Cost cost = costOfLoading(file);
        EXPECT_LE(cost.milliseconds, maxMilliseconds);
        EXPECT_LE(cost.kilobytes, maxKilobytes);
    }

private:
    QTemporaryDir m_folder;
};

QByteArray nested(int depth) {
    return QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth);
}

/// As many repetitions as a file may hold.
QByteArray full(const QByteArray& start, const QByteArray& unit, const QByteArray& end = {}) {
    return start + unit.repeated((maxSize - start.size() - end.size()) / unit.size()) + end;
}

/// "<a a0='' a1='' ...", `size` bytes long or a little less.
QByteArray manyAttributes(qint64 size) {
    QByteArray tag = "<a";
    for (int index = 0; tag.size() < size - 12; ++index)
        tag += " a" + QByteArray::number(index, 36) + "=''";
    return tag;
}

QByteArray utf16(const char* text) {
    QByteArray bytes;
    for (; *text; ++text)
        bytes.append(*text).append('\0');
    return bytes;
}

const char wide[] = "<?xml version='1.0' encoding='UTF-16'?><mode1_10v>0</mode1_10v>";
const QByteArray start = "<settings><mode1_10v>0</mode1_10v><timeline><point><time>5</time>"
                         "<intensity>1</intensity><color>2</color></point>";
const QByteArray next = "<point><time>6</time><intensity>1</intensity><color>2</color></point>";
const QByteArray end = "</timeline></settings>";
// Documents after reading.
const std::string untouched = std::string(defaultPoints) + defaultRest;
const std::string analog = std::string(defaultPoints) + "0:1:0/128/255 0";
const std::string first = "5/2/1 0:1:0/128/255 0"; ///< has `start`

TEST_F(HostileFiles, areReadAsFarAsTheyAreSound) {
    const struct {
        const char* name;
        QByteArray bytes;
        bool ok = false;
        std::string state = untouched;
    } cases[] = {
        {"empty file", ""},
        {"cut in a point", start + next.left(20), false, first},
        {"undeclared entity", start + "&x;" + next + end, false, first},
        {"bad UTF-8", start + "<!--\xff-->" + next + end, false, first},
        {"depth at the limit", nested(AQDataSourceReader::maxDepth), true},
        {"document type from elsewhere",
         "<!DOCTYPE settings SYSTEM '/dev/zero'>" + start + "&x;" + end, true, first},
        {"entities of entities", "<!-- > --><!DOCTYPE s [<!ENTITY a '1234567890'>"
                                 "<!ENTITY b '&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;'>"
                                 "<!ENTITY c '&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;'>]>"
                                 "<mode1_10v>&c;</mode1_10v>"},
        {"ISO-8859-1", "<?xml version='1.0' encoding = \"Iso-8859-1\" ?><!--\xe9-->" + start + end,
         true, first},
        {"UTF-16 without a mark", utf16(wide)},
        {"UTF-16", "\xff\xfe" + utf16(wide), true, analog},
        {"UTF-8 with a mark",
         "\xef\xbb\xbf<?xml version='1.0' encoding='ISO-8859-1'?><mode1_10v>\r\n0\r\n</mode1_10v>",
         true, analog},
        {"attributes", manyAttributes(maxSize) + "/>"},
        {"tags at the limit", full("<r>", manyAttributes(GuardedXml::maxTagLength) + "/>", "</r>"),
         true},
        {"one attribute", full("<a b='", "&lt;", "'/>")},
        {"a point for each minute", "<timeline>" + next.repeated(1440) + "</timeline>", true,
         QByteArray("6/2/1 ").repeated(1440).toStdString() + defaultRest},
        {"largest file", start + end + QByteArray(maxSize - (start + end).size(), ' '), true,
         first},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        const QString file = put(test.bytes);
        ReaderFixture f;
        EXPECT_EQ(f.reader.loadFromFile(file), test.ok) << f.reader.errorString().toStdString();
        EXPECT_EQ(f.reader.errorString().isEmpty(), test.ok);
        EXPECT_EQ(f.points() + f.rest(), test.state);
        EXPECT_EQ(f.log.take().back(), "dataLoaded from AQDataSourceReader");
        expectCheap(file);
    }
}

TEST_F(HostileFiles, areRefusedWhenTheyAreNoSmallFile) {
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("fifo")).constData(), 0600), 0);
    ASSERT_EQ(::symlink("loop", QFile::encodeName(path("loop")).constData()), 0);
    for (const QString& file :
         {path("missing"), path("fifo"), path("loop"), path("."),
          put(start + end + QByteArray(maxSize + 1 - (start + end).size(), ' ')),
          put(start + next.repeated(1440) + end, "points.sq"), QString(),
          QStringLiteral("/dev/zero"), QStringLiteral("/dev/tty")}) {
        SCOPED_TRACE(file.toStdString());
        ReaderFixture f;
        EXPECT_FALSE(f.reader.loadFromFile(file));
        EXPECT_FALSE(f.reader.errorString().isEmpty());
        EXPECT_EQ(f.points() + f.rest(), untouched);
        EXPECT_TRUE(f.log.take().empty());
        expectCheap(file);
    }
}

} // namespace
