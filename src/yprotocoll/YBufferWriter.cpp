#include "yprotocoll/YBufferWriter.h"

YBufferWriter& YBufferWriter::writeUInt8(std::uint8_t value) {
    m_data.push_back(value);
    return *this;
}

YBufferWriter& YBufferWriter::writeUInt16(std::uint16_t value) {
    return writeUInt8(static_cast<std::uint8_t>(value & 0xffU))
        .writeUInt8(static_cast<std::uint8_t>(value >> 8U));
}

YBufferWriter& YBufferWriter::writeBytes(std::span<const std::uint8_t> bytes) {
    m_data.insert(m_data.end(), bytes.begin(), bytes.end());
    return *this;
}
