#pragma once

#include "journeys/Journey.h"

#include <gtest/gtest.h>

#include <source_location>

/// Expects `read()` to be `expected` within the usual limit. What the program shows follows the
/// hand, the line and the accessibility bus a little later.
template <class Read, class Value>
void expectSoon(Read read, const Value& expected,
                std::source_location where = std::source_location::current()) {
    const testing::ScopedTrace trace(where.file_name(), static_cast<int>(where.line()), "from");
    // After a failure there is nothing left to wait for.
    const bool wait = !testing::Test::HasFailure();
    auto seen = read();
    Journey::waitUntil([&] { return seen == expected || !wait || ((seen = read()), false); });
    EXPECT_EQ(seen, expected);
}
