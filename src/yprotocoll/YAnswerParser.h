#pragma once

#include "yprotocoll/YAnswer.h"
#include "yprotocoll/YMessageError.h"

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

/// Receiver of what the parser finds, called from within `YAnswerParser::receivedData`.
class YAnswerParserDelegate {
public:
    virtual void answerParserGotAnswer(std::shared_ptr<const YAnswer> answer) = 0;
    virtual void answerParserGotError(const YMessageError& error) = 0;

protected:
    ~YAnswerParserDelegate() = default;
};

/// Cuts the byte stream from the controller into frames and makes answers of them.
///
/// Knows neither time nor port: it is fed bytes in chunks of any size. It finds its way back after
/// noise by the start byte alone; a 'Y' inside noise counts as a start and costs the length that
/// the false frame announces. The cost is linear in the bytes received.
class YAnswerParser {
public:
    /// More unconsumed bytes than these are thrown away.
    static constexpr std::size_t bufferLimit = 10000;

    /// Without a delegate whole frames are dropped undecoded. It must outlive the parser or be
    /// taken back.
    void setDelegate(YAnswerParserDelegate* delegate) { m_delegate = delegate; }

    /// Never throws and never fails; all problems go to the delegate.
    void receivedData(std::span<const std::uint8_t> bytes);
    /// Forgets an incomplete frame, for a new connection.
    void reset();

private:
    std::span<const std::uint8_t> unread() const;
    /// Handles what stands at the front of the unread bytes; false when more bytes are needed.
    bool consumeFront();
    void skipToStart();
    void process(std::span<const std::uint8_t> frame);
    void report(const YMessageError& error);

    YAnswerParserDelegate* m_delegate = nullptr;
    std::vector<std::uint8_t> m_buffer;
    std::size_t m_readIndex = 0; ///< bytes before it are consumed
};
