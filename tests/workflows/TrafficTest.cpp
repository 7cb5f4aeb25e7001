#include "SimulatedProgram.h"
#include "workflows/ScriptedPrompts.h"

#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>

namespace {

using namespace std::chrono_literals;

using Frames = std::vector<std::string>;

/// Every byte that the program puts on the line, in frames: that is all it asks of a controller.
class TrafficTest : public testing::Test {
protected:
    using Program = SimulatedProgram<ScriptedPrompts>;

    static Frames received(const Program& program, std::size_t from = 0) {
        Frames frames;
        for (const WireEvent& event : program.log.events()) {
            if (event.kind != WireEvent::Kind::Received)
                continue;
            std::ostringstream frame;
            frame << std::hex << std::setfill('0');
            for (const std::uint8_t byte : event.bytes)
                frame << std::setw(2) << int(byte);
            frames.push_back(frame.str());
        }
        frames.erase(frames.begin(),
                     frames.begin() + std::ptrdiff_t(std::min(from, frames.size())));
        return frames;
    }

    /// What connecting, loading and sending put on the line, one after the other.
    static std::array<Frames, 3> run(int channels) {
        Program program({.scan = 20ms, .answer = 10s, .arrival = 1ms});
        program.start();
        program.connect({.channels = channels});
        // Whatever else it might ask for has the time to go out.
        runUntil([] { return false; }, 100ms);
        const Frames connecting = received(program);

        program.ui().bttnLoad->click();
        EXPECT_TRUE(runUntil([&] { return program.data.sequence().count() == 4; }));
        const Frames loading = received(program, connecting.size());

        program.data.loadDefaults();
        program.prompts.confirmations = {true};
        program.ui().bttnSend->click();
        EXPECT_TRUE(runUntil([&] { return !program.prompts.told.isEmpty(); }));
        runUntil([] { return false; }, 50ms);
        return {connecting, loading, received(program, connecting.size() + loading.size())};
    }
};

TEST_F(TrafficTest, isThisAndNothingElse) {
    struct Case {
        int channels;
        Frames loading;
        Frames sending; ///< the default program
    };
    const Case cases[] = {
        {2,
         {"59320032", "592e01002f", "592e01012e"},
         {"592c1600081e000a00f60f00fe1400f61500e5161eb8171e008a",
          "592c1601081e000a00f10f00fe1400f11500a2161e00171e0074", "5932040100fefe37"}},
        {4,
         {"59320032", "592e01002f", "592e01012e", "592e01022d", "592e01032c"},
         {"592c1600081e7f0a00f60f00fe1400f61500e5161eb8171e00f5",
          "592c1601081efe0a00f10f00fe1400f11500a2161e00171e008a",
          "592c1602081eff0a00900f00801400901500eb161eff171effbf",
          "592c1603081e000a00cc0f00ff1400cc150080161e26171e0073", "5932040100fefe37"}}};
    for (const Case& test : cases) {
        const auto [connecting, loading, sending] = run(test.channels);
        EXPECT_EQ(connecting, (Frames{"59010001", "592e002e"})) << "version and format alone";
        EXPECT_EQ(loading, test.loading);
        EXPECT_EQ(sending, test.sending);
    }
}

} // namespace
