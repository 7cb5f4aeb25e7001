#include "simulator/FaultPlan.h"

#include <gtest/gtest.h>

namespace {

using Bytes = std::vector<std::uint8_t>;

const YMessage command("CmdGetVersion", 1, {});
const YMessage answer("AnswerVersion", 2, {1, 4, 17, 1});

Bytes answerWith(const std::string& text) {
    FaultPlan plan;
    plan.add(Fault::parse(text).value());
    Bytes bytes;
    for (const LinePiece& piece : plan.apply(plan.take(command.id()), command, answer).pieces)
        bytes.insert(bytes.end(), piece.bytes.begin(), piece.bytes.end());
    return bytes;
}

TEST(FaultPlan, changesTheBytes) {
    const Bytes good = answer.frame();
    const struct {
        std::string fault;
        Bytes bytes;
    } cases[] = {
        {"longer=1", {'Y', 2, 5, 1, 4, 17, 1, 0, 18}},
        {"false-start=9", {'Y', 7, 9, 'Y', 2, 4, 1, 4, 17, 1, 19}},
        {"echo", {'Y', 1, 0, 1, 'Y', 2, 4, 1, 4, 17, 1, 19}},
        {"twice", {'Y', 2, 4, 1, 4, 17, 1, 19, 'Y', 2, 4, 1, 4, 17, 1, 19}},
        {"unasked=43", {'Y', 2, 4, 1, 4, 17, 1, 19, 'Y', 43, 3, 1, 0, 0, 41}},
        {"dribble", good},
        {"split=3", good},
    };
    for (const auto& c : cases)
        EXPECT_EQ(answerWith(c.fault), c.bytes) << c.fault;
    EXPECT_EQ(answerWith("flood=1000").size(), good.size() + 7000);
}

} // namespace
