#include "yprotocoll/YMessage.h"

#include "yprotocoll/YMessageError.h"

#include <spdlog/fmt/fmt.h>

#include <functional>
#include <numeric>

namespace {

constexpr std::size_t idOffset = 1;
constexpr std::size_t lengthOffset = 2;
constexpr std::size_t dataOffset = 3;

std::uint8_t exclusiveOr(std::span<const std::uint8_t> bytes) {
    return std::accumulate(bytes.begin(), bytes.end(), std::uint8_t{0}, std::bit_xor<>{});
}

} // namespace

YMessage::YMessage(std::string name, std::uint8_t id, std::vector<std::uint8_t> data)
    : m_name(std::move(name)), m_id(id), m_data(std::move(data)) {
    if (m_data.size() > maxDataLength)
        throw YMessageError(YMessageError::PacketLength{m_name, static_cast<int>(m_data.size())});
}

YMessage YMessage::fromFrame(std::string name, std::span<const std::uint8_t> bytes) {
    if (bytes.empty() || bytes[0] != startByte)
        throw YMessageError(YMessageError::PacketStart{});
    // The parser never hands over fewer than four bytes; a shorter array cannot hold a frame.
    const std::size_t total =
        bytes.size() < frameOverhead ? frameOverhead : bytes[lengthOffset] + frameOverhead;
    if (total > bytes.size())
        throw YMessageError(
            YMessageError::PacketLength{std::move(name), static_cast<int>(bytes.size())});
    const auto checked = bytes.subspan(idOffset, total - idOffset);
    if (exclusiveOr(checked) != 0)
        throw YMessageError(YMessageError::Checksum{});
    const auto payload = bytes.subspan(dataOffset, total - frameOverhead);
    return {std::move(name), bytes[idOffset], {payload.begin(), payload.end()}};
}

std::vector<std::uint8_t> YMessage::frame() const {
    std::vector<std::uint8_t> bytes{startByte, m_id, static_cast<std::uint8_t>(m_data.size())};
    bytes.reserve(m_data.size() + frameOverhead);
    bytes.insert(bytes.end(), m_data.begin(), m_data.end());
    bytes.push_back(exclusiveOr(std::span(bytes).subspan(idOffset)));
    return bytes;
}

std::string YMessage::description() const {
    return fmt::format("{} #{} [{:02x}]", m_name, m_id, fmt::join(m_data, " "));
}
