#pragma once

#include "yprotocoll/DeviceInfo.h"
#include "yprotocoll/SequenceEntry.h"
#include "yprotocoll/YCommand.h"

#include <optional>
#include <span>

// The commands, one class each. Numbers that appear twice belong to a "get" without payload and a
// "set" with the new values; the controller answers both alike. Bytes are sent as they are given
// unless a class says otherwise.

/// #1, answered by AnswerVersion.
class CmdGetVersion : public YCommand {
public:
    CmdGetVersion();
};

/// #3, answered by AnswerProductInfo.
class CmdGetProductInfo : public YCommand {
public:
    CmdGetProductInfo();
};

/// #32, answered by AnswerDebugInfo.
class CmdGetDebugInfo : public YCommand {
public:
    CmdGetDebugInfo();
};

/// #34, answered by AnswerDebugTxRxDALI: sends one forward frame on the DALI bus.
class CmdSetDebugTxRxDALI : public YCommand {
public:
    CmdSetDebugTxRxDALI(std::uint8_t address, std::uint8_t command);
};

/// #40, answered by AnswerTime.
class CmdGetTime : public YCommand {
public:
    CmdGetTime();
};

/// #40, answered by AnswerTime.
class CmdSetTime : public YCommand {
public:
    CmdSetTime(std::uint8_t hour, std::uint8_t minute);
};

/// #42, answered by AnswerDeviceMode.
class CmdGetDeviceMode : public YCommand {
public:
    CmdGetDeviceMode();
};

/// #42, answered by AnswerDeviceMode. Mode 1 runs the light program, 0 follows the analog input.
class CmdSetDeviceMode : public YCommand {
public:
    explicit CmdSetDeviceMode(std::uint8_t mode);
};

/// #46 without payload, answered by AnswerSequenceDataInfo.
class CmdGetSequenceDataInfo : public YCommand {
public:
    CmdGetSequenceDataInfo();
};

/// #46, answered by AnswerSequenceData (#47).
class CmdGetSequenceData : public YCommand {
public:
    /// A channel above the device's last one (above 3 while the device has not told) becomes the
    /// last one, with a warning in the log. Throws std::logic_error for a device without channels.
    CmdGetSequenceData(int channel, const std::optional<DeviceInfo>& device);
};

/// #44, answered by AnswerSequenceData.
class CmdSetSequenceData : public YCommand {
public:
    /// Limits the channel as CmdGetSequenceData does, and the entries to the device's maximum (20
    /// while the device has not told); both with a warning in the log. Throws std::logic_error for
    /// a device without channels and YMessageError::PacketLength for a payload over 255 bytes.
    CmdSetSequenceData(int channel, std::span<const SequenceEntry> entries,
                       const std::optional<DeviceInfo>& device);
};

/// #48 without payload, answered by AnswerDemoModeTransmitBuffer.
class CmdGetDemoModeTransmitBuffer : public YCommand {
public:
    CmdGetDemoModeTransmitBuffer();
};

/// #48, answered by AnswerDemoMode: the lamp shows the levels sent to it instead of its program.
class CmdEnableDemoMode : public YCommand {
public:
    CmdEnableDemoMode();
};

/// #48, answered by AnswerDemoMode: the lamp goes back to its program.
class CmdDisableDemoMode : public YCommand {
public:
    CmdDisableDemoMode();
};

/// #48, answered by AnswerDemoMode: levels to show at once, on the dimming curve.
class CmdSetDemoModeLevels : public YCommand {
public:
    CmdSetDemoModeLevels(std::uint8_t cold, std::uint8_t warm);
};

/// #50, answered by AnswerTaskMode.
class CmdGetTaskMode : public YCommand {
public:
    CmdGetTaskMode();
};

/// #50, answered by AnswerTaskMode.
class CmdSetTaskMode : public YCommand {
public:
    /// Duration of the task light; sent as whole minutes and seconds, each limited to 0...255.
    /// Levels on the dimming curve.
    CmdSetTaskMode(int hours, int minutes, int seconds, std::uint8_t cold, std::uint8_t warm);
};

/// #52, answered by AnswerAnalogMode.
class CmdGetAnalogMode : public YCommand {
public:
    CmdGetAnalogMode();
};

/// #52, answered by AnswerAnalogMode; the fields are those of the answer, levels as raw bytes.
class CmdSetAnalogMode : public YCommand {
public:
    struct Settings {
        std::uint8_t fadeTime = 0;
        std::uint8_t minLevel = 0;
        std::uint8_t maxLevel = 0;
        bool logarithmicMode = false;
        std::uint16_t inOff_mV = 0;
        std::uint16_t inOn_mV = 0;
        std::uint16_t inMax_mV = 0;
        std::uint16_t in100perc_mV = 0;
    };
    explicit CmdSetAnalogMode(const Settings& settings);
};

/// #54, answered by AnswerDeviceSettings.
class CmdGetDeviceSettings : public YCommand {
public:
    CmdGetDeviceSettings();
};

/// #54, answered by AnswerDeviceSettings; addresses as DALI address bytes, the level as raw byte.
class CmdSetDeviceSettings : public YCommand {
public:
    CmdSetDeviceSettings(std::uint8_t firstAddress, std::uint8_t secondAddress,
                         std::uint8_t sequenceFadeTime, std::uint8_t minOnOutLevel);
};

/// #70, answered by AnswerRTC.
class CmdGetRTC : public YCommand {
public:
    CmdGetRTC();
};

/// #70, answered by AnswerRTC.
class CmdSetRTC : public YCommand {
public:
    /// Local wall time. The controller's clock holds years 2000...2255: an earlier year is sent as
    /// 2000, a later one as 2255.
    CmdSetRTC(int hour, int minute, int second, int day, int month, int year);
};

/// #72, answered by AnswerBufferInfo.
class CmdGetBufferInfo : public YCommand {
public:
    CmdGetBufferInfo();
};

/// #74, answered by AnswerDaylightInfo.
class CmdGetDaylightInfo : public YCommand {
public:
    CmdGetDaylightInfo();
};

/// #74, answered by AnswerDaylightInfo.
class CmdSetDaylightInfo : public YCommand {
public:
    /// Daylight saving switched automatically or not; `utcOffset` in hours.
    CmdSetDaylightInfo(bool enabled, std::int8_t utcOffset);
};
