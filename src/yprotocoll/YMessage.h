#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

/// One message of the serial protocol: a number and a payload of at most 255 bytes.
///
/// On the wire a message is a frame, one byte each unless stated:
///
///     'Y' | id | length | payload (length bytes) | checksum = XOR of id, length and payload
///
/// Base of `YCommand` (to the controller) and `YAnswer` (from it).
class YMessage {
public:
    static constexpr std::uint8_t startByte = 0x59; ///< 'Y'
    static constexpr std::size_t maxDataLength = 255;
    static constexpr std::size_t frameOverhead = 4; ///< start, id, length, checksum

    /// `name` is the class name, used in error texts and the log.
    /// Throws YMessageError::PacketLength when `data` holds more than 255 bytes.
    YMessage(std::string name, std::uint8_t id, std::vector<std::uint8_t> data);
    virtual ~YMessage() = default;
    YMessage(const YMessage&) = default;
    YMessage& operator=(const YMessage&) = default;
    YMessage(YMessage&&) = default;
    YMessage& operator=(YMessage&&) = default;

    /// Decodes the frame at the start of `bytes`; bytes after its end are ignored.
    /// Throws YMessageError::PacketStart, PacketLength (frame longer than `bytes`) or Checksum.
    static YMessage fromFrame(std::string name, std::span<const std::uint8_t> bytes);

    const std::string& name() const { return m_name; }
    std::uint8_t id() const { return m_id; }
    const std::vector<std::uint8_t>& data() const { return m_data; }

    /// The bytes to put on the wire, `data().size() + 4` of them.
    std::vector<std::uint8_t> frame() const;

    /// Name, number and payload in hexadecimal, for the log: "CmdGetSequenceData #46 [02]".
    std::string description() const;

private:
    std::string m_name;
    std::uint8_t m_id;
    std::vector<std::uint8_t> m_data;
};
