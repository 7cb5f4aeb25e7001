#include "yprotocoll/YAnswers.h"

#include "yprotocoll/DimmingCurve.h"
#include "yprotocoll/YMessageError.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

namespace {

using Bytes = std::vector<std::uint8_t>;

/// Every field of the answer, or why there is none.
std::string decode(std::uint8_t id, const Bytes& payload) {
    try {
        const auto answer = YAnswer::fromFrame(YMessage("Answer", id, payload).frame());
        EXPECT_EQ(answer->id(), id);
        EXPECT_EQ(answer->data(), payload);
        std::string text = answer->name();
        for (const AnswerField& field : answer->fields())
            text += ' ' + field.label + '=' + field.value;
        return text;
    } catch (const YMessageError& error) {
        return error.description();
    }
}

Bytes bytes(const char* decimals) {
    std::istringstream text(decimals);
    Bytes result;
    for (int number = 0; text >> number;)
        result.push_back(static_cast<std::uint8_t>(number));
    return result;
}

const struct Row {
    std::uint8_t id;
    const char* payload; ///< in decimal
    const char* listing;
} rows[] = {
    {2, "1 4 17", "AnswerVersion version=1.4 build=17 deviceType=0"},
    {2, "1 4 17 5", "AnswerVersion version=1.4 build=17 deviceType=5"},
    {4, "9 17 3 2 1 2 3 4",
     "AnswerProductInfo week=9 year=2017 pcbVersion=3 assemblyVersion=2 serialNumber=16909060"},
    {33, "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 26 27 28 29 30 31",
     "AnswerDebugInfo status=1 URef_dig=770 UInA_dig=1284 UInB_dig=1798 URef_mV=2312 UInA_mV=2826 "
     "UInB_mV=3340 seconds=14 minutes=15 hours=16 day=17 month=18 year=2019 weekDay=20 "
     "isLeapYear=true appTimeDiv_1_10V=5910 appTaskModeTimeout=6424 appFilteredAvg1=6938 "
     "appFilteredAvg2=7452 appDemoModeTimeout=7966"},
    {35, "1 255", "AnswerDebugTxRxDALI status=1 answer=255"},
    {41, "23 59", "AnswerTime hour=23 minute=59"},
    {43, "129 254 1",
     "AnswerDeviceMode mode=1 demoModeActive=true taskModeActive=false levels=[254 (1.0000), 1 "
     "(0.0010)]"},
    {45, "2", "AnswerSequenceData channel=2 seqData=[]"},
    {45, "0 8 30 254 23 59 0 1 1", "AnswerSequenceData channel=0 seqData=[08:30 254, 23:59 0]"},
    {47, "2 20 3", "AnswerSequenceDataInfo channelCount=2 maxPoints=20 sizeOfEntry=3"},
    {47, "1 8 30 254", "AnswerSequenceData channel=1 seqData=[08:30 254]"},
    {49, "7", "AnswerDemoModeTransmitBuffer freeBlocks=7"},
    {49, "64 0 255",
     "AnswerDemoMode mode=0 demoModeActive=false taskModeActive=true levels=[0 (0.0000), 255 "
     "(1.0000)]"},
    {51, "65 30 85 0 4",
     "AnswerTaskMode minutes=65 seconds=30 levels=[85 (0.0099), 0 (0.0000)] fadeTime=4"},
    {53, "3 0 254 128 1 2 3 4 5 6 7 8",
     "AnswerAnalogMode fadeTime=3 minLevel=0 (0.0000) maxLevel=254 (1.0000) logarithmicMode=true "
     "inOff_mV=513 inOn_mV=1027 inMax_mV=1541 in100perc_mV=2055"},
    {55, "159 126 6 1",
     "AnswerDeviceSettings addresses=[group 15, 63] sequenceFadeTime=6 minOnOutLevel=1 (0.0010)"},
    {55, "254 128 0 0",
     "AnswerDeviceSettings addresses=[all, group 0] sequenceFadeTime=0 minOnOutLevel=0 (0.0000)"},
    {71, "30 15 8 24 12 17", "AnswerRTC second=30 minute=15 hour=8 day=24 month=12 year=2017"},
    {73, "64 60", "AnswerBufferInfo bufferSize=64 bufferFree=60"},
    {75, "192 255", "AnswerDaylightInfo enabled=true summerTime=true UTCOffset=-1"},
};

TEST(YAnswers, decodeAndListEveryField) {
    for (const Row& row : rows)
        EXPECT_EQ(decode(row.id, bytes(row.payload)), row.listing);
}

TEST(DimmingCurve, goldenValues) {
    EXPECT_NEAR(shareFromLevel(253), 0.97306, 1e-5);
    EXPECT_EQ(shareFromLevel(255), 1.0);
    const std::pair<double, int> levels[] = {{-1.0, 0},  {0.0005, 0}, {0.001, 1},       {0.01, 85},
                                             {0.1, 170}, {1e9, 254},  {std::nan(""), 0}};
    for (const auto& [share, level] : levels)
        EXPECT_EQ(levelFromShare(share), level) << share;
    for (int level = 0; level <= 254; ++level)
        EXPECT_EQ(levelFromShare(shareFromLevel(static_cast<std::uint8_t>(level))), level);
}

} // namespace
