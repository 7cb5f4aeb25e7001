#include "lamp/ProgramComparison.h"

#include "data/DeviceProgramImage.h"

#include <gtest/gtest.h>

namespace {

using DeviceProgramImage::contentsOf;
using DeviceProgramImage::imageOf;

DocumentContents program() {
    return {{{{8, 0}, 0.5, 0.2}, {{10, 0}, 0.6, 0.8}, {{20, 0}, 0.4, 0.5}},
            {{0, 1, 0}, 0.5, 1.0},
            true};
}

StoredProgram storedAfterSending(const DocumentContents& contents, int channels) {
    return {imageOf(contents, channels), {}};
}

std::string lines(const ProgramComparison& comparison) {
    return comparison.differences().join(u'\n').toStdString();
}

TEST(ProgramComparison, tellsWhatDiffersInTheOrderOfTheDay) {
    DocumentContents here = program();
    here.points[0].colorTemp = 0.7;
    here.points[1].brightness = 0.75;
    here.points[2].time = {21, 30};
    here.taskLight.time = {0, 15, 30};
    for (const int channels : {2, 4, 6}) {
        const ProgramComparison comparison(here, storedAfterSending(program(), channels));
        EXPECT_EQ(lines(comparison), "08:00: colour temperature 70 % here, 50 % in the lamp\n"
                                     "10:00: 75 % here, 80 % in the lamp\n"
                                     "20:00 only in the lamp\n"
                                     "21:30 only here\n"
                                     "Task light: 15 min 30 s here, 1 min in the lamp")
            << channels;
        EXPECT_EQ(comparison.change(), QStringLiteral("4 points and the task light change"));
        EXPECT_TRUE(ProgramComparison(here, storedAfterSending(here, channels)).isEqual());
    }
}

TEST(ProgramComparison, isAsExactAsTheDifference) {
    StoredProgram lamp = storedAfterSending(program(), 4);
    lamp.image.channels[3][1].level -= 1;
    EXPECT_EQ(lines({program(), lamp}), "10:00: 80.0 % here, 79.6 % in the lamp");
    lamp = storedAfterSending(program(), 4);
    lamp.image.channels[0][1].level -= 1;
    EXPECT_EQ(lines({program(), lamp}),
              "10:00: levels 246/238/153/204 here, 245/238/153/204 in the lamp");
    EXPECT_EQ(ProgramComparison(program(), lamp).change(), QStringLiteral("1 point changes"));
}

// Dim light has more levels than the document has values.
TEST(ProgramComparison, countsWhatWasReadAsEqual) {
    DeviceImage image = imageOf(program(), 2);
    image.channels[0][0].level = image.channels[1][0].level = 86;
    const StoredProgram lamp{image, contentsOf(image)};
    DocumentContents read = *lamp.contents;
    ASSERT_NE(imageOf(read, 2), image) << "it cannot be given back";
    EXPECT_TRUE(ProgramComparison(read, lamp).isEqual());
    read.points[1].brightness = 0.5;
    EXPECT_EQ(lines({read, lamp}), "10:00: 50 % here, 80 % in the lamp");
    EXPECT_FALSE(ProgramComparison(read, imageOf(read, 2), image).isEqual());
}

TEST(ProgramComparison, knowsHowFewPointsAreStored) {
    DocumentContents one = program();
    one.points.resize(1);
    DocumentContents none = program();
    none.points.clear();
    for (const int channels : {2, 4}) {
        EXPECT_TRUE(ProgramComparison(one, storedAfterSending(one, channels)).isEqual());
        EXPECT_TRUE(ProgramComparison(none, storedAfterSending(none, channels)).isEqual());
        EXPECT_EQ(lines({none, storedAfterSending(one, channels)}),
                  "00:00 only in the lamp\n23:59 only in the lamp");
        // Lists that do not fit each other, as no load takes them.
        DeviceImage image = imageOf(program(), channels);
        image.channels[1].pop_back();
        EXPECT_EQ(lines({program(), imageOf(program(), channels), image}),
                  "Channel 2: 3 entries here, 2 in the lamp");
        image = imageOf(program(), channels);
        image.taskMode = {0, 60, 254, 254};
        EXPECT_EQ(lines({program(), {image, {}}}), "Task light: 1 min here, 60 s in the lamp");
    }
}

} // namespace
