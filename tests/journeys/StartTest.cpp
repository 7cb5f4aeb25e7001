#include "journeys/Journey.h"

#include <gtest/gtest.h>

namespace {

using Strings = std::vector<std::string>;

const Strings openSequence{"CmdGetVersion", "CmdGetSequenceDataInfo"};

TEST(Start, findsTheControllerWhenItIsPluggedIn) {
    const Journey journey(
        {QStringLiteral("--no-device"), QStringLiteral("--foreign"), QStringLiteral("--builtin")});
    EXPECT_EQ(journey.title(), "Aquelon - Untitled");
    ASSERT_TRUE(journey.waitForText("NOT CONNECTED"));
    for (const char* button : {"Load from device", "Send to device", "Run Demo"})
        EXPECT_FALSE(journey.find("push button", button).isEnabled()) << button;

    EXPECT_EQ(journey.control(QStringLiteral("plug")), QStringLiteral("ok"));
    ASSERT_TRUE(journey.waitForText("CONNECTED"));
    EXPECT_TRUE(journey.find("push button", "Send to device").isEnabled());
    EXPECT_EQ(journey.commands(), openSequence);
    EXPECT_TRUE(journey.dialogs().empty());
}

} // namespace
