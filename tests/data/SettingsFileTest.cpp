#include "data/AQDataSourceReader.h"
#include "data/AQDataSourceWriter.h"
#include "data/ReaderFixture.h"

#include <gtest/gtest.h>

namespace {

QByteArray point(const QByteArray& time,
                 const QByteArray& light = "<color>10</color><intensity>20</intensity>") {
    return "<timeline><point>" + time + light + "</point></timeline>";
}

QByteArray taskLight(const QByteArray& inner) {
    return "<settings><task_light_mode>" + inner + "</task_light_mode></settings>";
}

TEST(AQDataSourceReader, takesWhatItUnderstands) {
    const struct {
        const char* name;
        QByteArray xml;
        std::string points;
        const char* rest = defaultRest;
    } cases[] = {
        {"outside the timeline",
         "<point><time>1</time><color>10</color><intensity>20</intensity></point>",
         defaultPoints + std::string("1/10/20 ")},
        {"time past midnight", point("<time>1500</time>"), "60/10/20 "},
        {"negative time", point("<time>-1</time>"), ""},
        {"values out of range",
         point("<time>1</time><color>300</color><intensity>-5</intensity>", ""), "1/255/0 "},
        {"a value is not kept for the next point",
         "<r>" + point("<time>1</time>") + "<point><time>2</time><color>1</color></point></r>",
         "1/10/20 "},
        {"sign and white space", point("<time>\n\t +600 \r\n</time>"), "600/10/20 "},
        {"references, comments and sections", point("<time>1&#50;<!-- x -->3<![CDATA[4]]></time>"),
         "1234/10/20 "},
        {"a number behind an element", point("<time>6<x>7</x>8</time>"), "8/10/20 "},
        {"neither sorted nor made unique",
         point("<time>9</time>",
               "<color>1</color><intensity>2</intensity></point>"
               "<point><time>3</time><color>3</color><intensity>4</intensity></point>"
               "<point><time>9</time><color>5</color><intensity>6</intensity>"),
         "9/1/2 3/3/4 9/5/6 "},
        {"task light",
         taskLight("<nMinutes>61</nMinutes><nSeconds>75</nSeconds>"
                   "<color>1</color><intensity>2</intensity>"),
         defaultPoints, "1:1:75/1/2 1"},
        {"only 1 is program mode", "<settings><mode1_10v>2</mode1_10v></settings>", defaultPoints,
         "0:1:0/128/255 0"},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        ReaderFixture f;
        EXPECT_TRUE(f.reader.read(test.xml)) << f.reader.errorString().toStdString();
        EXPECT_EQ(f.points(), test.points);
        EXPECT_EQ(f.rest(), test.rest);
        std::vector<std::string> posted{"dataLoaded from AQDataSourceReader"};
        if (test.xml.contains("timeline") || test.xml.contains("point"))
            posted = {"sectionChanged -1 from AQDataSourceReader",
                      "dataChanged from AQDataSourceReader", "dataLoaded from AQDataSourceReader"};
        EXPECT_EQ(f.log.take(), posted);
        EXPECT_FALSE(f.document.isDirty());
    }
}

TEST(AQDataSourceWriter, writesTheFormat) {
    NotificationCenter center;
    std::optional<DeviceInfo> device;
    AQDataSource document(center, [&] { return device; });
    EXPECT_TRUE(AQDataSourceWriter(document).text().contains("<firmware>0.0.0</firmware>"));
    device = DeviceInfo{{1, 4}, 17, 5, 2, 20};
    document.setTaskLight({{1, 5, 30}, -1.0, 0.5});
    document.setIsProgramMode(false);
    document.sequence().replacePoints({{{10, 0, 0}, 0.565, 0.8}, {{23, 59, 59}, 1.5, 0.0}});
    const QByteArray text = AQDataSourceWriter(document).text();
    EXPECT_EQ(text.toStdString(), R"(<?xml version="1.0" encoding="utf-8"?>
<settings>
	<task_light_mode>
		<nMinutes>65</nMinutes>
		<nSeconds>30</nSeconds>
		<color>0</color>
		<intensity>128</intensity>
	</task_light_mode>
	<mode1_10v>0</mode1_10v>
	<firmware>1.4.17</firmware>
	<dev_type>5</dev_type>
	<timeline>
		<point>
			<time>600</time>
			<intensity>204</intensity>
			<color>144</color>
		</point>
		<point>
			<time>1439</time>
			<intensity>0</intensity>
			<color>255</color>
		</point>
	</timeline>
</settings>
)");
    ReaderFixture f;
    EXPECT_TRUE(f.reader.read(text));
    EXPECT_EQ(f.points() + f.rest(), "600/144/204 1439/255/0 1:5:30/0/128 0");
}

} // namespace
