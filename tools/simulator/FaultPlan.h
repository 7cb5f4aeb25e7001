#pragma once

#include "simulator/Fault.h"
#include "yprotocoll/YMessage.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <vector>

/// Bytes to put on the line, `pause` after the ones before them (the first: after the command).
struct LinePiece {
    std::vector<std::uint8_t> bytes;
    std::chrono::milliseconds pause{0};
    std::string label; ///< for the log
};

/// What the faults make of one command.
struct FaultOutcome {
    std::vector<LinePiece> pieces;
    std::optional<std::chrono::milliseconds> resetFor;
    /// Set when the cable is pulled instead of answering; zero: it stays out.
    std::optional<std::chrono::milliseconds> unplugFor;
};

/// The faults of one controller's line. Several can hold for the same answer; they are applied in
/// the order in which they were added. Stray bytes come from a fixed seed.
class FaultPlan {
public:
    void add(const Fault& fault) { m_faults.push_back({fault, 0}); }
    void clear() { m_faults.clear(); }

    /// The faults that hold for this command; counts it. To be asked once a command, before it is
    /// executed.
    std::vector<Fault> take(std::uint8_t command);

    /// Applies the faults to the answer (none when the controller gave none).
    FaultOutcome apply(const std::vector<Fault>& faults, const YMessage& command,
                       const std::optional<YMessage>& answer);
    /// The command as the controller takes it.
    static YMessage misheard(const std::vector<Fault>& faults, const YMessage& command);
    /// True when one of the faults keeps the command from the controller.
    static bool preventsExecution(const std::vector<Fault>& faults);

    /// `count` bytes, none of which is 'Y'.
    std::vector<std::uint8_t> strayBytes(int count);
    /// A sound frame of this number with three zero bytes.
    static std::vector<std::uint8_t> unaskedAnswer(int number);

private:
    struct Counted {
        Fault fault;
        int seen;
    };

    void alter(const Fault& fault, YMessage& answer, std::vector<std::uint8_t>& frame);
    void surround(const Fault& fault, const YMessage& command, const LinePiece& whole,
                  FaultOutcome& outcome);
    static void spread(const Fault& fault, FaultOutcome& outcome);

    std::vector<Counted> m_faults;
    std::minstd_rand m_random;
};
