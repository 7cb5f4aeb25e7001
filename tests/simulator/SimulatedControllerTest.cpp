#include "simulator/SimulatedController.h"

#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;
using Bytes = std::vector<std::uint8_t>;

/// A controller with a clock that the test turns.
struct Fixture {
    std::chrono::nanoseconds now{1h};
    SimulatedController controller;

    explicit Fixture(const ControllerConfig& config) : controller(config, [this] { return now; }) {}

    /// The answer's payload to a command sent as a frame; none when there is no answer.
    std::optional<Bytes> ask(std::uint8_t number, const Bytes& payload = {}) {
        const auto received = controller.receive(YMessage("Cmd", number, payload).frame());
        if (received.size() != 1 || !received[0].command)
            return std::nullopt;
        const auto answer = controller.execute(*received[0].command);
        if (!answer)
            return std::nullopt;
        EXPECT_EQ(answer->id(), number + 1);
        return answer->data();
    }
};

TEST(SimulatedController, answersWhatSuitsIt) {
    Fixture fixture({.factoryProgram = false});
    fixture.controller.setClock({30, 15, 8, 24, 12, 17});
    const struct {
        std::uint8_t number;
        Bytes payload;
        std::optional<Bytes> answer;
    } rows[] = {
        {1, {}, Bytes{1, 4, 17, 1}},
        {40, {}, Bytes{8, 15}},
        {42, {}, Bytes{1, 0, 0}},
        {42, {0}, Bytes{0, 0, 0}},
        {44, {1, 6, 30, 10, 20, 0, 254}, Bytes{1, 6, 30, 10, 20, 0, 254}},
        {44, {0, 6, 30, 7, 9}, Bytes{0, 6, 30, 7}},
        {46, {}, Bytes{2, 20, 3}},
        {46, {1}, Bytes{1, 6, 30, 10, 20, 0, 254}},
        {50, {}, Bytes{15, 0, 254, 254, 2}},
        {50, {5, 30, 10, 20}, Bytes{5, 30, 10, 20, 2}},
        {70, {}, Bytes{30, 15, 8, 24, 12, 17}},
        {74, {0xc0, 0xff}, Bytes{0xc0, 0xff}},
        {2, {}, std::nullopt},            // not a command
        {99, {}, std::nullopt},           // unknown
        {44, {}, std::nullopt},           // no channel
        {44, {2, 1, 1, 1}, std::nullopt}, // channel it does not have
        {46, {2}, std::nullopt},
        {48, {1, 2}, std::nullopt}, // one level missing
        {70, {1, 2, 3}, std::nullopt},
    };
    for (const auto& row : rows)
        EXPECT_EQ(fixture.ask(row.number, row.payload), row.answer) << int{row.number};
}

TEST(SimulatedController, demoModeTakesTheLampAndGivesItBack) {
    Fixture fixture({.factoryProgram = false});
    fixture.controller.setClock({0, 0, 9, 1, 6, 20});
    fixture.ask(44, {0, 8, 0, 100, 10, 0, 200});
    fixture.ask(44, {1, 0, 0, 7});
    EXPECT_EQ(fixture.ask(42), (Bytes{0x01, 150, 7})); // half way between the entries
    fixture.ask(48, {1});
    EXPECT_EQ(fixture.ask(48, {1, 11, 12}), (Bytes{0x81, 11, 12}));
    fixture.now += 59s;
    EXPECT_EQ(fixture.ask(48, {1}), (Bytes{0x81, 11, 12}));
    fixture.now += 59s;
    EXPECT_TRUE(fixture.controller.state().demoActive);
    EXPECT_EQ(fixture.ask(48, {0}), (Bytes{0x01, 152, 7}));
    fixture.ask(48, {1});
    fixture.now += 61s; // nobody keeps it alive
    EXPECT_FALSE(fixture.controller.state().demoActive);
}

} // namespace
