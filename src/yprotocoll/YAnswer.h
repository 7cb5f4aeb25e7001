#pragma once

#include "yprotocoll/YMessage.h"

#include <memory>
#include <span>
#include <string>
#include <vector>

/// One stored field of an answer for the log: its name and its value as plain text.
struct AnswerField {
    std::string label;
    std::string value;
    bool operator==(const AnswerField&) const = default;
};

/// A decoded message from the controller, immutable once made. The classes of the single answers
/// are in YAnswers.h; a receiver asks for the one it expects with `dynamic_cast`.
class YAnswer : public YMessage {
public:
    /// Decodes the frame at the start of `bytes` into the answer class of its number (for #47 and
    /// #49 the payload's length decides too). Surplus payload bytes are ignored.
    /// Throws YMessageError: PacketStart, PacketLength, Checksum for the frame, UnknownPacket for a
    /// number without a class, PacketLength for a payload too short for the class.
    static std::shared_ptr<const YAnswer> fromFrame(std::span<const std::uint8_t> bytes);
    /// The same from a number and a payload, UnknownPacket and PacketLength only.
    static std::shared_ptr<const YAnswer> create(std::uint8_t id,
                                                 std::vector<std::uint8_t> payload);

    /// Every stored field, in the order of the wire.
    virtual std::vector<AnswerField> fields() const = 0;
    /// Writes the fields to the log, one trace line each: "    - second: 30".
    void logVerbose() const;

protected:
    using YMessage::YMessage;
};
