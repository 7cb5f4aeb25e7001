#include "workflows/ControlStates.h"

#include <gtest/gtest.h>

namespace {

struct Row {
    WindowState state;
    bool transfer;
    bool live;
    bool demo;
    bool deviceTime;
    bool editing;
};

TEST(ControlStates, areAFunctionOfTheState) {
    const Row rows[] = {
        // connected, program mode, demo     transfer live   demo   time   editing
        {{false, true, false}, false, false, false, false, true},
        {{false, false, false}, false, false, false, false, false},
        {{false, true, true}, false, false, false, false, true},
        {{true, true, false}, true, true, true, true, true},
        {{true, false, false}, true, true, true, true, false},
        {{true, true, true}, true, false, true, true, true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message()
                     << row.state.isConnected << row.state.isProgramMode << row.state.isDemo);
        EXPECT_EQ(ControlStates::load(row.state).isEnabled, row.transfer);
        EXPECT_EQ(ControlStates::send(row.state).isEnabled, row.transfer);
        EXPECT_EQ(ControlStates::live(row.state).isEnabled, row.live);
        EXPECT_EQ(ControlStates::demo(row.state).isEnabled, row.demo);
        EXPECT_EQ(ControlStates::deviceTime(row.state).isEnabled, row.deviceTime);
        EXPECT_EQ(ControlStates::editing(row.state).isEnabled, row.editing);
        for (const auto& control :
             {ControlStates::load(row.state), ControlStates::live(row.state),
              ControlStates::demo(row.state), ControlStates::editing(row.state)})
            EXPECT_TRUE(control.isEnabled || !control.toolTip.isEmpty()) << "disabled unexplained";
    }
}

} // namespace
