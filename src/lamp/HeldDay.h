#pragma once

#include <optional>

class AQDataSource;
struct StoredProgram;

/// The day of the document's acclimation, today's or the last one before it, whose light of the day
/// the controller holds; its task light may be another one. None without an acclimation, or when it
/// holds something else.
std::optional<int> heldAcclimationDay(const AQDataSource& data, const StoredProgram& stored);
