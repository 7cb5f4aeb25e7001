#pragma once

#include "yprotocoll/YMessage.h"

/// A message to the controller, answered by the answer numbered `id() + 1`.
///
/// A value: the classes of the single commands (YCommands.h) only build number and payload and add
/// no state, so a command may be copied and queued as a plain `YCommand`.
class YCommand : public YMessage {
public:
    std::uint8_t expectedAnswer() const { return static_cast<std::uint8_t>(id() + 1U); }

protected:
    using YMessage::YMessage;
};
