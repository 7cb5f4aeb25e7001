#pragma once

#include <cstdint>

// The logarithmic dimming curve of IEC 62386 (DALI), by which the controller drives its outputs:
// each of the 253 steps from level 1 to level 254 multiplies the light by the same factor, and
// three decades lie between 0.1 % and 100 %.

/// Linear share of the full light, 0.0...1.0, for a level. 0 is dark, 1 gives 0.001; 254 and the
/// reserved 255 give 1.0.
double shareFromLevel(std::uint8_t level);

/// The level, 0...254, that comes nearest to a linear share. Shares up to 0.0001 (and NaN) are
/// dark, shares over 1.0 are full light. Inverse of `shareFromLevel` for the levels 0...254.
std::uint8_t levelFromShare(double share);
