#pragma once

#include "yprotocoll/DeviceInfo.h"
#include "yprotocoll/SequenceEntry.h"
#include "yprotocoll/YAnswer.h"

#include <array>

// The answers, one class each, with the fields of their payload. Units that are not named are the
// controller's own and kept raw. Objects are made by `YAnswer::fromFrame` and `YAnswer::create`;
// the order and the encoding of the fields on the wire are in the tables of YAnswers.cpp.

/// A light level: the byte on the dimming curve and the linear share it stands for, 0.0...1.0.
struct AnswerLevel {
    std::uint8_t raw = 0;
    double share = 0.0;
};

/// A DALI address of the controller's outputs.
struct AnswerAddress {
    std::uint8_t number = 0; ///< 0...15 for a group, 0...63 for a single ballast
    bool isGroup = false;
    bool isAll = false; ///< broadcast; the other two mean nothing then
};

/// #2
struct AnswerVersion : YAnswer {
    using YAnswer::YAnswer;

    DeviceVersion version;
    std::uint8_t build = 0;
    std::uint8_t deviceType = 0; ///< 0 when the controller does not tell
};

/// #4
struct AnswerProductInfo : YAnswer {
    using YAnswer::YAnswer;

    std::uint8_t week = 0; ///< of the year of manufacture
    std::uint16_t year = 0;
    std::uint8_t pcbVersion = 0;
    std::uint8_t assemblyVersion = 0;
    std::uint32_t serialNumber = 0;
};

/// #33
struct AnswerDebugInfo : YAnswer {
    using YAnswer::YAnswer;

    std::uint8_t status = 0;
    std::uint16_t URef_dig = 0;
    std::uint16_t UInA_dig = 0;
    std::uint16_t UInB_dig = 0;
    std::uint16_t URef_mV = 0;
    std::uint16_t UInA_mV = 0;
    std::uint16_t UInB_mV = 0;
    std::uint8_t seconds = 0;
    std::uint8_t minutes = 0;
    std::uint8_t hours = 0;
    std::uint8_t day = 0;
    std::uint8_t month = 0;
    std::uint16_t year = 0;
    std::uint8_t weekDay = 0;
    bool isLeapYear = false;
    std::uint16_t appTimeDiv_1_10V = 0;
    std::uint16_t appTaskModeTimeout = 0;
    std::uint16_t appFilteredAvg1 = 0;
    std::uint16_t appFilteredAvg2 = 0;
    std::uint16_t appDemoModeTimeout = 0;
};

/// #35
struct AnswerDebugTxRxDALI : YAnswer {
    using YAnswer::YAnswer;

    std::uint8_t status = 0;
    std::uint8_t answer = 0;
};

/// #41
struct AnswerTime : YAnswer {
    using YAnswer::YAnswer;

    std::uint8_t hour = 0;
    std::uint8_t minute = 0;
};

/// #43
struct AnswerDeviceMode : YAnswer {
    using YAnswer::YAnswer;

    /// Else the lamp follows its analog input.
    bool isProgramMode() const { return mode != 0; }

    std::uint8_t mode = 0;
    bool demoModeActive = false;
    bool taskModeActive = false;
    std::array<AnswerLevel, 2> levels; ///< cold, warm
};

/// #45, and #47 with a payload of any length but 3
struct AnswerSequenceData : YAnswer {
    using YAnswer::YAnswer;

    std::uint8_t channel = 0;
    std::vector<SequenceEntry> seqData; ///< whole entries only
};

/// #47 with a payload of exactly 3 bytes
struct AnswerSequenceDataInfo : YAnswer {
    using YAnswer::YAnswer;

    std::uint8_t channelCount = 0;
    std::uint8_t maxPoints = 0;   ///< most entries per channel
    std::uint8_t sizeOfEntry = 0; ///< bytes; this program speaks 3
};

/// #49 with a payload of exactly 1 byte
struct AnswerDemoModeTransmitBuffer : YAnswer {
    using YAnswer::YAnswer;

    std::uint8_t freeBlocks = 0;
};

/// #49 with a payload of any length but 1
struct AnswerDemoMode : AnswerDeviceMode {
    using AnswerDeviceMode::AnswerDeviceMode;
};

/// #51
struct AnswerTaskMode : YAnswer {
    using YAnswer::YAnswer;

    std::uint8_t minutes = 0;
    std::uint8_t seconds = 0;
    std::array<AnswerLevel, 2> levels; ///< cold, warm
    std::uint8_t fadeTime = 0;
};

/// #53
struct AnswerAnalogMode : YAnswer {
    using YAnswer::YAnswer;

    std::uint8_t fadeTime = 0;
    AnswerLevel minLevel;
    AnswerLevel maxLevel;
    bool logarithmicMode = false;
    std::uint16_t inOff_mV = 0;
    std::uint16_t inOn_mV = 0;
    std::uint16_t inMax_mV = 0;
    std::uint16_t in100perc_mV = 0;
};

/// #55
struct AnswerDeviceSettings : YAnswer {
    using YAnswer::YAnswer;

    std::array<AnswerAddress, 2> addresses;
    std::uint8_t sequenceFadeTime = 0;
    AnswerLevel minOnOutLevel;
};

/// #71
struct AnswerRTC : YAnswer {
    using YAnswer::YAnswer;

    std::uint8_t second = 0;
    std::uint8_t minute = 0;
    std::uint8_t hour = 0;
    std::uint8_t day = 0;
    std::uint8_t month = 0;
    std::uint16_t year = 0; ///< 2000...2255
};

/// #73
struct AnswerBufferInfo : YAnswer {
    using YAnswer::YAnswer;

    std::uint8_t bufferSize = 0;
    std::uint8_t bufferFree = 0;
};

/// #75
struct AnswerDaylightInfo : YAnswer {
    using YAnswer::YAnswer;

    bool enabled = false;
    bool summerTime = false;
    std::int8_t UTCOffset = 0;
};
