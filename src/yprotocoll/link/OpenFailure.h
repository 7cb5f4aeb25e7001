#pragma once

#include "yprotocoll/YMessageError.h"

#include <QString>

/// Why a serial port that is there cannot be opened, and what a person can do about it.
namespace OpenFailure {

/// Another program holds `device`: it is named when it left its lock file. When that program has
/// ended since, the remedy is to remove the file.
YMessageError::PortError taken(const QString& device);
/// Who may not use `device`, which belongs to whom, and the remedies: joining the group, where that
/// helps, and a udev rule. `text` is the system's own.
YMessageError::PortError forbidden(const QString& device, const QString& text);

} // namespace OpenFailure
