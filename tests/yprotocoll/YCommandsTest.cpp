#include "yprotocoll/YCommands.h"

#include "yprotocoll/YMessageError.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr auto maxInt = std::numeric_limits<int>::max();

std::optional<DeviceInfo> device(int channels, int points) {
    return DeviceInfo{{1, 4}, 17, 5, channels, points};
}

TEST(YCommands, numberAndPayload) {
    const CmdSetAnalogMode::Settings analog{1, 2, 3, true, 0x0102, 0x0304, 0x0506, 0x0708};
    const struct {
        YCommand command;
        const char* name;
        int id;
        Bytes payload;
    } rows[] = {
        {CmdGetVersion(), "CmdGetVersion", 1, {}},
        {CmdGetProductInfo(), "CmdGetProductInfo", 3, {}},
        {CmdGetDebugInfo(), "CmdGetDebugInfo", 32, {}},
        {CmdSetDebugTxRxDALI(254, 160), "CmdSetDebugTxRxDALI", 34, {254, 160}},
        {CmdGetTime(), "CmdGetTime", 40, {}},
        {CmdSetTime(23, 59), "CmdSetTime", 40, {23, 59}},
        {CmdGetDeviceMode(), "CmdGetDeviceMode", 42, {}},
        {CmdSetDeviceMode(1), "CmdSetDeviceMode", 42, {1}},
        {CmdGetSequenceDataInfo(), "CmdGetSequenceDataInfo", 46, {}},
        {CmdGetSequenceData(2, {}), "CmdGetSequenceData", 46, {2}},
        {CmdSetSequenceData(1, std::vector<SequenceEntry>{{8, 30, 254}, {23, 59, 0}}, {}),
         "CmdSetSequenceData",
         44,
         {1, 8, 30, 254, 23, 59, 0}},
        {CmdGetDemoModeTransmitBuffer(), "CmdGetDemoModeTransmitBuffer", 48, {}},
        {CmdEnableDemoMode(), "CmdEnableDemoMode", 48, {1}},
        {CmdDisableDemoMode(), "CmdDisableDemoMode", 48, {0}},
        {CmdSetDemoModeLevels(254, 85), "CmdSetDemoModeLevels", 48, {1, 254, 85}},
        {CmdGetTaskMode(), "CmdGetTaskMode", 50, {}},
        {CmdSetTaskMode(1, 5, 30, 200, 100), "CmdSetTaskMode", 50, {65, 30, 200, 100}},
        {CmdSetTaskMode(4, 16, 256, 0, 0), "CmdSetTaskMode", 50, {255, 255, 0, 0}},
        {CmdSetTaskMode(maxInt, maxInt, maxInt, 0, 0), "CmdSetTaskMode", 50, {255, 255, 0, 0}},
        {CmdGetAnalogMode(), "CmdGetAnalogMode", 52, {}},
        {CmdSetAnalogMode(analog), "CmdSetAnalogMode", 52, {1, 2, 3, 0x80, 2, 1, 4, 3, 6, 5, 8, 7}},
        {CmdGetDeviceSettings(), "CmdGetDeviceSettings", 54, {}},
        {CmdSetDeviceSettings(254, 2, 9, 1), "CmdSetDeviceSettings", 54, {254, 2, 9, 1}},
        {CmdGetRTC(), "CmdGetRTC", 70, {}},
        {CmdSetRTC(8, 15, 30, 24, 12, 2017), "CmdSetRTC", 70, {30, 15, 8, 24, 12, 17}},
        {CmdSetRTC(0, 0, 0, 1, 1, 1999), "CmdSetRTC", 70, {0, 0, 0, 1, 1, 0}},
        {CmdSetRTC(0, 0, 0, 1, 1, 2254), "CmdSetRTC", 70, {0, 0, 0, 1, 1, 254}},
        {CmdSetRTC(0, 0, 0, 1, 1, maxInt), "CmdSetRTC", 70, {0, 0, 0, 1, 1, 255}},
        {CmdGetBufferInfo(), "CmdGetBufferInfo", 72, {}},
        {CmdGetDaylightInfo(), "CmdGetDaylightInfo", 74, {}},
        {CmdSetDaylightInfo(true, -1), "CmdSetDaylightInfo", 74, {0x80, 0xff}},
        {CmdSetDaylightInfo(false, 2), "CmdSetDaylightInfo", 74, {0, 2}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.command.name(), row.name);
        EXPECT_EQ(row.command.id(), row.id) << row.name;
        EXPECT_EQ(row.command.data(), row.payload) << row.name;
        EXPECT_EQ(row.command.expectedAnswer(), row.id + 1) << row.name;
    }
}

TEST(YCommands, limitsTheChannel) {
    const struct {
        int channel;
        std::optional<DeviceInfo> device;
        int sent;
    } rows[] = {
        {3, {}, 3},
        {7, {}, 3},
        {1, device(2, 20), 1},
        {2, device(2, 20), 1},
        {5, device(6, 20), 5},
        {9, device(1, 20), 0},
        {7, device(0, 0), 3}, // the version is known, the limits are not yet
    };
    for (const auto& row : rows) {
        EXPECT_EQ(CmdGetSequenceData(row.channel, row.device).data()[0], row.sent);
        EXPECT_EQ(CmdSetSequenceData(row.channel, {}, row.device).data()[0], row.sent);
    }
    EXPECT_THROW(CmdGetSequenceData(0, device(0, 20)), std::logic_error);
    EXPECT_THROW(CmdSetSequenceData(0, {}, device(0, 20)), std::logic_error);
}

TEST(YCommands, truncatesTheEntries) {
    const std::vector<SequenceEntry> entries(100, {1, 2, 3});
    const struct {
        std::size_t count;
        std::optional<DeviceInfo> device;
        std::size_t sent;
    } rows[] = {
        {20, {}, 20},
        {25, {}, 20},
        {25, device(2, 7), 7},
        {84, device(2, 84), 84},
    };
    for (const auto& row : rows) {
        const CmdSetSequenceData command(0, std::span(entries).first(row.count), row.device);
        EXPECT_EQ(command.data().size(), 1 + 3 * row.sent);
    }
    EXPECT_THROW(CmdSetSequenceData(0, entries, device(2, 85)), YMessageError);
}

} // namespace
