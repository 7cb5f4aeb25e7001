#include "yprotocoll/YMessage.h"
#include "yprotocoll/YMessageError.h"

#include <gtest/gtest.h>

namespace {

using Bytes = std::vector<std::uint8_t>;

TEST(YMessage, framesWithStartLengthAndChecksum) {
    EXPECT_EQ(YMessage("CmdGetVersion", 1, {}).frame(), (Bytes{'Y', 1, 0, 1}));
    EXPECT_EQ(YMessage("CmdSetTime", 40, {8, 30}).frame(), (Bytes{'Y', 40, 2, 8, 30, 60}));
    EXPECT_EQ(YMessage("Cmd", 7, Bytes(255)).frame().size(), 259U);
    EXPECT_THROW(YMessage("Cmd", 44, Bytes(256)), YMessageError);
}

} // namespace
