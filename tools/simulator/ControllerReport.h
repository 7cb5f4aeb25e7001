#pragma once

#include <QJsonObject>

class SimulatedController;

/// Everything a controller is, stores and does now, for tests outside its process: configuration,
/// "channels" (a list of lists of "HH:MM=level"), "taskLight", "programMode", "demoActive",
/// "demoLevels", "lamp", "clock" ("2017-12-24 08:15:30"), "daylight", "commands" (counts by name).
QJsonObject reportOf(SimulatedController& controller);
