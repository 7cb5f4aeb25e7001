#include "SimulatedProgram.h"
#include "controls/page/DayPage.h"
#include "workflows/ScriptedPrompts.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QTemporaryDir>

namespace {

using namespace std::chrono_literals;

const QString module = QStringLiteral(AQUELON_PAPER);

class ExportTest : public testing::Test, public SimulatedProgram<ScriptedPrompts> {
protected:
    explicit ExportTest(const QString& paperModule = module)
        : SimulatedProgram({.scan = 20ms, .arrival = 1ms}, {}, {}, {paperModule}) {
        start();
    }
    QString path(const char* name) const { return m_folder.filePath(QLatin1String(name)); }
    QByteArray exported(const char* name) {
        prompts.placesToSave = {path(name)};
        ui().menuitemExport->trigger();
        return read(path(name));
    }
    static QByteArray read(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static bool isModuleLoaded() {
        const QByteArray maps = read(QStringLiteral("/proc/self/maps"));
        return maps.contains("aquelon-paper.so") || maps.contains("libQt6PrintSupport");
    }

private:
    QTemporaryDir m_folder;
};

class ExportWithoutModule : public ExportTest {
protected:
    ExportWithoutModule() : ExportTest(QStringLiteral("/nowhere/aquelon-paper.so")) {}
};

TEST_F(ExportTest, writesEachKindOfFileAndLoadsWhatItNeedsFirstThen) {
    const QImage picture = QImage::fromData(exported("a.png"));
    EXPECT_EQ(picture.width(), 2 * DayPage::width);
    EXPECT_EQ(picture.pixelColor(picture.width() / 2, 10), QColor(Qt::white));
    EXPECT_TRUE(exported("a.PDF").startsWith("%PDF"));
    EXPECT_TRUE(exported("a.csv").startsWith("Time,Intensity %,Colour temperature %\r\n"
                                             "08:30,0,100\r\n10:00,80,56.5\r\n"));
    EXPECT_FALSE(isModuleLoaded());

    // The colours are one gradient of vectors and no mosaic of pictures.
    connect();
    const QByteArray svg = exported("a.svg");
    EXPECT_TRUE(svg.contains("linearGradient") && !svg.contains("<image"));
    EXPECT_TRUE(svg.contains(">Untitled<") && svg.contains("firmware 1.4.17"));
    EXPECT_TRUE(svg.contains("10.8 h of full light") && svg.contains(">22:30<"));
    EXPECT_EQ(prompts.told, QStringList());
}

TEST_F(ExportTest, saysWhatIsInTheWayAndReplacesNothingUnasked) {
    ASSERT_TRUE(QDir().mkpath(path("folder.csv")));
    for (const char* name : {"folder.csv", "missing/a.svg"}) {
        exported(name);
        EXPECT_TRUE(prompts.told.value(0).startsWith(
            QStringLiteral("Could not export!|%1 was not written: ").arg(path(name))))
            << prompts.told.value(0).toStdString();
        prompts.told.clear();
    }
    // Without a known ending the name gets that of the chosen type.
    exported("Reef 2.0");
    const QByteArray first = read(path("Reef 2.0.png"));
    EXPECT_FALSE(first.isEmpty());
    data.sequence().deleteWithRow(0, nullptr);
    prompts.confirmations = {false, true};
    exported("Reef 2.0");
    EXPECT_EQ(read(path("Reef 2.0.png")), first);
    exported("Reef 2.0");
    EXPECT_NE(read(path("Reef 2.0.png")), first);

    prompts.asked.clear();
    ui().menuitemExport->trigger(); // and cancelled
    EXPECT_EQ(prompts.asked, QStringList{QStringLiteral("export as Untitled")});
    EXPECT_EQ(prompts.told, QStringList());
}

TEST_F(ExportTest, printsOnNoPrinterThatIsNotThere) {
    qputenv("CUPS_SERVER", "/nonexistent"); // nor on the computer of who runs this
    ui().menuitemPrint->trigger();
    EXPECT_TRUE(prompts.told.value(0).startsWith(QStringLiteral("There is no printer!")));
}

TEST_F(ExportWithoutModule, saysThatItIsMissing) {
    ui().menuitemPrint->trigger();
    EXPECT_TRUE(exported("a.svg").isEmpty());
    ASSERT_EQ(prompts.told.size(), 2);
    for (const QString& told : prompts.told)
        EXPECT_TRUE(told.contains(QStringLiteral("There is no /nowhere/aquelon-paper.so")))
            << told.toStdString();
    EXPECT_FALSE(exported("a.png").isEmpty());
}

TEST(DayPage, goesOnWhereAPageIsFull) {
    const auto pages = [](int points, double height) {
        const std::vector<AQTimePoint> program(static_cast<std::size_t>(points));
        return DayPage({{}, {}, {}, program}, {}).pageCount(height);
    };
    constexpr double portrait = 1540;
    constexpr double landscape = 700;
    EXPECT_EQ(pages(0, portrait), 1);
    EXPECT_EQ(pages(84, portrait), 1) << "what a controller can hold";
    EXPECT_EQ(pages(1440, portrait), 9); // 39 and 60 rows
    EXPECT_EQ(pages(15, landscape), 1);
    EXPECT_EQ(pages(16, landscape), 2);
    EXPECT_EQ(pages(20, 10), 8) << "no room for anything";
    const QSize all = DayPage({{}, {}, {}, std::vector<AQTimePoint>(85)}, {}).size();
    EXPECT_EQ(pages(85, all.height()), 1);
    EXPECT_EQ(pages(85, all.height() - 1), 2);
}

} // namespace
