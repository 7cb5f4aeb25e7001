#pragma once

#include "data/DeviceImage.h"
#include "data/DocumentContents.h"
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
/// What a controller of `channelCount` (2, or at least 4) channels stores after a send of these
/// contents. A single point becomes two entries, 00:00 and 23:59.
DeviceImage imageOf(const DocumentContents& contents, int channelCount);
/// The commands of a send, in order: one CmdSetSequenceData for each channel, CmdSetTaskMode last.
/// `checkSend()` must have been ok.
std::vector<YCommand> sendCommands(const DeviceImage& image, const DeviceInfo& device);

/// What the answers to `loadCommands()` hold. None for answers that are missing, too many, of the
/// wrong kind or for another channel.
std::optional<DeviceImage> imageOf(const std::vector<std::shared_ptr<const YAnswer>>& answers,
                                   const DeviceInfo& device);
/// What a load makes of it, in program mode, the points in the controller's order. None for lists
/// of different lengths, a time of day that is none, or a task light whose seconds carry over
/// beyond its minutes (0 minutes 60 seconds), which the application never sends.
std::optional<DocumentContents> contentsOf(const DeviceImage& image);

} // namespace DeviceProgramImage
