#pragma once

#include "workflows/ControlStates.h"

#include <QString>

class AQDataSource;
class DocumentCommands;
class SessionTrace;
class YMessageController;

/// What whoever helps a person from afar needs to know, as a text.
namespace Diagnostics {

struct Sources {
    const AQDataSource& data;
    const YMessageController& controller;
    const DocumentCommands& documents;
    const SessionTrace& trace;
    WindowState state;
    bool isLive;
};

/// Program and computer, ports, controller, state and trace, a line each. The home folder, and with
/// it the person's name in paths, is "~".
QString text(const Sources& sources);

} // namespace Diagnostics
