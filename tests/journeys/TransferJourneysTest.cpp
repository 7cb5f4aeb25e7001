#include "journeys/Journey.h"

#include <algorithm>

namespace {

void send(const Journey& journey, const std::string& changes) {
    ASSERT_TRUE(journey.press("Send to device"));
    EXPECT_EQ(journey.dialog("The device settings will be overwritten!"),
              "Aquelon|The device settings will be overwritten!|Are you sure you want to "
              "continue?|" +
                  changes + "|Yes No");
    ASSERT_TRUE(journey.press("Yes"));
    EXPECT_EQ(journey.dialog("Upload was successfull!"),
              "Aquelon|Upload was successfull!|Your settings have been applied to the device.|OK");
    ASSERT_TRUE(journey.press("OK"));
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
    send(journey, "Nothing changes");
    ASSERT_TRUE(journey.waitForNoDialog());
    EXPECT_EQ(journey.controller("channels"), stored);

    const QString path = journey.file(QStringLiteral("reef.sq"));
    ASSERT_TRUE(journey.chooseMenu("Save"));
    ASSERT_TRUE(journey.chooseFile(path));
    ASSERT_TRUE(journey.waitForTitle("Aquelon - reef.sq"));
    const Journey again("--no-device", {path});
    ASSERT_TRUE(again.waitForText("11:00"));
    EXPECT_EQ(again.title(), "Aquelon - reef.sq");
}

TEST(Transfer, theWindowTellsWhatTheLampHolds) {
    const Journey journey("--pace --channels 4");
    ASSERT_TRUE(journey.waitForText("CONNECTED"));
    EXPECT_EQ(journey.find("label", "CONNECTED").description(), "not read yet");
    send(journey, "What the lamp holds has not been read yet.");
    ASSERT_TRUE(journey.waitForNoDialog() && journey.waitForText("the lamp runs this program"));
    Journey::keys("Right shift+Up");
    ASSERT_TRUE(journey.waitForText("the lamp runs another program"));

    ASSERT_TRUE(journey.chooseMenu("Compare with Device"));
    EXPECT_EQ(journey.dialog("The program here and the lamp's differ:"),
              "Aquelon|The program here and the lamp's differ:|Take the Lamp's Send Mine Close");
    EXPECT_EQ(journey.find("text", "Differences").text(), "08:30: 10 % here, 0 % in the lamp");
    ASSERT_TRUE(journey.press("Send Mine"));
    EXPECT_NE(journey.dialog("1 point changes"), "");
    ASSERT_TRUE(journey.press("No") && journey.waitForNoDialog());
    Journey::keys("ctrl+z");
    ASSERT_TRUE(journey.waitForText("the lamp runs this program"));

    journey.control("fault other-levels=40#44@4");
    send(journey, "Nothing changes");
    EXPECT_EQ(journey.dialog("The device stored something else!"),
              "Aquelon|The device stored something else!|10:00: 80 % here, 64 % in the lamp|OK");
    ASSERT_TRUE(journey.press("OK") && journey.waitForNoDialog());
    EXPECT_TRUE(journey.waitForText("the lamp runs another program"));

    const std::string part = "the lamp may hold a part of this program";
    journey.control("fault unplug=100#50@1");
    ASSERT_TRUE(journey.press("Send to device") && journey.press("Yes"));
    EXPECT_NE(journey.dialog("Device Error!"), "");
    ASSERT_TRUE(journey.press("OK") && journey.waitForNoDialog());
    EXPECT_TRUE(journey.waitForText(part + ": Send again"));
    ASSERT_TRUE(journey.press("Load from device"));
    EXPECT_TRUE(journey.waitForText("the lamp runs this program"));
}

} // namespace
