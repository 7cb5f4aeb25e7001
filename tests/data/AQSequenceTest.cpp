#include "data/AQSequence.h"
#include "data/AQDataSource.h"
#include "data/NotificationLog.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using Minutes = std::vector<int>;
using Lines = std::vector<std::string>;

struct Document {
    NotificationCenter center;
    std::optional<DeviceInfo> device;
    AQDataSource source{center, [this] { return device; }};
    AQSequence& sequence = source.sequence();
    NotificationLog log{center};
    QObject view;

    explicit Document(const Minutes& minutes) {
        log.name(source, "document");
        log.name(view, "view");
        sequence.replacePoints({});
        for (const int minute : minutes)
            sequence.appendPoint({.time = AQTime::fromMinuteOfDay(minute)});
    }
    Minutes minutes() const {
        Minutes result;
        for (const AQTimePoint& point : sequence.points())
            result.push_back(point.time.minuteOfDay());
        return result;
    }
};

TEST(AQSequence, insertsAtAFreeMinute) {
    Minutes everyMinute(1440);
    for (int minute = 0; minute < 1440; ++minute)
        everyMinute[static_cast<std::size_t>(minute)] = minute;
    const struct {
        const char* name;
        Minutes before;
        int row;
        int newRow;
        int newMinute;
    } cases[] = {
        {"empty", {}, -1, 0, 0},
        {"half way", {600, 720}, 0, 1, 660},
        {"half way is rounded up", {600, 603}, 0, 1, 602},
        {"one free minute", {600, 602}, 0, 1, 601},
        {"no free minute after the row", {510, 511}, 0, 2, 1439},
        {"equal minutes after the row", {510, 510}, 0, 2, 1439},
        {"last row", {600, 700}, 1, 2, 1439},
        {"no row", {600, 700}, -1, 2, 1439},
        {"last minute taken", {600, 1439}, 1, 1, 1438},
        {"last minutes taken", {600, 1437, 1438, 1439}, 3, 1, 1436},
        {"gap before the taken ones", {1437, 1439}, 1, 1, 1438},
        {"every minute taken", everyMinute, 1439, 0, 1439},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Document document(c.before);
        ASSERT_EQ(document.sequence.addNewAfter(c.row, &document.view), c.newRow);
        Minutes after = c.before;
        after.insert(after.begin() + c.newRow, c.newMinute);
        EXPECT_EQ(document.minutes(), after);
        EXPECT_EQ(document.sequence.at(c.newRow),
                  (AQTimePoint{{c.newMinute / 60, c.newMinute % 60, 0}, 0.5, 0.5}));
        EXPECT_EQ(document.log.take(), (Lines{"dataDirty from document", "dataChanged from view"}));
    }
}

TEST(AQSequence, keepsTheOrderWhenATimeIsSet) {
    const struct {
        const char* name;
        int row;
        AQTime time;
        int result;
        Minutes after;
        Lines posted;
    } cases[] = {
        {"between the neighbours", 1, {9, 59, 58}, -1, {480, 599, 720}, {"cellChanged 1 0"}},
        {"last row to the end", 2, {23, 59}, -1, {480, 600, 1439}, {"cellChanged 2 0"}},
        {"before the first", 1, {7, 0}, 0, {420, 480, 720}, {"dataChanged"}},
        {"behind the last", 0, {13, 0}, 2, {600, 720, 780}, {"dataChanged"}},
        {"last row to the front", 2, {1, 0}, 0, {60, 480, 600}, {"dataChanged"}},
        {"the next one's minute", 0, {10, 0}, 0, {600, 600, 720}, {"dataChanged"}},
        {"the previous one's minute", 2, {10, 0}, 1, {480, 600, 600}, {"dataChanged"}},
        {"no such row", 3, {1, 0}, -1, {480, 600, 720}, {}},
        {"negative row", -1, {1, 0}, -1, {480, 600, 720}, {}},
        {"no such time", 1, {24, 0}, -1, {480, 600, 720}, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Document document({480, 600, 720});
        EXPECT_EQ(document.sequence.setTime(c.row, c.time, &document.view), c.result);
        EXPECT_EQ(document.minutes(), c.after);
        Lines expected;
        if (!c.posted.empty())
            expected = {"dataDirty from document", c.posted[0] + " from view"};
        EXPECT_EQ(document.log.take(), expected);
    }
}

TEST(AQSequence, movesTheWholePointWithItsTime) {
    Document document({480, 600, 720});
    document.sequence.updateWithRow(0, AQSequence::ColorTemp{0.25}, nullptr);
    document.sequence.setTime(0, {11, 0, 30}, nullptr);
    EXPECT_EQ(document.sequence.at(1), (AQTimePoint{{11, 0, 30}, 0.25, 0.5}));
}

TEST(AQSequence, announcesValues) {
    Document document({480, 600});
    document.sequence.updateWithRow(1, AQSequence::Brightness{0.75}, &document.view);
    EXPECT_EQ(document.log.take(), (Lines{"dataDirty from document", "cellChanged 1 1 from view",
                                          "cellChanged 1 2 from view"}));
    document.sequence.updateWithRow(1, AQSequence::ColorTemp{0.125}, nullptr);
    EXPECT_EQ(document.log.take(), (Lines{"cellChanged 1 1 from nobody"}));
    EXPECT_EQ(document.sequence.at(1), (AQTimePoint{{10, 0}, 0.125, 0.75}));

    document.source.setIsDirty(false);
    document.log.take();
    document.sequence.notifySelectionChange(1, &document.view);
    document.sequence.notifyDataChange(&document.view, false);
    EXPECT_EQ(document.log.take(), (Lines{"sectionChanged 1 from view", "dataChanged from view"}));
    EXPECT_FALSE(document.source.isDirty());
}

TEST(AQSequence, ignoresRowsOutOfRange) {
    for (const int row : {-1, 2, 1000}) {
        Document document({480, 600});
        const auto before = document.sequence.points();
        document.sequence.updateWithRow(row, AQSequence::ColorTemp{0.1}, nullptr);
        document.sequence.updateWithRow(row, AQSequence::Brightness{0.1}, nullptr);
        document.sequence.deleteWithRow(row, nullptr);
        EXPECT_EQ(document.sequence.points(), before);
        EXPECT_EQ(document.log.take(), Lines{});
    }
}

TEST(AQSequence, hasSpaceUpToTheLimitOfTheController) {
    Document document(Minutes(19, 0));
    EXPECT_TRUE(document.sequence.hasSpace());
    document.sequence.addNewAfter(-1, nullptr);
    EXPECT_FALSE(document.sequence.hasSpace());
    document.device = DeviceInfo{{}, 0, 0, 2, 21};
    EXPECT_TRUE(document.sequence.hasSpace());
    document.sequence.addNewAfter(-1, nullptr);
    EXPECT_FALSE(document.sequence.hasSpace());
    document.sequence.addNewAfter(-1, nullptr);
    EXPECT_EQ(document.sequence.count(), 22);
}

TEST(AQSequence, findsAnotherPointOfTheSameMinute) {
    const Document document({480, 600});
    EXPECT_TRUE(document.sequence.hasPointAt({10, 0, 59}, 0));
    EXPECT_FALSE(document.sequence.hasPointAt({10, 0}, 1));
}

TEST(AQDataSource, loadsTheDefaultsAloud) {
    for (const bool dirty : {false, true}) {
        Document document({480});
        document.source.setTaskLight({{1, 2, 3}, 0.1, 0.2});
        document.source.setIsProgramMode(false);
        EXPECT_EQ(document.log.take(), Lines{});
        document.source.setIsDirty(dirty);
        document.log.take();

        document.source.loadDefaults();
        EXPECT_EQ(document.log.take(),
                  (Lines{"sectionChanged -1 from document", "dataChanged from document",
                         "dataLoaded from document"}));
        EXPECT_EQ(document.sequence.count(), 7);
        EXPECT_EQ(document.source.taskLight().time, (AQTime{0, 1, 0}));
        EXPECT_TRUE(document.source.isProgramMode());
        EXPECT_EQ(document.source.isDirty(), dirty);
    }
}

TEST(AQTimePoint, fractionsAsBytes) {
    const struct {
        double fraction;
        int byte;
    } cases[] = {{-0.5, 0},    {0.0, 0},   {0.4999 / 255, 0}, {0.5 / 255, 1}, {0.5, 128},
                 {0.565, 144}, {0.8, 204}, {0.15, 38},        {0.922, 235},   {254.4 / 255, 254},
                 {1.0, 255},   {7.0, 255}, {std::nan(""), 0}};
    for (const auto& c : cases)
        EXPECT_EQ(byteFromFraction(c.fraction), c.byte) << c.fraction;
    for (int byte = 0; byte <= 255; ++byte)
        EXPECT_EQ(byteFromFraction(fractionFromByte(static_cast<std::uint8_t>(byte))), byte);
}

} // namespace
