#include "data/History.h"
#include "data/AQDataSource.h"
#include "data/NotificationLog.h"
#include "data/PointColumn.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

struct Document {
    NotificationCenter center;
    AQDataSource source{center};
    AQSequence& sequence = source.sequence();
    History& history = source.history();
    const DocumentContents begin = source.contents();

    void dim(int row, double brightness) {
        sequence.updateWithRow(row, AQSequence::Brightness{brightness}, nullptr);
    }
    AQPointId select(int row) {
        source.selection().select(sequence.idAt(row), nullptr);
        return sequence.idAt(row);
    }
    void switchMode() {
        source.setIsProgramMode(!source.isProgramMode());
        source.noteStep();
    }
};

TEST(History, oneStepIsOneGesture) {
    Document d;
    d.dim(0, 0.9);
    d.dim(0, 0.8);
    d.dim(1, 0.7);                                                    // another point
    d.sequence.updateWithRow(1, AQSequence::ColorTemp{0.1}, nullptr); // another value
    d.history.endStep();
    d.sequence.updateWithRow(1, AQSequence::ColorTemp{0.2}, nullptr);
    d.history.undo();
    EXPECT_EQ(d.history.count(), 4);
    EXPECT_EQ(d.sequence.at(1).colorTemp, 0.1);

    // A gesture that is taken back, or that ends where it began, leaves the way forward.
    for (const bool isCancelled : {true, false}) {
        const auto before = d.source.contents();
        d.history.beginGesture();
        d.dim(1, 0.3);
        d.history.endStep();
        d.dim(1, 0.4);
        EXPECT_EQ(d.history.undoName(), QLatin1String("Intensity at 10:00"));
        if (!isCancelled)
            d.dim(1, before.points[1].brightness);
        isCancelled ? d.history.cancelGesture() : d.history.endGesture();
        EXPECT_EQ(d.source.contents(), before);
        EXPECT_TRUE(d.history.canRedo());
    }

    // What is done in the middle of a gesture is a step of its own, and the hand must let go.
    int interruptions = 0;
    QObject::connect(&d.history, &History::gestureInterrupted, &d.source, [&] { ++interruptions; });
    d.history.beginGesture();
    d.dim(1, 0.3);
    d.sequence.deleteWithRow(4, nullptr);
    EXPECT_FALSE(d.history.isInGesture());
    EXPECT_EQ(interruptions, 1);
    d.history.undo();
    EXPECT_EQ(d.sequence.at(1).brightness, 0.3);
    d.history.beginGesture();
    d.dim(1, 0.2);
    d.history.undo();
    EXPECT_EQ(d.sequence.at(1).brightness, 0.3);
    EXPECT_EQ(interruptions, 2);

    while (d.history.canUndo())
        d.history.undo();
    EXPECT_EQ(d.source.contents(), d.begin);
    EXPECT_FALSE(d.source.isDirty());
}

TEST(History, comesBackToWhatEachStepChanged) {
    const struct {
        const char* name;
        std::function<void(Document&)> change;
        int undoneRow; ///< selected after undo; row 1 was selected before
        int redoneRow;
        std::vector<std::string> undone; ///< what is posted, but dirtiness and selection
    } cases[] = {
        {"Intensity at 15:00", [](Document& d) { d.dim(2, 0.1); }, 2, 2, {"dataChanged"}},
        {"Colour Temperature at 15:00",
         [](Document& d) { d.sequence.updateWithRow(2, AQSequence::ColorTemp{0.3}, nullptr); },
         2,
         2,
         {"dataChanged"}},
        {"Move 08:30 to 22:00",
         [](Document& d) {
             d.sequence.setTime(0, {22, 0}, nullptr);
         },
         0,
         4,
         {"dataChanged"}},
        {"Add 12:30",
         [](Document& d) { d.sequence.addNewAfter(1, nullptr); },
         1,
         2,
         {"dataChanged"}},
        {"Delete 10:00",
         [](Document& d) { d.sequence.deleteWithRow(1, nullptr); },
         1,
         1,
         {"dataChanged"}},
        {"Task Light",
         [](Document& d) {
             d.source.setTaskLight({{0, 2, 0}, 0.1, 0.1});
             d.source.noteEdit({AQPointId::none, PointColumn::time});
         },
         1,
         1,
         {"taskLightChanged"}},
        {"Switch to Analog Input",
         [](Document& d) { d.switchMode(); },
         1,
         1,
         {"programModeChanged"}},
        {"Load from Device",
         [](Document& d) {
             d.source.setIsProgramMode(false);
             d.sequence.replacePoints({{{1, 0}, 0.5, 0.5}});
             d.source.noteStep(QStringLiteral("Load from Device"));
         },
         1,
         -1,
         {"dataChanged", "dataLoaded"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Document d;
        d.select(1);
        c.change(d);
        const auto changed = d.source.contents();
        const auto ids = [&] {
            std::vector<AQPointId> result;
            for (const AQTimePoint& point : d.sequence.points())
                result.push_back(point.id);
            return result;
        };
        const auto changedIds = ids();
        EXPECT_EQ(d.history.undoName().toStdString(), c.name);
        EXPECT_TRUE(d.source.isDirty());
        NotificationLog log(d.center);
        d.history.undo();
        std::vector<std::string> posted;
        for (const std::string& line : log.take())
            if (!line.starts_with("dataDirty") && !line.starts_with("sectionChanged"))
                posted.push_back(line.substr(0, line.find(' ')));
        EXPECT_EQ(posted, c.undone);
        EXPECT_EQ(d.source.contents(), d.begin);
        EXPECT_FALSE(d.source.isDirty());
        EXPECT_EQ(d.source.selection().row(), c.undoneRow);
        EXPECT_EQ(d.history.redoName().toStdString(), c.name);
        d.history.redo();
        EXPECT_EQ(d.source.contents(), changed);
        EXPECT_EQ(ids(), changedIds);
        EXPECT_EQ(d.source.selection().row(), c.redoneRow);
    }
}

TEST(History, knowsPointsOfTheSameValuesForOthers) {
    Document d;
    const AQPointId before = d.select(1);
    d.source.setTaskLight({{0, 2, 0}, 0.1, 0.1});
    d.sequence.replacePoints({d.begin.points[0], {{10, 0}, 0.565, 0.8}});
    d.source.noteStep(QStringLiteral("Load"));
    d.sequence.replacePoints({{{8, 30}, 1.0, 0.0}, {{10, 0}, 0.565, 0.8}}); // the same again
    d.source.noteStep();
    d.source.selection().select(AQPointId::none, nullptr);
    EXPECT_EQ(d.history.count(), 1);
    d.history.undo();
    EXPECT_EQ(d.sequence.idAt(1), before);
    EXPECT_EQ(d.source.selection().row(), 1);
    d.dim(1, 0.8); // what it is
    EXPECT_TRUE(d.history.canRedo());
    NotificationLog log(d.center);
    d.history.redo();
    EXPECT_NE(d.sequence.idAt(1), before);
    EXPECT_EQ(log.take().at(1), "dataChanged from History");
}

TEST(History, cleanIsWhatAFileOrTheControllerHolds) {
    Document d;
    d.dim(0, 0.5);
    d.source.markSaved();
    d.history.undo();
    EXPECT_TRUE(d.source.isDirty());
    d.source.markLoaded();
    d.history.redo();
    EXPECT_FALSE(d.source.isDirty());
    const auto saved = d.source.contents();
    d.history.undo();
    EXPECT_FALSE(d.source.isDirty());
    d.source.markSent(saved);
    EXPECT_TRUE(d.source.isDirty()) << "the controller has been given another program";
}

TEST(History, holdsManyStepsInLittleMemory) {
    Document d;
    const auto fill = [&](int points) {
        std::vector<AQTimePoint> program(static_cast<std::size_t>(points));
        for (int minute = 0; AQTimePoint & point : program)
            point.time = AQTime::fromMinuteOfDay(minute++);
        d.sequence.replacePoints(program);
        d.history.restart();
    };
    const auto dimTimes = [&](int steps) {
        for (int step = 1; step <= steps; ++step) {
            d.dim(step % 2, step / 10000.0);
            d.history.endStep();
        }
    };
    fill(20);
    dimTimes(10000);
    EXPECT_EQ(d.history.count(), 10000);
    EXPECT_LT(d.history.size(), 20U << 20U);

    fill(1440);
    dimTimes(1000);
    EXPECT_LT(d.history.size(), History::mostBytes);
    EXPECT_GT(d.history.count(), 300);
    const auto last = d.source.contents();
    d.history.undo();
    EXPECT_EQ(d.sequence.at(0).brightness, 998 / 10000.0);
    d.history.redo();
    EXPECT_EQ(d.source.contents(), last);
}

} // namespace
