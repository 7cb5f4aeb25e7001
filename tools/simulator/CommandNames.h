#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// Names of the protocol's messages for the log and the status: "CmdGetVersion", "AnswerVersion".
/// Commands that share a number are told apart by their payload's length; a number without a name
/// gives "Cmd<number>" or "Answer<number>".
std::string commandName(std::uint8_t number, std::size_t payloadLength, std::uint8_t firstByte);
std::string answerName(std::uint8_t number, std::size_t payloadLength);
