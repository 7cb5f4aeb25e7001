#pragma once

#include <cstdio>
#include <cstdlib>

/// What must hold for every input. A breach ends the process, which the fuzzer takes for a finding
/// and keeps the input.
inline void require(bool holds, const char* what) {
    if (holds)
        return;
    std::fprintf(stderr, "broken promise: %s\n", what);
    std::abort();
}
