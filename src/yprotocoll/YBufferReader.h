#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

/// Reads the fields of an answer's payload one after another.
///
/// 16-bit fields are little-endian, 32-bit fields big-endian: the controller mixes them.
/// A read past the end returns 0, sets `error()` for good and leaves the index where it was, so
/// that a decoder reads all its fields and asks `error()` once at the end.
class YBufferReader {
public:
    /// Does not own the bytes; they must outlive the reader.
    explicit YBufferReader(std::span<const std::uint8_t> data) : m_data(data) {}

    std::uint8_t readUInt8();
    std::int8_t readInt8();
    std::uint16_t readUInt16();
    std::uint32_t readUInt32();

    std::size_t readIndex() const { return m_readIndex; }
    std::size_t bytesLeft() const { return m_data.size() - m_readIndex; }
    bool error() const { return m_error; }

private:
    /// The next `count` bytes, or an empty span (and `error()` set) when fewer are left.
    std::span<const std::uint8_t> take(std::size_t count);

    std::span<const std::uint8_t> m_data;
    std::size_t m_readIndex = 0;
    bool m_error = false;
};
