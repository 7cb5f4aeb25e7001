#include "journeys/Journey.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>

namespace {

/// The times of the program that a new document holds, with these levels.
QJsonArray channel(const std::vector<int>& levels) {
    const char* const times[] = {"08:30", "10:00", "15:00", "20:00", "21:00", "22:30", "23:30"};
    QJsonArray entries;
    for (std::size_t i = 0; i < levels.size(); ++i)
        entries.append(QLatin1String(times[i]) + QLatin1Char('=') + QString::number(levels[i]));
    return entries;
}

void send(const Journey& journey) {
    ASSERT_TRUE(journey.press("Send to device"));
    EXPECT_EQ(journey.dialog("The device settings will be overwritten!"),
              "Aquelon|The device settings will be overwritten!|Are you sure you want to "
              "continue?|Yes No");
    ASSERT_TRUE(journey.press("Yes"));
    EXPECT_EQ(journey.dialog("Upload was successfull!"),
              "Aquelon|Upload was successfull!|Your settings have been applied to the device.|OK");
    ASSERT_TRUE(journey.press("OK"));
    ASSERT_TRUE(journey.waitForNoDialog());
}

/// How many commands were received, those that were repeated for want of an answer once.
std::ptrdiff_t distinctCommands(const Journey& journey) {
    auto events = journey.wire();
    std::erase_if(events, [](const WireEvent& e) { return e.kind != WireEvent::Kind::Received; });
    return std::ranges::unique(events, {}, &WireEvent::bytes).begin() - events.begin();
}

TEST(Transfer, loadsSendsAndKeepsTheControllersProgram) {
    const Journey journey(
        {QStringLiteral("--pace"), QStringLiteral("--channels"), QStringLiteral("4")});
    ASSERT_TRUE(journey.waitForText("CONNECTED"));
    const QJsonValue stored = journey.controller(QLatin1String("channels"));
    ASSERT_TRUE(journey.press("Load from device"));
    ASSERT_TRUE(journey.waitForText("11:00"));
    EXPECT_EQ(journey.title(), "Aquelon - Untitled");
    EXPECT_EQ(journey.control(QStringLiteral("forget")), QStringLiteral("ok"));
    send(journey);
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

TEST(Transfer, sendsAndLoadsTheDefaultProgram) {
    const QJsonArray dark = channel({0, 0, 0, 0, 0, 0, 0});
    const QJsonArray cold = channel({0, 246, 254, 246, 229, 184, 0});
    const QJsonArray warm = channel({0, 241, 254, 241, 162, 0, 0});
    // With four channels and more the first levels of the first two hold the task light.
    const QJsonArray coldTask = channel({127, 246, 254, 246, 229, 184, 0});
    const QJsonArray warmTask = channel({254, 241, 254, 241, 162, 0, 0});
    const QJsonArray color = channel({255, 144, 128, 144, 235, 255, 255});
    const QJsonArray light = channel({0, 204, 255, 204, 128, 38, 0});
    const struct {
        int channels;
        QJsonArray stored;
        int asked; ///< commands of a load
    } cases[] = {
        {2, {cold, warm}, 3},
        {4, {coldTask, warmTask, color, light}, 5},
        {6, {coldTask, warmTask, color, light, dark, dark}, 5},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.channels);
        const Journey journey({QStringLiteral("--pace"), QStringLiteral("--empty-program"),
                               QStringLiteral("--channels"), QString::number(c.channels)});
        ASSERT_TRUE(journey.waitForText("CONNECTED"));
        const auto storesAll = [&] {
            EXPECT_EQ(journey.controller(QLatin1String("channels")).toArray(), c.stored);
            const QJsonObject task = journey.controller(QLatin1String("taskLight")).toObject();
            EXPECT_EQ(task[QStringLiteral("minutes")].toInt(), 1);
            EXPECT_EQ(task[QStringLiteral("seconds")].toInt(), 0);
            EXPECT_EQ(task[QStringLiteral("levels")].toArray(), (QJsonArray{254, 254}));
        };
        send(journey);
        storesAll();
        EXPECT_EQ(journey.title(), "Aquelon - Untitled");

        // From here on over a bad line.
        for (const char* fault : {"noise-before=8", "noise-inside@2..3", "dribble=1", "delay=20"})
            EXPECT_EQ(journey.control(QStringLiteral("fault ") + QLatin1String(fault)),
                      QStringLiteral("ok"));
        const auto before = distinctCommands(journey);
        ASSERT_TRUE(journey.press("Add point"));
        ASSERT_TRUE(journey.press("Load from device"));
        ASSERT_NE(journey.dialog("Save changes before loading settings"), "");
        ASSERT_TRUE(journey.press("No"));
        ASSERT_TRUE(Journey::waitUntil([&] { return journey.title() == "Aquelon - Untitled"; }));
        EXPECT_EQ(distinctCommands(journey) - before, c.asked);
        EXPECT_EQ(journey.control(QStringLiteral("forget")), QStringLiteral("ok"));
        send(journey);
        storesAll();
    }
}

TEST(Transfer, whatTheControllerCannotTakeIsRefused) {
    const struct {
        const char* channels;
        std::string reason;
        bool isLoadRefused;
    } cases[] = {
        {"3", "Wrong number of channels: got 3, expected 2 or 4.", true},
        {"2",
         "Too many time points in sequence: 7. This controller supports a maximmum of 6 points "
         "only.",
         false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.reason);
        const Journey journey({QStringLiteral("--points"), QStringLiteral("6"),
                               QStringLiteral("--channels"), QLatin1String(c.channels)});
        const auto refuses = [&](const std::string& message) {
            EXPECT_EQ(journey.dialog(message), "Aquelon|" + message + "|" + c.reason + "|OK");
            EXPECT_TRUE(journey.press("OK") && journey.waitForNoDialog());
        };
        ASSERT_TRUE(journey.waitForText("CONNECTED"));
        const std::size_t before = journey.commands().size();
        if (c.isLoadRefused) {
            ASSERT_TRUE(journey.press("Load from device"));
            refuses("Could not load settings from device!");
        }
        ASSERT_TRUE(journey.press("Send to device") && journey.press("Yes"));
        refuses("Could not send settings to device!");
        EXPECT_EQ(journey.commands().size(), before);
    }
}

} // namespace
