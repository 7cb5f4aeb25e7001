#include "simulator/CommandNames.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {

struct Topic {
    std::uint8_t command;
    std::string_view get; ///< without payload
    std::string_view set; ///< with payload
    std::string_view answer;
};

constexpr std::array topics{
    Topic{1, "CmdGetVersion", "CmdGetVersion", "AnswerVersion"},
    Topic{40, "CmdGetTime", "CmdSetTime", "AnswerTime"},
    Topic{42, "CmdGetDeviceMode", "CmdSetDeviceMode", "AnswerDeviceMode"},
    Topic{44, "CmdSetSequenceData", "CmdSetSequenceData", "AnswerSequenceData"},
    Topic{46, "CmdGetSequenceDataInfo", "CmdGetSequenceData", "AnswerSequenceData"},
    Topic{48, "CmdSetDemoModeLevels", "CmdSetDemoModeLevels", "AnswerDemoMode"},
    Topic{50, "CmdGetTaskMode", "CmdSetTaskMode", "AnswerTaskMode"},
    Topic{70, "CmdGetRTC", "CmdSetRTC", "AnswerRTC"},
    Topic{74, "CmdGetDaylightInfo", "CmdSetDaylightInfo", "AnswerDaylightInfo"},
};

} // namespace

std::string commandName(std::uint8_t number, std::size_t payloadLength, std::uint8_t firstByte) {
    if (number == 48 && payloadLength == 1)
        return firstByte == 0 ? "CmdDisableDemoMode" : "CmdEnableDemoMode";
    const auto found = std::ranges::find(topics, number, &Topic::command);
    if (found == topics.end())
        return "Cmd" + std::to_string(number);
    return std::string(payloadLength == 0 ? found->get : found->set);
}

std::string answerName(std::uint8_t number, std::size_t payloadLength) {
    if (number == 47 && payloadLength == 3)
        return "AnswerSequenceDataInfo";
    const auto command = static_cast<std::uint8_t>(number - 1U);
    const auto found = std::ranges::find(topics, command, &Topic::command);
    return found == topics.end() ? "Answer" + std::to_string(number) : std::string(found->answer);
}
