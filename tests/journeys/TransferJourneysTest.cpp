#include "journeys/Journey.h"

#include <algorithm>

namespace {

void send(const Journey& journey) {
    ASSERT_TRUE(journey.press("Send to device"));
    EXPECT_EQ(journey.dialog("The device settings will be overwritten!"),
              "Aquelon|The device settings will be overwritten!|Are you sure you want to "
              "continue?|Yes No");
    ASSERT_TRUE(journey.press("Yes"));
    EXPECT_EQ(journey.dialog("Upload was successfull!"),
              "Aquelon|Upload was successfull!|Your settings have been applied to the device.|OK");
    ASSERT_TRUE(journey.press("OK") && journey.waitForNoDialog());
}

/// How many commands were received, those that were repeated for want of an answer once.
std::ptrdiff_t distinctCommands(const Journey& journey) {
    auto events = journey.wire();
    std::erase_if(events, [](const WireEvent& e) { return e.kind != WireEvent::Kind::Received; });
    return std::ranges::unique(events, {}, &WireEvent::bytes).begin() - events.begin();
}

TEST(Transfer, keepsTheControllersProgramOverABadLineAndInAFile) {
    const Journey journey("--pace --channels 4");
    ASSERT_TRUE(journey.waitForText("CONNECTED"));
    const QJsonValue stored = journey.controller("channels");
    for (const char* fault : {"noise-before=8", "noise-inside@2..3", "dribble=1", "delay=20"})
        journey.control(std::string("fault ") + fault);
    const auto before = distinctCommands(journey);
    ASSERT_TRUE(journey.press("Load from device"));
    ASSERT_TRUE(journey.waitForText("11:00"));
    EXPECT_EQ(distinctCommands(journey) - before, 5);
    EXPECT_EQ(journey.title(), "Aquelon - Untitled");
    journey.control("forget");
    send(journey);
    EXPECT_EQ(journey.controller("channels"), stored);

    const QString path = journey.file(QStringLiteral("reef.sq"));
    ASSERT_TRUE(journey.chooseMenu("Save"));
    ASSERT_TRUE(journey.chooseFile(path));
    ASSERT_TRUE(journey.waitForTitle("Aquelon - reef.sq"));
    const Journey again("--no-device", {path});
    ASSERT_TRUE(again.waitForText("11:00"));
    EXPECT_EQ(again.title(), "Aquelon - reef.sq");
}

} // namespace
