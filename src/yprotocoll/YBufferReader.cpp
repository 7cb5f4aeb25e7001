#include "yprotocoll/YBufferReader.h"

std::span<const std::uint8_t> YBufferReader::take(std::size_t count) {
    if (bytesLeft() < count) {
        m_error = true;
        return {};
    }
    const auto bytes = m_data.subspan(m_readIndex, count);
    m_readIndex += count;
    return bytes;
}

std::uint8_t YBufferReader::readUInt8() {
    const auto bytes = take(1);
    return bytes.empty() ? std::uint8_t{0} : bytes[0];
}

std::int8_t YBufferReader::readInt8() {
    return static_cast<std::int8_t>(readUInt8());
}

std::uint16_t YBufferReader::readUInt16() {
    const auto bytes = take(2);
    return bytes.empty() ? std::uint16_t{0}
                         : static_cast<std::uint16_t>(bytes[0] | (bytes[1] << 8U));
}

std::uint32_t YBufferReader::readUInt32() {
    std::uint32_t value = 0;
    for (const std::uint8_t byte : take(4))
        value = (value << 8U) | byte;
    return value;
}
