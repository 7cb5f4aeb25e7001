#pragma once

#include "lamp/ProgramComparison.h"
#include "yprotocoll/DeviceInfo.h"

#include <QString>

#include <optional>

/// What was read from a controller, as a settings file.
namespace ProgramCopy {

/// Replaces the file at once or not at all. `program` has contents. Returns the reason for a
/// failure, else nothing.
QString save(const QString& path, const StoredProgram& program,
             const std::optional<DeviceInfo>& device);
/// How the lamp's program differs from what it would be if it were sent the file.
ProgramComparison givenBack(const StoredProgram& program);

} // namespace ProgramCopy
