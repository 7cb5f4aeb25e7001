#include "data/AQDataSourceWriter.h"
#include "data/AQDataSource.h"
#include "data/NotificationLog.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

namespace {

struct Document {
    NotificationCenter center;
    std::optional<DeviceInfo> device;
    AQDataSource source{center, [this] { return device; }};
    AQDataSourceWriter writer{source};
};

TEST(AQDataSourceWriter, writesTheFormat) {
    Document document;
    document.source.sequence().replacePoints({});
    EXPECT_TRUE(document.writer.text().endsWith("\t<mode1_10v>1</mode1_10v>\n"
                                                "\t<firmware>0.0.0</firmware>\n"
                                                "\t<dev_type>0</dev_type>\n"
                                                "\t<timeline>\n"
                                                "\t</timeline>\n"
                                                "</settings>\n"));
    document.device = DeviceInfo{{1, 4}, 17, 5, 2, 20};
    document.source.setTaskLight({{1, 5, 30}, -1.0, 0.5});
    document.source.setIsProgramMode(false);
    document.source.sequence().replacePoints({{{10, 0, 0}, 0.565, 0.8}, {{23, 59, 59}, 1.5, 0.0}});
    EXPECT_EQ(document.writer.text().toStdString(),
              "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
              "<settings>\n"
              "\t<task_light_mode>\n"
              "\t\t<nMinutes>65</nMinutes>\n\t\t<nSeconds>30</nSeconds>\n"
              "\t\t<color>0</color>\n\t\t<intensity>128</intensity>\n"
              "\t</task_light_mode>\n"
              "\t<mode1_10v>0</mode1_10v>\n"
              "\t<firmware>1.4.17</firmware>\n\t<dev_type>5</dev_type>\n"
              "\t<timeline>\n"
              "\t\t<point>\n"
              "\t\t\t<time>600</time>\n\t\t\t<intensity>204</intensity>\n\t\t\t<color>144</color>\n"
              "\t\t</point>\n"
              "\t\t<point>\n"
              "\t\t\t<time>1439</time>\n\t\t\t<intensity>0</intensity>\n\t\t\t<color>255</color>\n"
              "\t\t</point>\n"
              "\t</timeline>\n"
              "</settings>\n");
}

TEST(AQDataSourceWriter, cleansTheDocument) {
    const QTemporaryDir folder;
    Document document;
    document.source.setIsDirty(true);
    NotificationLog log(document.center);
    log.name(document.source, "document");
    for (const auto& posted : {std::vector<std::string>{"dataDirty from document"}, {}}) {
        EXPECT_TRUE(document.writer.saveToFile(folder.filePath(QStringLiteral("new.sq"))));
        EXPECT_FALSE(document.source.isDirty());
        EXPECT_EQ(log.take(), posted);
    }
}

} // namespace
