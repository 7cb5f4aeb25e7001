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
        std::vector<AQTimePoint> points;
        for (const int minute : minutes)
            points.push_back({.time = AQTime::fromMinuteOfDay(minute)});
        sequence.replacePoints(points);
    }
    Minutes minutes() const {
        Minutes result;
        for (const AQTimePoint& point : sequence.points())
            result.push_back(point.time.minuteOfDay());
        return result;
    }
};

TEST(AQSequence, insertsAtAFreeMinute) {
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
        {"no minute between", {600, 601}, 0, 2, 1439},
        {"last minutes taken", {600, 1437, 1438, 1439}, 3, 1, 1436},
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
        EXPECT_EQ(document.log.take(),
                  (Lines{"dataDirty from AQDataSource", "dataChanged from QObject"}));
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
        {"before the first", 1, {7, 0}, 0, {420, 480, 720}, {"dataChanged"}},
        {"behind the last", 0, {13, 0}, 2, {600, 720, 780}, {"dataChanged"}},
        {"the next one's minute", 0, {10, 0}, 0, {600, 600, 720}, {"dataChanged"}},
        {"the previous one's minute", 2, {10, 0}, 1, {480, 600, 600}, {"dataChanged"}},
        {"no such time", 1, {24, 0}, -1, {480, 600, 720}, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Document document({480, 600, 720});
        EXPECT_EQ(document.sequence.setTime(c.row, c.time, &document.view), c.result);
        EXPECT_EQ(document.minutes(), c.after);
        Lines expected;
        if (!c.posted.empty())
            expected = {"dataDirty from AQDataSource", c.posted[0] + " from QObject"};
        EXPECT_EQ(document.log.take(), expected);
    }
}

TEST(AQSelection, staysWithItsPoint) {
    Document document({480, 600, 720});
    AQSequence& sequence = document.sequence;
    AQSelection& selection = document.source.selection();
    document.source.setIsDirty(true);
    const AQPointId eight = sequence.idAt(0);
    selection.select(eight, nullptr);
    document.log.take();
    sequence.setTime(1, {7, 0}, &document.view);
    EXPECT_EQ(selection.id(), eight);
    EXPECT_EQ(document.log.take(),
              (Lines{"dataChanged from QObject", "sectionChanged 1 from QObject"}));

    // What was there comes back with its id, and what is new gets one that nothing had.
    const auto before = sequence.points();
    sequence.deleteWithRow(2, nullptr);
    const AQPointId added = sequence.idAt(sequence.addNewAfter(1, nullptr));
    for (const AQTimePoint& point : before)
        EXPECT_NE(point.id, added);
    sequence.replacePoints(before);
    EXPECT_EQ(sequence.rowOf(eight), 1);
    EXPECT_EQ(sequence.rowOf(added), -1);
}

TEST(AQSelection, deletingWhatWasAddedGoesBackTheWayItCame) {
    const struct {
        const char* name;
        int first;
        bool selectsByHand;        ///< the second one, between adding and deleting
        std::vector<int> selected; ///< the row after each deletion
    } cases[] = {{"from a point", 1, false, {2, 1, 1, 1}},
                 {"from nothing", -1, false, {4, -1}},
                 {"by hand to the same place", 0, true, {1, 1, 1, 1}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Document document({480, 600, 720, 840});
        AQSelection& selection = document.source.selection();
        const auto add = [&] {
            const int row = document.sequence.addNewAfter(selection.row(), nullptr);
            selection.selectAdded(document.sequence.idAt(row), nullptr);
        };
        document.sequence.notifySelectionChange(c.first, nullptr);
        add();
        add();
        if (c.selectsByHand)
            document.sequence.notifySelectionChange(1, nullptr);
        for (const int row : c.selected) {
            document.sequence.deleteWithRow(selection.row(), nullptr);
            EXPECT_EQ(selection.row(), row);
        }
    }
}

TEST(AQSequence, hasSpaceUpToTheLimitOfTheController) {
    Document document(Minutes(20, 0));
    EXPECT_FALSE(document.sequence.hasSpace());
    document.device = DeviceInfo{{}, 0, 0, 2, 21};
    EXPECT_TRUE(document.sequence.hasSpace());
    document.sequence.addNewAfter(-1, nullptr);
    EXPECT_FALSE(document.sequence.hasSpace());
    document.sequence.replacePoints(std::vector<AQTimePoint>(19));
    document.device = DeviceInfo{{1, 4}, 17, 5, {}, {}};
    EXPECT_TRUE(document.sequence.hasSpace()) << "the controller has not told its limit yet";
    document.device->maxPointsInSeq = 255;
    EXPECT_EQ(document.sequence.pointLimit(), 84) << "what fits into a message";
    document.device->maxPointsInSeq = 0;
    EXPECT_FALSE(document.sequence.hasSpace());
}

TEST(AQTimePoint, fractionsAsBytes) {
    const std::pair<double, int> cases[] = {{-0.5, 0},        {0.4999 / 255, 0}, {0.5 / 255, 1},
                                            {0.5, 128},       {0.922, 235},      {7.0, 255},
                                            {std::nan(""), 0}};
    for (const auto& [fraction, byte] : cases)
        EXPECT_EQ(byteFromFraction(fraction), byte) << fraction;
    for (int byte = 0; byte <= 255; ++byte)
        EXPECT_EQ(byteFromFraction(fractionFromByte(static_cast<std::uint8_t>(byte))), byte);
}

} // namespace
