#include "journeys/Journey.h"

#include <QFile>

#include <csignal>

namespace {

bool edit(const Journey& journey, double intensity, const std::string& name) {
    journey.find("slider", "Task light intensity").setValue(100.0 * intensity);
    return journey.waitForTitle("Aquelon - " + name + " *");
}

/// Keys in the main window, which gets the focus back some time after a dialog has closed.
bool keys(const Journey& journey, const char* names) {
    const bool isReady =
        Journey::waitUntil([&] { return journey.find("list", "Light program curve").isFocused(); });
    Journey::keys(names);
    return isReady;
}

TEST(Documents, areKeptInFilesAndAskedAbout) {
    Journey journey("--no-device", {QStringLiteral("missing.sq")});
    EXPECT_EQ(journey.dialog("Could not open file!"),
              "Aquelon|Could not open file!|" +
                  journey.file(QStringLiteral("missing.sq")).toStdString() +
                  " could not be opened. Maybe the file is corrupt or contains invalid data.|OK");
    ASSERT_TRUE(journey.press("OK"));
    ASSERT_TRUE(journey.waitForTitle("Aquelon - Untitled"));
    ASSERT_TRUE(edit(journey, 0.25, "Untitled"));
    const std::pair<const char*, std::string> commands[] = {
        {"ctrl+n", "Save changes before loading defaults?"},
        {"ctrl+q", "Save changed before quitting?"},
        {"ctrl+o", "Save changes before opening new file?"}};
    for (const auto& [shortcut, message] : commands) {
        ASSERT_TRUE(keys(journey, shortcut));
        EXPECT_EQ(journey.dialog(message),
                  "Aquelon|" + message +
                      "|There are unsaved changes. Do you want to save them first?|Yes No Cancel");
        ASSERT_TRUE(journey.press("Cancel"));
        ASSERT_TRUE(journey.waitForTitle("Aquelon - Untitled *"));
    }
    const QString reef = journey.file(QStringLiteral("reef.sq"));
    ASSERT_TRUE(keys(journey, "ctrl+s"));
    ASSERT_TRUE(journey.chooseFile(journey.file(QStringLiteral("reef"))));
    ASSERT_TRUE(journey.waitForTitle("Aquelon - reef.sq"));

    ASSERT_TRUE(edit(journey, 0.5, "reef.sq"));
    const QString missing = journey.file(QStringLiteral("missing/second.sq"));
    ASSERT_TRUE(keys(journey, "ctrl+shift+s"));
    ASSERT_TRUE(journey.chooseFile(missing));
    EXPECT_EQ(journey.dialog("Could not save file!"),
              "Aquelon|Could not save file!|There was an error while saving to " +
                  missing.toStdString() + "|OK");
    ASSERT_TRUE(journey.press("OK"));
    ASSERT_TRUE(journey.waitForTitle("Aquelon - reef.sq *"));
    ASSERT_TRUE(journey.chooseMenu("New") && journey.press("No"));
    ASSERT_TRUE(journey.waitForTitle("Aquelon - Untitled"));
    ASSERT_TRUE(keys(journey, "ctrl+o"));
    ASSERT_TRUE(journey.chooseFile(reef));
    ASSERT_TRUE(journey.waitForTitle("Aquelon - reef.sq"));
    EXPECT_EQ(qRound(journey.find("slider", "Task light intensity").value()), 25);
    ASSERT_TRUE(edit(journey, 0.75, "reef.sq"));
    ASSERT_TRUE(journey.chooseMenu("Quit") && journey.press("Yes"));
    EXPECT_EQ(journey.waitForEnd(), 0);
    QFile file(reef);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("<intensity>191<"));
}

TEST(Documents, areNoHindranceToASignal) {
    Journey journey("--no-device");
    ASSERT_TRUE(journey.chooseMenu("Save As..."));
    ASSERT_TRUE(journey.waitForText("Save Light Program"));
    journey.signal(SIGINT);
    EXPECT_EQ(journey.waitForEnd(), 0);
}

} // namespace
