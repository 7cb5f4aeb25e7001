#include "yprotocoll/YCommands.h"

#include "yprotocoll/YBufferWriter.h"

#include <spdlog/spdlog.h>

#include <algorithm>
#include <stdexcept>

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr int defaultHighestChannel = 3;
constexpr std::size_t defaultMaxEntries = 20;
constexpr std::uint8_t topBit = 0x80;

std::uint8_t toByte(int value) {
    return static_cast<std::uint8_t>(std::clamp(value, 0, 255));
}

std::uint8_t limitedChannel(const char* command, int channel,
                            const std::optional<DeviceInfo>& device) {
    const auto count = device ? device->channelCount : std::nullopt;
    if (count && *count <= 0)
        throw std::logic_error("sequence data of a device without channels");
    const int highest = count ? *count - 1 : defaultHighestChannel;
    if (channel <= highest)
        return toByte(channel);
    SPDLOG_WARN(fmt::format("{}.init(): channel set to max = {}", command, highest));
    return toByte(highest);
}

Bytes sequencePayload(int channel, std::span<const SequenceEntry> entries,
                      const std::optional<DeviceInfo>& device) {
    constexpr const char* command = "CmdSetSequenceData";
    YBufferWriter writer;
    writer.writeUInt8(limitedChannel(command, channel, device));
    const auto told = device ? device->maxPointsInSeq : std::nullopt;
    const std::size_t limit =
        told ? static_cast<std::size_t>(std::max(*told, 0)) : defaultMaxEntries;
    if (entries.size() > limit) {
        SPDLOG_WARN(
            fmt::format("{}.init(): sequence data truncated at {} entries", command, limit));
        entries = entries.first(limit);
    }
    for (const SequenceEntry& entry : entries)
        writer.writeUInt8(entry.hour).writeUInt8(entry.minute).writeUInt8(entry.level);
    return writer.data();
}

Bytes analogModePayload(const CmdSetAnalogMode::Settings& settings) {
    YBufferWriter writer;
    writer.writeUInt8(settings.fadeTime)
        .writeUInt8(settings.minLevel)
        .writeUInt8(settings.maxLevel)
        .writeUInt8(settings.logarithmicMode ? topBit : 0)
        .writeUInt16(settings.inOff_mV)
        .writeUInt16(settings.inOn_mV)
        .writeUInt16(settings.inMax_mV)
        .writeUInt16(settings.in100perc_mV);
    return writer.data();
}

std::uint8_t yearByte(int year) {
    constexpr int firstYear = 2000;
    return year < firstYear ? std::uint8_t{0} : toByte(std::min(year, firstYear + 255) - firstYear);
}

/// Whole minutes of any duration an int can hold, without overflow.
std::uint8_t minutesByte(int hours, int minutes) {
    const auto total = std::int64_t{hours} * 60 + minutes;
    return static_cast<std::uint8_t>(std::clamp<std::int64_t>(total, 0, 255));
}

} // namespace

CmdGetVersion::CmdGetVersion() : YCommand("CmdGetVersion", 1, {}) {}

CmdGetProductInfo::CmdGetProductInfo() : YCommand("CmdGetProductInfo", 3, {}) {}

CmdGetDebugInfo::CmdGetDebugInfo() : YCommand("CmdGetDebugInfo", 32, {}) {}

CmdSetDebugTxRxDALI::CmdSetDebugTxRxDALI(std::uint8_t address, std::uint8_t command)
    : YCommand("CmdSetDebugTxRxDALI", 34, {address, command}) {}

CmdGetTime::CmdGetTime() : YCommand("CmdGetTime", 40, {}) {}

CmdSetTime::CmdSetTime(std::uint8_t hour, std::uint8_t minute)
    : YCommand("CmdSetTime", 40, {hour, minute}) {}

CmdGetDeviceMode::CmdGetDeviceMode() : YCommand("CmdGetDeviceMode", 42, {}) {}

CmdSetDeviceMode::CmdSetDeviceMode(std::uint8_t mode) : YCommand("CmdSetDeviceMode", 42, {mode}) {}

CmdGetSequenceDataInfo::CmdGetSequenceDataInfo() : YCommand("CmdGetSequenceDataInfo", 46, {}) {}

CmdGetSequenceData::CmdGetSequenceData(int channel, const std::optional<DeviceInfo>& device)
    : YCommand("CmdGetSequenceData", 46, {limitedChannel("CmdGetSequenceData", channel, device)}) {}

CmdSetSequenceData::CmdSetSequenceData(int channel, std::span<const SequenceEntry> entries,
                                       const std::optional<DeviceInfo>& device)
    : YCommand("CmdSetSequenceData", 44, sequencePayload(channel, entries, device)) {}

CmdGetDemoModeTransmitBuffer::CmdGetDemoModeTransmitBuffer()
    : YCommand("CmdGetDemoModeTransmitBuffer", 48, {}) {}

CmdEnableDemoMode::CmdEnableDemoMode() : YCommand("CmdEnableDemoMode", 48, {1}) {}

CmdDisableDemoMode::CmdDisableDemoMode() : YCommand("CmdDisableDemoMode", 48, {0}) {}

CmdSetDemoModeLevels::CmdSetDemoModeLevels(std::uint8_t cold, std::uint8_t warm)
    : YCommand("CmdSetDemoModeLevels", 48, {1, cold, warm}) {}

CmdGetTaskMode::CmdGetTaskMode() : YCommand("CmdGetTaskMode", 50, {}) {}

CmdSetTaskMode::CmdSetTaskMode(int hours, int minutes, int seconds, std::uint8_t cold,
                               std::uint8_t warm)
    : YCommand("CmdSetTaskMode", 50, {minutesByte(hours, minutes), toByte(seconds), cold, warm}) {}

CmdGetAnalogMode::CmdGetAnalogMode() : YCommand("CmdGetAnalogMode", 52, {}) {}

CmdSetAnalogMode::CmdSetAnalogMode(const Settings& settings)
    : YCommand("CmdSetAnalogMode", 52, analogModePayload(settings)) {}

CmdGetDeviceSettings::CmdGetDeviceSettings() : YCommand("CmdGetDeviceSettings", 54, {}) {}

CmdSetDeviceSettings::CmdSetDeviceSettings(std::uint8_t firstAddress, std::uint8_t secondAddress,
                                           std::uint8_t sequenceFadeTime,
                                           std::uint8_t minOnOutLevel)
    : YCommand("CmdSetDeviceSettings", 54,
               {firstAddress, secondAddress, sequenceFadeTime, minOnOutLevel}) {}

CmdGetRTC::CmdGetRTC() : YCommand("CmdGetRTC", 70, {}) {}

CmdSetRTC::CmdSetRTC(int hour, int minute, int second, int day, int month, int year)
    : YCommand("CmdSetRTC", 70,
               {toByte(second), toByte(minute), toByte(hour), toByte(day), toByte(month),
                yearByte(year)}) {}

CmdGetBufferInfo::CmdGetBufferInfo() : YCommand("CmdGetBufferInfo", 72, {}) {}

CmdGetDaylightInfo::CmdGetDaylightInfo() : YCommand("CmdGetDaylightInfo", 74, {}) {}

CmdSetDaylightInfo::CmdSetDaylightInfo(bool enabled, std::int8_t utcOffset)
    : YCommand("CmdSetDaylightInfo", 74,
               {enabled ? topBit : std::uint8_t{0}, static_cast<std::uint8_t>(utcOffset)}) {}
