#include "faults/FaultMoments.h"
#include "faults/FaultProgram.h"

#include <gtest/gtest.h>

#include <QMessageBox>

#include <sstream>
#include <string_view>

namespace {

using namespace std::chrono_literals;

/// What must follow.
enum class Outcome {
    Untouched,   ///< nothing is missed: the link goes on and nothing is sent again
    Repeated,    ///< something is sent again until it is answered; the link goes on
    GoesOn,      ///< the link goes on, with or without anything sent again
    Closed,      ///< told once; found again by itself
    ClosedTwice, ///< and once more on the next opening
    Removed,     ///< told once as a pulled cable; found again by itself
    Unopened,    ///< told once; only the person's own choice of the port opens it again
};

struct Row {
    const char* faults; ///< those of the answers, in the simulator's own words
    Outcome outcome;
};

// The answer may take 40 ms here, in reality 200: 39, 41 and 80 stand for 199, 201 and 400.
constexpr Row rows[] = {
    {"silence@1", Outcome::Repeated},
    {"silence@1..4", Outcome::Repeated},
    {"silence@1..5", Outcome::Closed},
    {"silence@1..6", Outcome::ClosedTwice},
    {"deaf@1", Outcome::Repeated},
    {"delay=39", Outcome::Untouched},
    {"delay=41", Outcome::GoesOn},
    {"delay=80", Outcome::GoesOn},
    {"wrong-number=33@1", Outcome::Repeated},
    {"wrong-number=41", Outcome::Closed},
    {"wrong-checksum@1", Outcome::Repeated},
    {"wrong-checksum", Outcome::Closed},
    {"length=0@1", Outcome::Repeated},
    {"length=1@1", Outcome::Repeated},
    {"length=12@1", Outcome::Repeated},
    {"length=255@1", Outcome::Closed},
    {"length=255", Outcome::Closed},
    {"shorter=2@1", Outcome::GoesOn},
    {"longer=1", Outcome::Untouched},
    {"noise-before", Outcome::Untouched},
    {"noise-inside@1", Outcome::Repeated},
    {"noise-inside", Outcome::Closed},
    {"noise-after", Outcome::Untouched},
    {"false-start=20@1", Outcome::Repeated},
    {"split=1@1 split=2@2 split=3@3", Outcome::Untouched},
    {"split=4@1 split=5@2 split=6@3", Outcome::Untouched},
    {"dribble=1", Outcome::Untouched},
    {"twice", Outcome::Untouched},
    {"twice#44@1 deaf#44@2", Outcome::GoesOn}, // storing the first channel, then the second
    {"twice#46@1 deaf#46@2", Outcome::GoesOn}, // the same for reading
    {"unasked=43", Outcome::Untouched},
    {"flood=2000", Outcome::Untouched},
    {"echo", Outcome::Untouched},
    {"modem-noise", Outcome::Untouched},
    {"reset=60@1", Outcome::Repeated},
    {"reset=60000@1", Outcome::Closed}, // until it is well again
    {"unplug=60@1", Outcome::Removed},
};

using Param = std::tuple<FaultMoment, Row>;

Outcome expectedOutcome(const FaultMoment& moment, const Row& row) {
    // The answer about the format is told from another one by its length.
    const bool isUnfit =
        moment.name == std::string_view("opening") && row.faults == std::string_view("longer=1");
    return isUnfit ? Outcome::Unopened : row.outcome;
}

bool goesOn(Outcome outcome) {
    return outcome <= Outcome::GoesOn;
}

QStringList expectedAlerts(Outcome outcome) {
    const char* reason = outcome == Outcome::Removed    ? "port was removed"
                         : outcome == Outcome::Unopened ? "timeout while trying to open device"
                                                        : "too many timeouts while trying to send";
    const int count = goesOn(outcome) ? 0 : outcome == Outcome::ClosedTwice ? 2 : 1;
    return QStringList(
        count, QStringLiteral("Device Error!|Error: port closed: %1.").arg(QLatin1String(reason)));
}

std::vector<Fault> parse(const char* text) {
    std::vector<Fault> faults;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        std::string error;
        const auto fault = Fault::parse(word, &error);
        EXPECT_TRUE(fault) << error;
        faults.push_back(fault.value_or(Fault{}));
    }
    return faults;
}

#ifdef __SANITIZE_ADDRESS__
constexpr int slowness = 3;
#else
constexpr int slowness = 1;
#endif
/// Longest time in which the window may not react.
constexpr auto longestHold = 100ms * slowness;
/// An idle program wakes for its timers alone, some 20 times a second each; one that runs in
/// circles wakes thousands of times.
constexpr auto idleWindow = 30ms;
constexpr int idleTurns = 200;

class FaultMatrix : public testing::TestWithParam<Param> {
protected:
    /// What a load and a send without faults leave in document and controller.
    struct Reference {
        AQDataSource::Contents loaded;
        std::vector<std::vector<SequenceEntry>> stored;
        TaskLight taskLight;
    };

    static void SetUpTestSuite() {
        // Also the first showing of each kind of window, which takes longer than all later ones.
        for (const FaultMoment& moment : faultMoments) {
            FaultProgram program;
            program.start();
            program.connect();
            if (!moment.beginsConnected)
                continue;
            moment.begin(program, {});
            ASSERT_TRUE(runUntil([&] { return moment.isDone(program); })) << moment.name;
            if (moment.name == std::string_view("loading"))
                reference.loaded = program.data.contents();
            if (moment.name == std::string_view("sending")) {
                reference.stored = program.device.state().sequence;
                reference.taskLight = program.device.state().taskLight;
            }
        }
    }

    void strike() {
        program.start();
        if (moment.beginsConnected)
            program.connect();
        for (const Fault& fault : faults)
            program.faults.add(fault);
        program.watch.restart();
        moment.begin(program, faults);
        before = program.data.contents();
    }

    void expectQuiet() {
        EXPECT_LT(program.watch.turnsDuring(idleWindow), idleTurns);
        EXPECT_LT(program.watch.longestHold(), longestHold);
        EXPECT_LE(FaultProgram::modalWindowCount(), 1);
    }

    std::string told() const { return program.prompts.alerts.join(u'\n').toStdString(); }

    void expectDocument() {
        const bool isLoaded = goesOn(outcome) && moment.name == std::string_view("loading");
        EXPECT_EQ(program.data.contents(), isLoaded ? reference.loaded : before);
    }

    void expectSuccessIsTrue() {
        if (moment.name != std::string_view("sending"))
            return;
        EXPECT_EQ(program.device.state().sequence, reference.stored);
        EXPECT_EQ(program.device.state().taskLight, reference.taskLight);
    }

    void expectRepeats() {
        if (outcome == Outcome::Untouched) {
            EXPECT_EQ(program.repeats(), 0);
        } else if (outcome == Outcome::Repeated) {
            EXPECT_GT(program.repeats(), 0);
        }
    }

    /// The person reads what is told, once the controller is well again, and the link comes back.
    void recover() {
        program.faults.clear();
        if (!goesOn(outcome) && faults.front().kind == Fault::Kind::Reset)
            program.ports.device("ttyUSB0")->line->reset(0ms);
        if (moment.isResumed && !goesOn(outcome))
            program.device.reset(); // so that it must be taken up again
        while (RecordingDialogs::press(QMessageBox::Ok)) {
        }
        if (outcome == Outcome::Unopened)
            program.controller.openWithPath("/dev/ttyUSB0");
        EXPECT_TRUE(runUntil([&] { return program.isConnected(); }));
        EXPECT_TRUE(program.linkWorks());
        if (moment.isResumed) {
            EXPECT_TRUE(runUntil([&] { return moment.isDone(program); }));
        }
    }

    void TearDown() override {
        if (!HasFailure())
            return;
        for (const WireEvent& event : program.log.events())
            std::fprintf(stderr, "%s\n", event.toLine().c_str());
    }

    const FaultMoment moment = std::get<0>(GetParam());
    const std::vector<Fault> faults = parse(std::get<1>(GetParam()).faults);
    const Outcome outcome = expectedOutcome(moment, std::get<1>(GetParam()));
    static inline Reference reference;
    FaultProgram program;
    AQDataSource::Contents before;
};

TEST_P(FaultMatrix, endsAsItMust) {
    strike();
    QStringList alerts = expectedAlerts(outcome);
    for (qsizetype count = 1; count <= alerts.size(); ++count) {
        if (count > 1)
            RecordingDialogs::press(QMessageBox::Ok);
        ASSERT_TRUE(runUntil([&] { return program.prompts.alerts.size() >= count; }));
        expectQuiet();
    }
    if (goesOn(outcome)) {
        ASSERT_TRUE(runUntil([&] { return moment.isDone(program); }));
        EXPECT_TRUE(program.linkWorks());
        expectQuiet();
        expectSuccessIsTrue();
        expectRepeats();
        if (moment.name == std::string_view("sending"))
            alerts << QStringLiteral("Upload was successfull!|Your settings have been applied to "
                                     "the device.");
    }
    EXPECT_EQ(program.isConnected(), goesOn(outcome));
    EXPECT_EQ(told(), qPrintable(alerts.join(u'\n')));
    expectDocument();
    recover();
    EXPECT_EQ(told(), qPrintable(alerts.join(u'\n'))) << "after the recovery";
}

std::string nameOf(const testing::TestParamInfo<Param>& info) {
    std::string name =
        std::string(std::get<0>(info.param).name) + "_" + std::get<1>(info.param).faults;
    std::ranges::replace_if(
        name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); }, '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Link, FaultMatrix,
                         testing::Combine(testing::ValuesIn(faultMoments), testing::ValuesIn(rows)),
                         nameOf);

} // namespace

void PrintTo(const AQDataSource::Contents& contents, std::ostream* out) {
    *out << contents.points.size() << " points";
}
