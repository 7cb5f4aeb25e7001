#pragma once

#include "simulator/ControllerConfig.h"
#include "simulator/ControllerState.h"
#include "yprotocoll/YMessage.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

class YBufferWriter;

/// The lamp's controller, bytes in and bytes out, without event loop, faults or timing of its own.
///
/// It executes whole commands and answers them with the number after the command's. A command
/// without payload asks, one with payload sets and is answered with what is stored now. Unknown
/// numbers, payloads of the wrong length and channels it does not have are left unanswered.
/// Its answers are laid out here and not taken from the program's own code on purpose: the two must
/// not share an error.
class SimulatedController {
public:
    using Bytes = std::vector<std::uint8_t>;
    using Instant = std::chrono::nanoseconds;
    /// A clock that never goes back; tests hand in one they can turn.
    using Clock = std::function<Instant()>;

    explicit SimulatedController(ControllerConfig config = {}, Clock clock = steadyClock());
    static Clock steadyClock();

    /// A stretch of received bytes: a sound command, or noise.
    struct Received {
        Bytes bytes;
        std::optional<YMessage> command;
    };
    /// Takes received bytes in chunks of any size. What is neither part of a frame nor has a right
    /// checksum is given back as noise; after noise the search goes on at the next 'Y'.
    std::vector<Received> receive(std::span<const std::uint8_t> bytes);

    /// Executes the command; none when the controller leaves it unanswered.
    std::optional<YMessage> execute(const YMessage& command);

    /// A power failure of a moment: the volatile state is gone, what is stored stays.
    void reset();

    const ControllerConfig& config() const { return m_config; }
    /// The state as of now; an overdue demo mode has ended.
    const ControllerState& state();
    /// To prepare what a test wants to find stored.
    ControllerState& editState() { return m_state; }
    ClockFields clockNow() const { return m_state.clock.at(m_clock()); }
    void setClock(const ClockFields& fields) { m_state.clock.set(fields, m_clock()); }
    /// The levels of the first two channels that the lamp shows now: of the demo mode or else the
    /// stored program.
    std::array<std::uint8_t, 2> lampLevels();

    /// How often each command arrived, by its name.
    const std::map<std::string, int>& commandCounts() const { return m_commandCounts; }

private:
    using Payload = std::span<const std::uint8_t>;
    /// Executes one topic; false when the payload does not suit it.
    using Handler = bool (SimulatedController::*)(Payload, YBufferWriter&);
    static Handler handlerFor(std::uint8_t number);

    bool version(Payload payload, YBufferWriter& answer);
    bool time(Payload payload, YBufferWriter& answer);
    bool deviceMode(Payload payload, YBufferWriter& answer);
    bool setSequenceData(Payload payload, YBufferWriter& answer);
    bool getSequenceData(Payload payload, YBufferWriter& answer);
    bool demoMode(Payload payload, YBufferWriter& answer);
    bool taskMode(Payload payload, YBufferWriter& answer);
    bool rtc(Payload payload, YBufferWriter& answer);
    bool daylightInfo(Payload payload, YBufferWriter& answer);

    void writeModeAndLevels(YBufferWriter& answer);
    void writeSequence(std::uint8_t channel, YBufferWriter& answer) const;
    bool hasChannel(std::uint8_t channel) const;
    void storeFactoryProgram();
    void endOverdueDemo();

    ControllerConfig m_config;
    Clock m_clock;
    ControllerState m_state;
    Bytes m_received;
    Instant m_lastByteAt{0};
    Instant m_lastDemoCommandAt{0};
    std::map<std::string, int> m_commandCounts;
};
