#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <vector>

using Bytes = std::vector<std::uint8_t>;
using View = std::span<const std::uint8_t>;

/// What must hold for every input. A breach ends the process, which the fuzzer takes for a finding
/// and keeps the input.
inline void require(bool holds, const char* what) {
    if (holds)
        return;
    std::fprintf(stderr, "broken promise: %s\n", what);
    std::abort();
}

/// Hands out the fuzzer's input piece by piece; what is missing reads as zero. The pieces stand in
/// the order of the calls, so that tests/fuzz/make-corpus can write them down.
class ByteFeed {
public:
    ByteFeed(const std::uint8_t* data, std::size_t size) : m_rest(data, size) {}

    std::uint8_t byte() {
        const View one = bytes(1);
        return one.empty() ? std::uint8_t{0} : one[0];
    }
    /// At most `count` bytes.
    View bytes(std::size_t count) {
        const View taken = m_rest.first(std::min(count, m_rest.size()));
        m_rest = m_rest.subspan(taken.size());
        return taken;
    }
    View rest() { return bytes(m_rest.size()); }
    bool isEmpty() const { return m_rest.empty(); }

private:
    View m_rest;
};
