#include "journeys/Journey.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QJsonValue>

namespace {

using Strings = std::vector<std::string>;

TEST(MainJob, loadsSendsAndKeepsTheProgram) {
    const Journey journey(
        {QStringLiteral("--pace"), QStringLiteral("--channels"), QStringLiteral("4")});
    ASSERT_TRUE(journey.waitForText("CONNECTED"));
    const QJsonValue stored = journey.controller(QLatin1String("channels"));
    ASSERT_TRUE(journey.press("Load from device"));
    ASSERT_TRUE(journey.waitForText("11:00"));
    EXPECT_EQ(journey.title(), "Aquelon - Untitled *");

    // Back to a controller that has lost its program.
    for (int channel = 0; channel < 4; ++channel)
        journey.control(QStringLiteral("sequence %1").arg(channel));
    ASSERT_TRUE(journey.press("Send to device"));
    EXPECT_EQ(journey.waitForDialog("The device settings will be overwritten!"),
              (Strings{"The device settings will be overwritten!",
                       "Are you sure you want to continue?"}));
    ASSERT_TRUE(journey.press("Yes"));
    EXPECT_EQ(
        journey.waitForDialog("Upload was successfull!"),
        (Strings{"Upload was successfull!", "Your settings have been applied to the device."}));
    ASSERT_TRUE(journey.press("OK"));
    ASSERT_TRUE(journey.waitForNoDialog());
    EXPECT_EQ(journey.controller(QLatin1String("channels")), stored);

    const QString path = journey.file(QStringLiteral("reef.sq"));
    ASSERT_TRUE(journey.chooseMenu("Save"));
    ASSERT_TRUE(journey.chooseFile(path));
    ASSERT_TRUE(journey.waitForText("Aquelon - reef.sq"));
    EXPECT_TRUE(QFile::exists(path));

    const Journey again({QStringLiteral("--no-device")}, {path});
    ASSERT_TRUE(again.waitForText("11:00"));
    EXPECT_EQ(again.title(), "Aquelon - reef.sq");
}

} // namespace
