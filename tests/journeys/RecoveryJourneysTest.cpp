#include "journeys/Journey.h"

#include <QDir>
#include <QThread>

#include <csignal>

namespace {

UiElement window(const Journey& journey) {
    return UiElement::application(journey.processId()).find("frame", {});
}

/// Waits for the question that begins so, and answers it.
bool answer(const Journey& journey, const std::string& question, const char* button) {
    const auto asks = [&](const UiElement& e) { return e.name().starts_with(question); };
    return Journey::waitUntil([&] { return bool(journey.front().find(asks)); }) &&
           journey.press(button) && journey.waitForNoDialog();
}

TEST(Recovery, givesBackWhatWasDoneBeforeTheProgramEnded) {
    const std::string unexpectedly = "Aquelon ended unexpectedly. Recover the program as of ";
    Journey journey;
    Journey::click(journey.cell("08:30", "Time"));
    Journey::hands("key ctrl+a type 08:15");
    Journey::keys("Return");
    ASSERT_TRUE(journey.waitForTitle("Aquelon - Untitled *"));
    QThread::sleep(2);
    journey.signal(SIGKILL);
    journey.waitForEnd();

    journey.startAgain();
    ASSERT_TRUE(Journey::waitUntil([&] { return !journey.dialogs().empty(); }));
    EXPECT_TRUE(Journey::waitUntil([&] {
        return bool(window(journey).find("label", "CONNECTED"));
    })) << "connecting waits for no answer";
    ASSERT_TRUE(answer(journey, unexpectedly, "Recover"));
    ASSERT_TRUE(journey.waitForTitle("Aquelon - Untitled *"));
    EXPECT_TRUE(bool(journey.cell("08:15", "Time")));
    // At once: what was recovered is still held.
    journey.signal(SIGKILL);
    journey.waitForEnd();

    journey.startAgain();
    ASSERT_TRUE(answer(journey, unexpectedly, "Recover"));
    journey.signal(SIGTERM);
    EXPECT_EQ(journey.waitForEnd(), 0);

    journey.startAgain();
    ASSERT_TRUE(answer(journey, "Aquelon was ended with unsaved work. Recover", "Discard"));
    EXPECT_EQ(journey.title(), "Aquelon - Untitled");
    EXPECT_TRUE(bool(journey.cell("08:30", "Time")));
    EXPECT_TRUE(QDir(journey.file(QStringLiteral("state/aquelon"))).isEmpty());
}

} // namespace
