#include "data/AQDataSourceReader.h"
#include "data/AQDataSourceWriter.h"
#include "data/ReaderFixture.h"

#include <gtest/gtest.h>

namespace {

const QDate first(2026, 11, 21);

TEST(Acclimation, risesInEqualStepsOfWholePercents) {
    const struct {
        int start, days;
        qint64 day; // counted from the first
        int percent;
    } cases[] = {
        {60, 28, 1, 60},   {60, 28, 2, 61},     // 61.48
        {60, 28, 9, 72},                        // 71.85
        {60, 28, 27, 99},  {60, 28, 28, 100},   // 98.52
        {60, 28, 0, 60},   {60, 28, -400, 60},  // before the first day
        {60, 28, 29, 100}, {60, 28, 900, 100},  // after the last
        {50, 5, 2, 63},    {50, 5, 4, 88},      // halves
        {1, 2, 1, 1},      {1, 2, 2, 100},      //
        {30, 100, 50, 65}, {100, 100, 50, 100}, // 64.65
    };
    for (const auto& c : cases) {
        const Acclimation acclimation{c.start, c.days, first};
        EXPECT_EQ(acclimation.percentOn(first.addDays(c.day - 1)), c.percent)
            << c.start << " in " << c.days << ", day " << c.day;
        EXPECT_EQ(acclimation.isOverOn(first.addDays(c.day - 1)), c.day > c.days);
    }
}

TEST(Acclimation, standsInTheFileBehindTheTimeline) {
    ReaderFixture f;
    const QByteArray without = AQDataSourceWriter(f.document).text();
    f.document.setAcclimation(Acclimation{60, 28, first});
    const QByteArray with = AQDataSourceWriter(f.document).text();
    QByteArray expected = without;
    expected.replace("</timeline>\n", "</timeline>\n"
                                      "\t<acclimation>\n"
                                      "\t\t<start>60</start>\n"
                                      "\t\t<days>28</days>\n"
                                      "\t\t<first_day>20261121</first_day>\n"
                                      "\t</acclimation>\n");
    EXPECT_EQ(with.toStdString(), expected.toStdString());
    EXPECT_TRUE(f.reader.read(without));
    EXPECT_EQ(f.document.acclimation(), std::nullopt);
    EXPECT_EQ(AQDataSourceWriter(f.document).text(), without);
    EXPECT_TRUE(f.reader.read(with));
    EXPECT_EQ(f.document.acclimation(), (Acclimation{60, 28, first}));
    // Without a program of its own a file takes nothing away from the one in the window.
    EXPECT_TRUE(f.reader.read("<settings/>"));
    EXPECT_TRUE(f.document.acclimation());

    const std::pair<const char*, const char*> faults[] = {
        {"<start>60</start>", ""},
        {"<start>60", "<start>0"},
        {"<start>60", "<start>101"},
        {"<start>60", "<start>some"},
        {"<days>28", "<days>1"},
        {"<days>28", "<days>101"},
        {"<days>28", "<days>4294967298"},
        {"<first_day>20261121", "<first_day>20261131"},
        {"20261121", "99999999999"},
        {"<first_day>20261121", "<first_day>-20261121"},
        {"<acclimation>", "<acclimation>7"} // not broken
    };
    for (const auto& [good, bad] : faults) {
        QByteArray text = with;
        text.replace(good, bad);
        EXPECT_TRUE(f.reader.read(text)) << bad;
        EXPECT_EQ(f.document.acclimation().has_value(), bad == std::end(faults)[-1].second) << bad;
        EXPECT_EQ(f.points(), defaultPoints) << bad;
    }
}

} // namespace
