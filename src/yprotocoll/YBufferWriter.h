#pragma once

#include <cstdint>
#include <span>
#include <vector>

/// Builds the payload of a command field by field, with the byte order of `YBufferReader`:
/// 16-bit fields are little-endian. Returns itself, so calls can be chained.
class YBufferWriter {
public:
    YBufferWriter& writeUInt8(std::uint8_t value);
    YBufferWriter& writeUInt16(std::uint16_t value);
    YBufferWriter& writeBytes(std::span<const std::uint8_t> bytes);

    const std::vector<std::uint8_t>& data() const { return m_data; }

private:
    std::vector<std::uint8_t> m_data;
};
