#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

/// Hands out the fuzzer's input piece by piece; what is missing reads as zero. The pieces stand in
/// the order of the calls, so that tests/fuzz/make-corpus can write them down.
class ByteFeed {
public:
    ByteFeed(const std::uint8_t* data, std::size_t size) : m_rest(data, size) {}

    std::uint8_t byte() {
        const auto one = bytes(1);
        return one.empty() ? std::uint8_t{0} : one[0];
    }
    /// At most `count` bytes.
    std::span<const std::uint8_t> bytes(std::size_t count) {
        const auto taken = m_rest.first(std::min(count, m_rest.size()));
        m_rest = m_rest.subspan(taken.size());
        return taken;
    }
    std::span<const std::uint8_t> rest() { return bytes(m_rest.size()); }
    bool isEmpty() const { return m_rest.empty(); }

private:
    std::span<const std::uint8_t> m_rest;
};
