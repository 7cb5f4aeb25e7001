#include "yprotocoll/YAnswerParser.h"

#include <algorithm>

void YAnswerParser::receivedData(std::span<const std::uint8_t> bytes) {
    m_buffer.insert(m_buffer.end(), bytes.begin(), bytes.end());
    while (consumeFront()) {
    }
    // Once per chunk: erasing each frame by itself would move a long rest again and again.
    m_buffer.erase(m_buffer.begin(), m_buffer.begin() + static_cast<std::ptrdiff_t>(m_readIndex));
    m_readIndex = 0;
    // A guard only: whole frames are consumed, and the longest frame is far below the limit.
    if (m_buffer.size() > bufferLimit) {
        m_buffer.clear();
        report(YMessageError::BufferOverflow{});
    }
}

void YAnswerParser::reset() {
    m_buffer.clear();
    m_readIndex = 0;
}

std::span<const std::uint8_t> YAnswerParser::unread() const {
    return std::span(m_buffer).subspan(m_readIndex);
}

bool YAnswerParser::consumeFront() {
    constexpr std::size_t lengthOffset = 2;
    const auto bytes = unread();
    if (bytes.size() < YMessage::frameOverhead)
        return false;
    // Noise is skipped at once: the byte that stands at the length's place in it is no length, and
    // waiting for that many bytes would hold back the answer that follows.
    if (bytes[0] != YMessage::startByte) {
        skipToStart();
        report(YMessageError::PacketStart{});
        return true;
    }
    const std::size_t length = bytes[lengthOffset] + YMessage::frameOverhead;
    if (bytes.size() < length)
        return false;
    m_readIndex += length;
    if (m_delegate)
        process(bytes.first(length));
    return true;
}

/// Drops bytes up to the next start byte; the last byte stays, whatever it is.
void YAnswerParser::skipToStart() {
    const auto bytes = unread();
    const auto start = std::find(bytes.begin() + 1, bytes.end() - 1, YMessage::startByte);
    m_readIndex += static_cast<std::size_t>(start - bytes.begin());
}

void YAnswerParser::process(std::span<const std::uint8_t> frame) {
    std::shared_ptr<const YAnswer> answer;
    try {
        answer = YAnswer::fromFrame(frame);
    } catch (const YMessageError& error) {
        report(error);
        return;
    }
    m_delegate->answerParserGotAnswer(std::move(answer));
}

void YAnswerParser::report(const YMessageError& error) {
    if (m_delegate)
        m_delegate->answerParserGotError(error);
}
