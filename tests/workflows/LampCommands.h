#pragma once

#include "data/AQTimePoint.h"
#include "data/ColorMapping.h"

#include <string>

/// Commands as `SimulatedLink` tells them.
namespace LampCommands {

const std::string enable = "CmdEnableDemoMode 1";
const std::string disable = "CmdDisableDemoMode 0";

inline std::string levels(const AQTimePoint& light) {
    const ChannelLevels channels = levelsFromLight(light.colorTemp, light.brightness);
    return "CmdSetDemoModeLevels 1 " + std::to_string(channels.cold) + ' ' +
           std::to_string(channels.warm);
}

} // namespace LampCommands
