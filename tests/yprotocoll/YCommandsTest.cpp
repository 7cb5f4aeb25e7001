#include "yprotocoll/YCommands.h"

#include "yprotocoll/YMessageError.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr auto maxInt = std::numeric_limits<int>::max();

std::optional<DeviceInfo> device(int channels, int points) {
    return DeviceInfo{{1, 4}, 17, 5, channels, points};
}

// Those whose bytes no other test compares.
TEST(YCommands, numberAndPayload) {
    const CmdSetAnalogMode::Settings analog{1, 2, 3, true, 0x0102, 0x0304, 0x0506, 0x0708};
    const struct {
        YCommand command;
        const char* name;
        int id;
        Bytes payload;
    } rows[] = {
        {CmdGetProductInfo(), "CmdGetProductInfo", 3, {}},
        {CmdGetDebugInfo(), "CmdGetDebugInfo", 32, {}},
        {CmdSetDebugTxRxDALI(254, 160), "CmdSetDebugTxRxDALI", 34, {254, 160}},
        {CmdSetTime(23, 59), "CmdSetTime", 40, {23, 59}},
        {CmdGetDeviceMode(), "CmdGetDeviceMode", 42, {}},
        {CmdGetDemoModeTransmitBuffer(), "CmdGetDemoModeTransmitBuffer", 48, {}},
        {CmdSetTaskMode(1, 5, 30, 200, 100), "CmdSetTaskMode", 50, {65, 30, 200, 100}},
        {CmdGetAnalogMode(), "CmdGetAnalogMode", 52, {}},
        {CmdSetAnalogMode(analog), "CmdSetAnalogMode", 52, {1, 2, 3, 0x80, 2, 1, 4, 3, 6, 5, 8, 7}},
        {CmdGetDeviceSettings(), "CmdGetDeviceSettings", 54, {}},
        {CmdSetDeviceSettings(254, 2, 9, 1), "CmdSetDeviceSettings", 54, {254, 2, 9, 1}},
        {CmdSetRTC(0, 0, 0, 1, 1, 1999), "CmdSetRTC", 70, {0, 0, 0, 1, 1, 0}},
        {CmdSetRTC(0, 0, 0, 1, 1, maxInt), "CmdSetRTC", 70, {0, 0, 0, 1, 1, 255}},
        {CmdGetBufferInfo(), "CmdGetBufferInfo", 72, {}},
        {CmdGetDaylightInfo(), "CmdGetDaylightInfo", 74, {}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.command.name(), row.name);
        EXPECT_EQ(row.command.id(), row.id) << row.name;
        EXPECT_EQ(row.command.data(), row.payload) << row.name;
        EXPECT_EQ(row.command.expectedAnswer(), row.id + 1) << row.name;
    }
}

TEST(YCommands, keepToTheLimitsOfTheController) {
    const std::vector<SequenceEntry> entries(100, {1, 2, 3});
    const struct {
        std::optional<DeviceInfo> device;
        int channel;
        int sentChannel;
        std::size_t count;
        std::size_t sentCount;
    } rows[] = {
        {{}, 3, 3, 20, 20},          {{}, 7, 3, 25, 20},
        {device(2, 7), 2, 1, 25, 7}, {device(6, 84), 5, 5, 84, 84},
        {device(1, 20), 9, 0, 0, 0},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(CmdGetSequenceData(row.channel, row.device).data()[0], row.sentChannel);
        const CmdSetSequenceData command(row.channel, std::span(entries).first(row.count),
                                         row.device);
        EXPECT_EQ(command.data()[0], row.sentChannel);
        EXPECT_EQ(command.data().size(), 1 + 3 * row.sentCount);
    }
    EXPECT_THROW(CmdSetSequenceData(0, entries, device(2, 85)), YMessageError);
    EXPECT_EQ(YMessage("Cmd", 7, Bytes(255)).frame().size(), 259U);
    EXPECT_THROW(YMessage("Cmd", 44, Bytes(256)), YMessageError);
}

} // namespace
