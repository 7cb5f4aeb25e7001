#include "yprotocoll/YMessage.h"
#include "yprotocoll/YMessageError.h"

#include <gtest/gtest.h>

namespace {

using Bytes = std::vector<std::uint8_t>;
using E = YMessageError;

TEST(YMessage, framesWithStartLengthAndChecksum) {
    EXPECT_EQ(YMessage("CmdGetVersion", 1, {}).frame(), (Bytes{'Y', 1, 0, 1}));
    EXPECT_EQ(YMessage("CmdSetTime", 40, {8, 30}).frame(), (Bytes{'Y', 40, 2, 8, 30, 60}));
    EXPECT_EQ(YMessage("Cmd", 7, Bytes(255)).frame().size(), 259U);
    EXPECT_THROW(YMessage("Cmd", 44, Bytes(256)), YMessageError);
}

// These texts reach the person and are compared by other programs' logs: each is fixed.
TEST(YMessageError, describesEveryKind) {
    const std::pair<E, const char*> texts[] = {
        {E::PortWrongType{"ttyS0"}, "port ttyS0 is no Aquelon device"},
        {E::PortError{"Permission denied", {}}, "port error: Permission denied"},
        {E::DeviceVersion{1, 0}, "unsupported device version 1.0"},
        {E::UnknownPacket{3}, "unknown answer #3"},
        {E::PacketLength{"AnswerRTC", 5}, "AnswerRTC: wrong packet length: 5"},
        {E::AnswerUnexpected{47}, "got an unrequested answer #47"},
        {E::AnswerWrongId{2, 4}, "answer not matching: expected #2 got #4"},
        {E::AnswerTimeout{3, 46}, "timeout 3: no answer for command #46"},
        {E::PortClosedSend{}, "cannot send: port is closed"},
        {E::PortClosedUnexpectedly{}, "port was closed unexpectedly"},
        {E::PortRemoved{}, "port was removed"},
        {E::SequenceDataFormat{}, "unsupported sequence data format"},
        {E::PacketStart{}, "packet must start with 'Y'"},
        {E::Checksum{}, "checksum doesn't match"},
        {E::BufferOverflow{}, "buffer overflow"},
        {E::OpenTimeout{}, "timeout while trying to open device"},
        {E::AnswerTooManyTimeouts{}, "too many timeouts while trying to send"},
    };
    for (const auto& [error, text] : texts) {
        EXPECT_EQ(error.description(), text);
        EXPECT_EQ(E::portClosed(error).description(), std::string("port closed: ") + text);
    }
}

} // namespace
