#include "data/AQDataSourceReader.h"
#include "data/AQDataSourceWriter.h"
#include "data/ReaderFixture.h"

#include <gtest/gtest.h>

namespace {

QByteArray point(const QByteArray& inner) {
    return "<settings><timeline><point>" + inner + "</point></timeline></settings>";
}

QByteArray taskLight(const QByteArray& inner) {
    return "<settings><task_light_mode>" + inner + "</task_light_mode></settings>";
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
        {"no time", point(c + i), ""},
        {"a value is not kept for the next point",
         "<timeline><point><time>1</time>" + c + i + "</point><point><time>2</time>" + c +
             "</point></timeline>",
         "1/10/20 "},
        {"text", point("<time>noon</time>" + i + c), ""},
        {"a fraction", point("<time>1.5</time>" + i + c), ""},
        {"sign and white space", point("<time>\n\t +600 \r\n</time>" + i + c), "600/10/20 "},
        {"references, comments and sections",
         point("<time>1&#50;<!-- x -->3<![CDATA[4]]></time>" + i + c), "1234/10/20 "},
        {"pieces that are no number together", point("<time>12<!-- x -->a</time>" + i + c), ""},
        {"a number behind an element", point("<time>6<x>7</x>8</time>" + i + c), "8/10/20 "},
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
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        ReaderFixture f;
        EXPECT_TRUE(f.reader.read(test.xml)) << f.reader.errorString().toStdString();
        EXPECT_EQ(f.points(), test.points);
        EXPECT_EQ(f.rest(), test.rest);
        std::vector<std::string> posted{"dataLoaded from reader"};
        if (test.xml.contains("timeline"))
            posted = {"sectionChanged -1 from reader", "dataChanged from reader",
                      "dataLoaded from reader"};
        EXPECT_EQ(f.log.take(), posted);
        EXPECT_FALSE(f.document.isDirty());
    }
}

TEST(AQDataSourceReader, readsWhatTheWriterWrites) {
    ReaderFixture f;
    f.document.sequence().appendPoint({{23, 59, 0}, 0.3, 0.7});
    f.document.setTaskLight({{2, 5, 30}, 0.0, 0.01});
    f.document.setIsProgramMode(false);

    ReaderFixture copy;
    ASSERT_TRUE(copy.reader.read(AQDataSourceWriter(f.document).text()));
    EXPECT_EQ(copy.points(), f.points());
    EXPECT_EQ(copy.rest(), "2:5:30/0/3 0");
}

} // namespace
