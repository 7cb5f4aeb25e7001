#include "yprotocoll/YAnswer.h"

#include <spdlog/spdlog.h>

std::shared_ptr<const YAnswer> YAnswer::fromFrame(std::span<const std::uint8_t> bytes) {
    // The class, and with it the name, depends on what the frame holds.
    const YMessage message = YMessage::fromFrame("YAnswer", bytes);
    return create(message.id(), message.data());
}

void YAnswer::logVerbose() const {
    if (!spdlog::should_log(spdlog::level::trace))
        return;
    for (const AnswerField& field : fields())
        SPDLOG_TRACE(fmt::format("    - {}: {}", field.label, field.value));
}
