#include "data/AQDataSourceReader.h"
#include "data/AQDataSource.h"
#include "data/AQDataSourceWriter.h"
#include "data/GuardedXml.h"
#include "data/NotificationLog.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include <ctime>
#include <sys/stat.h>

namespace {

using Lines = std::vector<std::string>;

struct Fixture {
    NotificationCenter center;
    AQDataSource document{center};
    AQDataSourceReader reader{document};
    NotificationLog log{center};

    Fixture() { log.name(reader, "reader"); }

    bool read(const QByteArray& bytes) { return reader.read(bytes); }
    /// "600/144/204 ...": minute, colour and intensity of each point.
    std::string points() const {
        std::string text;
        for (const AQTimePoint& point : document.sequence().points())
            text += std::to_string(point.time.minuteOfDay()) + "/" +
                    std::to_string(byteFromFraction(point.colorTemp)) + "/" +
                    std::to_string(byteFromFraction(point.brightness)) + " ";
        return text;
    }
    /// "0:01:00/128/255 1": duration, colour and intensity of the task light, then the mode.
    std::string rest() const {
        const AQTimePoint& light = document.taskLight();
        return std::to_string(light.time.hour) + ":" + std::to_string(light.time.minute) + ":" +
               std::to_string(light.time.second) + "/" +
               std::to_string(byteFromFraction(light.colorTemp)) + "/" +
               std::to_string(byteFromFraction(light.brightness)) + " " +
               (document.isProgramMode() ? "1" : "0");
    }
};

const char defaultPoints[] =
    "510/255/0 600/144/204 900/128/255 1200/144/204 1260/235/128 1350/255/38 1410/255/0 ";
const char defaultRest[] = "0:1:0/128/255 1";

QByteArray point(const QByteArray& inner) {
    return "<settings><timeline><point>" + inner + "</point></timeline></settings>";
}

QByteArray taskLight(const QByteArray& inner) {
    return "<settings><task_light_mode>" + inner + "</task_light_mode></settings>";
}

QByteArray nested(int depth) {
    return QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth);
}

TEST(AQDataSourceReader, takesWhatItUnderstands) {
    const QByteArray c = "<color>10</color>";
    const QByteArray i = "<intensity>20</intensity>";
    const struct {
        const char* name;
        QByteArray xml;
        const char* points;
        const char* rest = defaultRest;
    } cases[] = {
        {"a point", point("<time>600</time>" + i + c), "600/10/20 "},
        {"time past midnight", point("<time>1500</time>" + i + c), "60/10/20 "},
        {"huge time", point("<time>9223372036854775807</time>" + i + c), "1087/10/20 "},
        {"time too large for an integer", point("<time>9223372036854775808</time>" + i + c), ""},
        {"negative time", point("<time>-1</time>" + i + c), ""},
        {"values out of range", point("<time>1</time><color>300</color><intensity>-5</intensity>"),
         "1/255/0 "},
        {"no intensity", point("<time>1</time>" + c), ""},
        {"no colour", point("<time>1</time>" + i), ""},
        {"no time", point(c + i), ""},
        {"a value is not kept for the next point",
         "<timeline><point><time>1</time>" + c + i + "</point><point><time>2</time>" + c +
             "</point></timeline>",
         "1/10/20 "},
        {"text", point("<time>noon</time>" + i + c), ""},
        {"a fraction", point("<time>1.5</time>" + i + c), ""},
        {"hexadecimal", point("<time>0x10</time>" + i + c), ""},
        {"grouped digits", point("<time>1,000</time>" + i + c), ""},
        {"sign and white space", point("<time>\n\t +600 \r\n</time>" + i + c), "600/10/20 "},
        {"references, comments and sections",
         point("<time>1&#50;<!-- x -->3<![CDATA[4]]></time>" + i + c), "1234/10/20 "},
        {"pieces that are no number together", point("<time>12<!-- x -->a</time>" + i + c), ""},
        {"a number behind an element", point("<time>6<x>7</x>8</time>" + i + c), "8/10/20 "},
        {"case matters", point("<Time>600</Time>" + i + c), ""},
        {"a prefix is part of the name", point("<x:time>600</x:time>" + i + c), ""},
        {"attributes are ignored", point("<time unit='min' t='>'>600</time>" + i + c),
         "600/10/20 "},
        {"neither sorted nor made unique",
         "<timeline><point><time>9</time>" + c + i + "</point><point><time>3</time>" + c + i +
             "</point><point><time>9</time>" + c + i + "</point></timeline>",
         "9/10/20 3/10/20 9/10/20 "},
        {"empty timeline", "<settings><timeline/></settings>", ""},
        {"task light",
         taskLight("<nMinutes>61</nMinutes><nSeconds>75</nSeconds>"
                   "<color>1</color><intensity>2</intensity>"),
         defaultPoints, "1:1:75/1/2 1"},
        {"long task light", taskLight("<nMinutes>1445</nMinutes>"), defaultPoints,
         "0:5:0/128/255 1"},
        {"negative task light", taskLight("<nSeconds>-1</nSeconds><nMinutes>-1</nMinutes>"),
         defaultPoints},
        {"values outside their parent",
         "<settings><time>1</time><color>1</color><nMinutes>9</nMinutes></settings>",
         defaultPoints},
        {"analog mode", "<settings><mode1_10v>0</mode1_10v></settings>", defaultPoints,
         "0:1:0/128/255 0"},
        {"only 1 is program mode", "<settings><mode1_10v>2</mode1_10v></settings>", defaultPoints,
         "0:1:0/128/255 0"},
        {"a mode that is no number", "<settings><mode1_10v/></settings>", defaultPoints},
        {"other elements", "<s><firmware>1.2.3</firmware><dev_type>7</dev_type><x>1</x></s>",
         defaultPoints},
        {"64 nested elements", nested(64), defaultPoints},
        {"US-ASCII", "<?xml version='1.0' encoding='us-ascii'?><settings/>", defaultPoints},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        Fixture f;
        EXPECT_TRUE(f.read(test.xml)) << f.reader.errorString().toStdString();
        EXPECT_EQ(f.points(), test.points);
        EXPECT_EQ(f.rest(), test.rest);
        Lines posted{"dataLoaded from reader"};
        if (test.xml.contains("timeline"))
            posted = {"sectionChanged -1 from reader", "dataChanged from reader",
                      "dataLoaded from reader"};
        EXPECT_EQ(f.log.take(), posted);
        EXPECT_FALSE(f.document.isDirty());
    }
}

TEST(AQDataSourceReader, keepsWhatStoodBeforeAFault) {
    const QByteArray start = "<settings><mode1_10v>0</mode1_10v><timeline><point><time>5</time>"
                             "<intensity>1</intensity><color>2</color></point>";
    const QByteArray next = "<point><time>6</time><intensity>1</intensity><color>2</color></point>";
    const QByteArray end = "</timeline></settings>";
    const struct {
        const char* name;
        QByteArray xml;
        const char* points = "5/2/1 ";
        const char* rest = "0:1:0/128/255 0";
    } cases[] = {
        {"empty file", "", defaultPoints, defaultRest},
        {"no XML", "hello", defaultPoints, defaultRest},
        {"cut in a point", start + next.left(20)},
        {"cut in the last tag", start + next + end.chopped(1), "5/2/1 6/2/1 "},
        {"tags mixed up", start + "</settings>" + next},
        {"two roots", start + end + "<settings/>"},
        {"text behind the root", start + end + "x"},
        {"an entity nobody declared", start + "&x;" + next + end},
        {"NUL", start + QByteArray(1, '\0') + next + end},
        {"NUL behind the root", start + end + QByteArray(1, '\0')},
        {"a control character", start + "\x01" + next + end},
        {"bytes that are no UTF-8", start + "<!--\xff-->" + next + end},
        {"a character cut in two", start + end + "<!--\xc3"},
        {"an attribute twice", start + "<x a='1' a='2'/>" + next + end},
        {"long tag", start + "<x a='" + QByteArray(1024, 'a') + "'/>" + next + end},
        {"too deep", start + nested(63) + next + end},
        {"values before the fault", taskLight("<nSeconds>7</nMinutes>"), defaultPoints,
         "0:1:7/128/255 1"},
        {"document type", "<!DOCTYPE settings>" + start + end, defaultPoints, defaultRest},
        {"document type behind a comment", "<!-- > --><!DOCTYPE s [<!ENTITY x '7'>]>" + start + end,
         defaultPoints, defaultRest},
        {"UTF-7", "<?xml version='1.0' encoding='UTF-7'?>" + start + end, defaultPoints,
         defaultRest},
        {"latin 1", "<?xml version='1.0' encoding='ISO-8859-1'?>" + start + end, defaultPoints,
         defaultRest},
        {"UTF-16 that is none", "<?xml version='1.0' encoding='UTF-16'?>" + start + end,
         defaultPoints, defaultRest},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        Fixture f;
        EXPECT_FALSE(f.read(test.xml));
        EXPECT_EQ(f.points(), test.points);
        EXPECT_EQ(f.rest(), test.rest);
        Lines posted{"dataLoaded from reader"};
        if (test.points != defaultPoints)
            posted = {"sectionChanged -1 from reader", "dataChanged from reader",
                      "dataLoaded from reader"};
        EXPECT_EQ(f.log.take(), posted);
        EXPECT_FALSE(f.reader.errorString().isEmpty());

        // Nothing of the broken file is left for the next one.
        EXPECT_TRUE(f.read("<intensity>9</intensity>"));
        EXPECT_EQ(f.rest(), test.rest);
        EXPECT_EQ(f.log.take(), Lines{"dataLoaded from reader"});
        EXPECT_TRUE(f.reader.errorString().isEmpty());
    }
}

TEST(AQDataSourceReader, readsWhatTheWriterWrites) {
    Fixture f;
    f.document.sequence().appendPoint({{23, 59, 0}, 0.3, 0.7});
    f.document.setTaskLight({{2, 5, 30}, 0.0, 0.01});
    f.document.setIsProgramMode(false);
    const QByteArray text = AQDataSourceWriter(f.document).text();

    Fixture copy;
    ASSERT_TRUE(copy.read(text));
    EXPECT_EQ(copy.points(), f.points());
    EXPECT_EQ(copy.rest(), "2:5:30/0/3 0");
    EXPECT_EQ(AQDataSourceWriter(copy.document).text(), text);
}

TEST(AQDataSourceReader, readsByteOrderMarks) {
    const QString text = QStringLiteral("<?xml version='1.0' encoding='UTF-16'?>"
                                        "<settings><mode1_10v>0</mode1_10v></settings>");
    QByteArray little("\xff\xfe");
    QByteArray big("\xfe\xff");
    for (const QChar c : text) {
        little.append(static_cast<char>(c.cell())).append(static_cast<char>(c.row()));
        big.append(static_cast<char>(c.row())).append(static_cast<char>(c.cell()));
    }
    for (const QByteArray& bytes :
         {little, big, QByteArray("\xef\xbb\xbf<settings><mode1_10v>0</mode1_10v></settings>")}) {
        Fixture f;
        EXPECT_TRUE(f.read(bytes)) << f.reader.errorString().toStdString();
        EXPECT_FALSE(f.document.isProgramMode());
    }
}

/// As many repetitions as a file may hold.
QByteArray full(const QByteArray& start, const QByteArray& unit, const QByteArray& end = {}) {
    const qint64 room = AQDataSourceReader::maxFileSize - start.size() - end.size();
    return start + unit.repeated(room / unit.size()) + end;
}

TEST(AQDataSourceReader, answersHostileFilesQuickly) {
    QByteArray attributes = "<a";
    for (int index = 0; attributes.size() < AQDataSourceReader::maxFileSize - 20; ++index)
        attributes += " a" + QByteArray::number(index, 36) + "=''";
    QByteArray longestTag = "<a";
    for (int index = 0; longestTag.size() < GuardedXml::maxTagLength - 12; ++index)
        longestTag += " a" + QByteArray::number(index, 36) + "=''";
    const QByteArray files[] = {
        attributes + "/>",
        full("<r>", longestTag + "/>", "</r>"),
        full("<a b='", "&lt;", "'/>"),
        full("", "<a>"),
        full("", "<"),
        full("<r>", "<a/>", "</r>"),
        full("<r>", "1&#50;", "</r>"),
        full("<r>", "<!---->", "</r>"),
        full("<timeline>", "<point><time>1</time><color>1</color><intensity>1</intensity></point>",
             "</timeline>"),
    };
    for (const QByteArray& bytes : files) {
        SCOPED_TRACE(bytes.left(20).toStdString());
        // Files that cost seconds are looked for, sanitizers included. Processor time, since the
        // machine may be busy with something else.
        const std::clock_t start = std::clock();
        Fixture().read(bytes);
        EXPECT_LT((std::clock() - start) * 1000 / CLOCKS_PER_SEC, 600) << "milliseconds";
    }
}

TEST(AQDataSourceReader, refusesWhatIsNoSmallFile) {
    const QTemporaryDir folder;
    const auto path = [&folder](const char* name) { return folder.filePath(QLatin1String(name)); };
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("fifo")).constData(), 0600), 0);
    QFile large(path("large.sq"));
    ASSERT_TRUE(large.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
    large.write(QByteArray("<settings><timeline/></settings>")
                    .leftJustified(AQDataSourceReader::maxFileSize + 1, ' '));

    for (const QString& name : {path("missing.sq"), path("fifo"), folder.path(), large.fileName(),
                                QStringLiteral("/dev/zero"), QString()}) {
        SCOPED_TRACE(name.toStdString());
        Fixture f;
        EXPECT_FALSE(f.reader.loadFromFile(name));
        EXPECT_FALSE(f.reader.errorString().isEmpty());
        EXPECT_EQ(f.points(), defaultPoints);
        EXPECT_EQ(f.log.take(), Lines{});
    }
    Fixture f;
    large.resize(AQDataSourceReader::maxFileSize);
    EXPECT_TRUE(f.reader.loadFromFile(large.fileName())) << f.reader.errorString().toStdString();
    EXPECT_EQ(f.points(), "");
}

} // namespace
