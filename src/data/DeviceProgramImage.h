#pragma once

#include "data/TransferResult.h"
#include "yprotocoll/DeviceInfo.h"
#include "yprotocoll/YCommand.h"

#include <memory>
#include <optional>
#include <vector>

class AQDataSource;
class YAnswer;

/// The light program and the task light as the controller stores them: for each output channel a
/// list of (hour, minute, level), between which it fades.
///
/// Channel 0 is the cold output, 1 the warm one (data/ColorMapping.h). Controllers with four or
/// more channels also keep what the person set: channel 2 the colour temperature and 3 the
/// intensity of each point, x 255, and in the first entries of channels 0 and 1 those of the task
/// light, x 254. Pure functions.
namespace DeviceProgramImage {

/// What can be said before a load: errorNoDevice, errorWrongChannelCount or ok.
TransferResult checkLoad(const std::optional<DeviceInfo>& device);
/// The same before a send, and errorTooManyPoints. The maximum is the controller's, or the 84 that
/// fit into a message if the controller claims to hold more.
TransferResult checkSend(const AQDataSource& document, const std::optional<DeviceInfo>& device);

/// The commands of a load, in order: CmdGetTaskMode, then CmdGetSequenceData for channels 0 and 1,
/// or 0 to 3. `checkLoad()` must have been ok.
std::vector<YCommand> loadCommands(const DeviceInfo& device);
/// The commands of a send, in order: one CmdSetSequenceData for each channel, CmdSetTaskMode last.
/// `checkSend()` must have been ok. A single point is sent as two entries, 00:00 and 23:59.
std::vector<YCommand> sendCommands(const AQDataSource& document, const DeviceInfo& device);

/// Replaces program and task light of the document by what the answers to `loadCommands()` hold.
/// Posts nothing and leaves mode and dirty flag alone. Points come in the controller's order.
///
/// errorInvalidData leaves the document unchanged: answers that are missing, too many, of the wrong
/// kind or for another channel, lists of different lengths, a time of day that is none, or a task
/// light whose seconds carry over beyond its minutes (0 minutes 60 seconds), which the application
/// never sends.
TransferResult apply(const std::vector<std::shared_ptr<const YAnswer>>& answers,
                     const DeviceInfo& device, AQDataSource& document);

} // namespace DeviceProgramImage
