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

TEST(FaultPlan, countsAnswersFromTheirAddition) {
    FaultPlan plan;
    plan.take(1);
    plan.add(Fault::parse("silence@2..3").value());
    plan.add(Fault::parse("delay#46@2").value());
    std::vector<std::size_t> held;
    for (const std::uint8_t number : Bytes{1, 46, 1, 46, 46})
        held.push_back(plan.take(number).size());
    EXPECT_EQ(held, (std::vector<std::size_t>{0, 1, 1, 1, 0}));
}

TEST(FaultPlan, changesTheBytes) {
    const Bytes good = answer.frame();
    const struct {
        std::string fault;
        Bytes bytes;
    } cases[] = {
        {"silence", {}},
        {"wrong-checksum", {'Y', 2, 4, 1, 4, 17, 1, 18}},
        {"wrong-number=4", {'Y', 4, 4, 1, 4, 17, 1, 21}},
        {"length=0", {'Y', 2, 0, 1, 4, 17, 1, 19}},
        {"shorter=3", {'Y', 2, 1, 1, 2}},
        {"longer=1", {'Y', 2, 5, 1, 4, 17, 1, 0, 18}},
        {"false-start=9", {'Y', 7, 9, 'Y', 2, 4, 1, 4, 17, 1, 19}},
        {"echo", {'Y', 1, 0, 1, 'Y', 2, 4, 1, 4, 17, 1, 19}},
        {"twice", {'Y', 2, 4, 1, 4, 17, 1, 19, 'Y', 2, 4, 1, 4, 17, 1, 19}},
        {"unasked=43", {'Y', 2, 4, 1, 4, 17, 1, 19, 'Y', 43, 3, 1, 0, 0, 41}},
        {"reset", {'Y', 2, 4, 1}},
        {"dribble", good},
        {"split=3", good},
    };
    for (const auto& c : cases)
        EXPECT_EQ(answerWith(c.fault), c.bytes) << c.fault;
    EXPECT_EQ(answerWith("flood=1000").size(), good.size() + 7000);
}

} // namespace
