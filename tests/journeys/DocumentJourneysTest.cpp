#include "journeys/Journey.h"

#include <QDir>
#include <QFile>

#include <csignal>

namespace {

QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString& path, const QByteArray& text) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
}

std::string question(const std::string& message) {
    return "Aquelon|" + message +
           "|There are unsaved changes. Do you want to save them first?|Yes No Cancel";
}

bool becomes(const Journey& journey, const std::string& title) {
    return Journey::waitUntil(
        [&] { return journey.title() == title && journey.dialogs().empty(); });
}

/// Changes the task light, whose value stands near the beginning of a file.
bool edit(const Journey& journey, double intensity, const std::string& name) {
    journey.find("slider", "Task light intensity").setValue(100.0 * intensity);
    return becomes(journey, "Aquelon - " + name + " *");
}

QByteArray taskIntensity(const QString& path) {
    const QByteArray text = contents(path);
    return text.mid(text.indexOf("<intensity>")).split('<').value(1).split('>').value(1);
}

/// Keys in the main window, which gets the focus back some time after a dialog has closed.
bool keys(const Journey& journey, const char* names) {
    const bool isReady =
        Journey::waitUntil([&] { return journey.find("list", "Light program curve").isFocused(); });
    Journey::keys(names);
    return isReady;
}

TEST(Documents, areKeptInFilesAndAskedAbout) {
    Journey journey({QStringLiteral("--no-device")});
    const QString reef = journey.file(QStringLiteral("reef.sq"));
    const QString lamps = journey.file(QStringLiteral("lamps"));
    const QString second = lamps + QStringLiteral("/second.sq");
    ASSERT_TRUE(QDir().mkpath(lamps));
    const QString broken = journey.file(QStringLiteral("broken.sq"));
    EXPECT_EQ(journey.title(), "Aquelon - Untitled");
    ASSERT_TRUE(edit(journey, 0.25, "Untitled"));

    const struct {
        const char* keys;
        const char* message;
    } commands[] = {{"ctrl+n", "Save changes before loading defaults?"},
                    {"ctrl+q", "Save changed before quitting?"},
                    {"ctrl+o", "Save changes before opening new file?"}};
    for (const auto& c : commands) {
        ASSERT_TRUE(keys(journey, c.keys));
        EXPECT_EQ(journey.dialog(c.message), question(c.message));
        ASSERT_TRUE(journey.press("Cancel"));
        ASSERT_TRUE(becomes(journey, "Aquelon - Untitled *"));
    }
    // Keeping changes that have no file yet needs one; without it nothing else happens either.
    ASSERT_TRUE(keys(journey, "ctrl+q"));
    ASSERT_TRUE(journey.press("Yes"));
    ASSERT_TRUE(journey.waitForText("Save Light Program"));
    ASSERT_TRUE(journey.press("Cancel"));
    ASSERT_TRUE(becomes(journey, "Aquelon - Untitled *"));

    ASSERT_TRUE(keys(journey, "ctrl+s"));
    ASSERT_TRUE(journey.chooseFile(journey.file(QStringLiteral("reef"))));
    ASSERT_TRUE(becomes(journey, "Aquelon - reef.sq"));
    EXPECT_EQ(taskIntensity(reef), "64");
    ASSERT_TRUE(edit(journey, 0.5, "reef.sq"));
    ASSERT_TRUE(keys(journey, "ctrl+shift+s"));
    ASSERT_TRUE(journey.chooseFile(second));
    ASSERT_TRUE(becomes(journey, "Aquelon - second.sq"));
    EXPECT_EQ(taskIntensity(reef), "64");
    EXPECT_EQ(taskIntensity(second), "128");

    ASSERT_TRUE(edit(journey, 0.75, "second.sq"));
    // Like a stick that was pulled out: the folder is not there.
    const QString elsewhere = journey.file(QStringLiteral("elsewhere"));
    ASSERT_TRUE(QDir().rename(lamps, elsewhere));
    ASSERT_TRUE(keys(journey, "ctrl+s"));
    EXPECT_EQ(journey.dialog("Could not save file!"),
              "Aquelon|Could not save file!|There was an error while saving to " +
                  second.toStdString() + "|OK");
    ASSERT_TRUE(QDir().rename(elsewhere, lamps));
    ASSERT_TRUE(journey.press("OK"));
    ASSERT_TRUE(becomes(journey, "Aquelon - second.sq *"));
    EXPECT_EQ(taskIntensity(second), "128");

    write(broken, "<settings><timeline>");
    ASSERT_TRUE(journey.chooseMenu("Open..."));
    ASSERT_TRUE(journey.press("No"));
    ASSERT_TRUE(journey.chooseFile(broken));
    EXPECT_EQ(journey.dialog("Could not open file!"),
              "Aquelon|Could not open file!|" + broken.toStdString() +
                  " could not be opened. Maybe the file is corrupt or contains invalid data.|OK");
    ASSERT_TRUE(journey.press("OK"));
    ASSERT_TRUE(becomes(journey, "Aquelon - second.sq *"));

    ASSERT_TRUE(journey.chooseMenu("New"));
    ASSERT_TRUE(journey.press("No"));
    ASSERT_TRUE(becomes(journey, "Aquelon - Untitled"));
    ASSERT_TRUE(keys(journey, "ctrl+o"));
    ASSERT_TRUE(journey.chooseFile(reef));
    ASSERT_TRUE(becomes(journey, "Aquelon - reef.sq"));
    ASSERT_TRUE(edit(journey, 1.0, "reef.sq"));
    ASSERT_TRUE(journey.chooseMenu("Quit"));
    ASSERT_TRUE(journey.press("Yes"));
    EXPECT_EQ(journey.waitForEnd(), 0);
    EXPECT_EQ(taskIntensity(reef), "255");
}

TEST(Documents, openAtTheStartAndAreLeftAloneWhenToldSo) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("lamp.sq"));
    const QByteArray dark = "<settings><timeline></timeline></settings>";
    write(path, dark);
    Journey journey({QStringLiteral("--no-device")}, {path});
    ASSERT_TRUE(becomes(journey, "Aquelon - lamp.sq"));
    ASSERT_TRUE(edit(journey, 0.5, "lamp.sq"));
    ASSERT_TRUE(keys(journey, "alt+F4"));
    EXPECT_EQ(journey.dialog("Save changed before quitting?"),
              question("Save changed before quitting?"));
    ASSERT_TRUE(journey.press("No"));
    EXPECT_EQ(journey.waitForEnd(), 0);
    EXPECT_EQ(contents(path), dark);
}

TEST(Documents, brokenAtTheStart) {
    Journey journey({QStringLiteral("--no-device")}, {QStringLiteral("missing.sq")});
    EXPECT_EQ(journey.dialog("Could not open file!"),
              "Aquelon|Could not open file!|" +
                  journey.file(QStringLiteral("missing.sq")).toStdString() +
                  " could not be opened. Maybe the file is corrupt or contains invalid data.|OK");
    ASSERT_TRUE(journey.press("OK"));
    ASSERT_TRUE(becomes(journey, "Aquelon - Untitled"));
    ASSERT_TRUE(journey.chooseMenu("Save As..."));
    ASSERT_TRUE(journey.waitForText("Save Light Program"));
    journey.signal(SIGINT);
    EXPECT_EQ(journey.waitForEnd(), 0);
}

} // namespace
