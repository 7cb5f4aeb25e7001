#include "yprotocoll/YMessage.h"
#include "yprotocoll/YBufferReader.h"
#include "yprotocoll/YBufferWriter.h"
#include "yprotocoll/YMessageError.h"

#include <gtest/gtest.h>

#include <array>

namespace {

using Bytes = std::vector<std::uint8_t>;

YMessageError decodingError(const Bytes& bytes) {
    try {
        YMessage::fromFrame("Answer", bytes);
    } catch (const YMessageError& error) {
        return error;
    }
    return YMessageError::PortRemoved{};
}

TEST(YMessage, framesWithStartLengthAndChecksum) {
    EXPECT_EQ(YMessage("CmdGetVersion", 1, {}).frame(), (Bytes{'Y', 1, 0, 1}));
    EXPECT_EQ(YMessage("CmdEnableDemoMode", 48, {1}).frame(), (Bytes{'Y', 48, 1, 1, 48}));

    const YMessage longest("Cmd", 7, Bytes(255, 0xa5));
    const Bytes frame = longest.frame();
    EXPECT_EQ(frame.size(), 259U);
    EXPECT_EQ(YMessage::fromFrame("Cmd", frame).data(), longest.data());
}

TEST(YMessage, refusesMoreThan255Bytes) {
    try {
        YMessage("CmdSetSequenceData", 44, Bytes(300));
        FAIL();
    } catch (const YMessageError& error) {
        EXPECT_EQ(error.description(), "CmdSetSequenceData: wrong packet length: 300");
    }
    EXPECT_THROW(YMessage("Cmd", 44, Bytes(256)), YMessageError);
}

TEST(YMessage, everyAlteredBitIsFound) {
    const Bytes good = YMessage("Answer", 47, {2, 20, 3}).frame();
    for (std::size_t index = 0; index < good.size(); ++index) {
        for (unsigned bit = 0; bit < 8; ++bit) {
            Bytes bad = good;
            bad[index] = static_cast<std::uint8_t>(bad[index] ^ (1U << bit));
            const YMessageError error = decodingError(bad);
            if (index == 0)
                EXPECT_TRUE(error.is<YMessageError::PacketStart>());
            else if (bad[2] > good[2])
                EXPECT_TRUE(error.is<YMessageError::PacketLength>());
            else
                EXPECT_TRUE(error.is<YMessageError::Checksum>()) << index << ':' << bit;
        }
    }
}

TEST(YMessage, decodesOnlyTheFirstFrame) {
    Bytes bytes = YMessage("Answer", 2, {1, 4, 17}).frame();
    bytes.insert(bytes.end(), {'Y', 9, 9});
    const YMessage message = YMessage::fromFrame("Answer", bytes);
    EXPECT_EQ(message.id(), 2);
    EXPECT_EQ(message.data(), (Bytes{1, 4, 17}));
    EXPECT_TRUE(decodingError({}).is<YMessageError::PacketStart>());
    EXPECT_EQ(decodingError({'Y', 2, 9, 0, 0}).description(), "Answer: wrong packet length: 5");
}

TEST(YBufferReader, mixesByteOrdersAndKeepsItsErrorFlag) {
    const std::array<std::uint8_t, 7> bytes{0x34, 0x12, 1, 2, 3, 4, 0xff};
    YBufferReader reader(bytes);
    EXPECT_EQ(reader.readUInt16(), 0x1234);
    EXPECT_EQ(reader.readUInt32(), 16909060U);
    EXPECT_EQ(reader.readInt8(), -1);
    EXPECT_FALSE(reader.error());
    EXPECT_EQ(reader.readUInt8(), 0);
    EXPECT_TRUE(reader.error());

    YBufferReader shorter{std::span(bytes).first(3)};
    EXPECT_EQ(shorter.readUInt32(), 0U);
    EXPECT_TRUE(shorter.error());
    EXPECT_EQ(shorter.readUInt16(), 0x1234);
    EXPECT_TRUE(shorter.error());
}

TEST(YBufferWriter, matchesTheReader) {
    YBufferWriter writer;
    writer.writeUInt16(0x1234).writeUInt32(16909060).writeUInt8(7);
    EXPECT_EQ(writer.data(), (Bytes{0x34, 0x12, 1, 2, 3, 4, 7}));
}

} // namespace
