#pragma once

#include <QJsonObject>

class SimulatedController;

/// Everything a controller stores and does now, for people and for tests outside its process:
/// "channels" (a list of lists of "HH:MM=level"), "taskLight", "programMode", "demoActive",
/// "demoLevels", "lamp", "clock" ("2017-12-24 08:15:30"), "daylight".
QJsonObject reportOf(SimulatedController& controller);
