#include "simulator/SimulatedController.h"

#include "simulator/CommandNames.h"
#include "yprotocoll/YBufferWriter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace {

constexpr std::uint8_t demoBit = 0x80;
constexpr std::uint8_t programBit = 0x01;
/// An enabled demo mode ends by itself after this long without a demo command.
constexpr std::chrono::seconds demoTimeout{60};
/// What is left of a command that stops arriving is thrown away after this pause.
constexpr std::chrono::milliseconds receiveGap{50};

bool isSound(std::span<const std::uint8_t> frame) {
    std::uint8_t sum = 0;
    for (const std::uint8_t byte : frame.subspan(1))
        sum ^= byte;
    return sum == 0;
}

/// The level between the entries around a minute of the day; the day is a ring.
std::uint8_t levelAt(const std::vector<SequenceEntry>& entries, double minuteOfDay) {
    if (entries.empty())
        return 0;
    constexpr double day = 1440.0;
    const auto minutes = [](const SequenceEntry& e) { return e.hour * 60.0 + e.minute; };
    const auto next = std::ranges::find_if(
        entries, [&](const SequenceEntry& e) { return minutes(e) > minuteOfDay; });
    const SequenceEntry& to = next == entries.end() ? entries.front() : *next;
    const SequenceEntry& from = next == entries.begin() ? entries.back() : *std::prev(next);
    const double length = std::fmod(minutes(to) - minutes(from) + day, day);
    if (length == 0.0)
        return from.level;
    const double passed = std::fmod(minuteOfDay - minutes(from) + day, day);
    return static_cast<std::uint8_t>(
        std::lround(from.level + (to.level - from.level) * passed / length));
}

} // namespace

SimulatedController::SimulatedController(ControllerConfig config, Clock clock)
    : m_config(config), m_clock(std::move(clock)) {
    m_state.sequence.resize(static_cast<std::size_t>(std::max(m_config.channels, 0)));
    m_state.clock.set({.second = 0, .minute = 0, .hour = 12, .day = 1, .month = 6, .year = 17},
                      m_clock());
    if (m_config.factoryProgram)
        storeFactoryProgram();
}

SimulatedController::Clock SimulatedController::steadyClock() {
    return [] { return Instant(std::chrono::steady_clock::now().time_since_epoch()); };
}

void SimulatedController::storeFactoryProgram() {
    // A day of four points: a warm morning, a bright noon, a warm evening, then dark. Controllers
    // with four and more channels keep colour temperature and intensity in channels 2 and 3, and
    // the task light in the first entries of channels 0 and 1.
    static constexpr std::array<std::array<std::uint8_t, 2>, 4> times{
        {{8, 0}, {11, 0}, {18, 30}, {22, 0}}};
    static constexpr std::array<std::array<std::uint8_t, 4>, 4> levels{
        {{0, 254, 240, 0}, {0, 246, 249, 0}, {64, 153, 102, 51}, {0, 255, 220, 0}}};
    static constexpr std::array<std::uint8_t, 2> taskLight{127, 254};
    for (std::size_t channel = 0; channel < m_state.sequence.size(); ++channel) {
        auto& entries = m_state.sequence[channel];
        for (std::size_t i = 0; i < times.size(); ++i) {
            const std::uint8_t level = channel < levels.size() ? levels[channel][i] : 0;
            entries.push_back({times[i][0], times[i][1], level});
        }
        if (m_state.sequence.size() >= 4 && channel < taskLight.size())
            entries.front().level = taskLight[channel];
    }
}

std::vector<SimulatedController::Received>
SimulatedController::receive(std::span<const std::uint8_t> bytes) {
    std::vector<Received> result;
    const auto noise = [&](std::size_t count) {
        if (count == 0)
            return;
        const auto end = m_received.begin() + static_cast<std::ptrdiff_t>(count);
        if (result.empty() || result.back().command)
            result.emplace_back();
        result.back().bytes.insert(result.back().bytes.end(), m_received.begin(), end);
        m_received.erase(m_received.begin(), end);
    };

    const Instant now = m_clock();
    if (now - m_lastByteAt > receiveGap)
        noise(m_received.size());
    m_lastByteAt = now;
    m_received.insert(m_received.end(), bytes.begin(), bytes.end());

    for (;;) {
        const auto start = std::ranges::find(m_received, YMessage::startByte);
        noise(static_cast<std::size_t>(start - m_received.begin()));
        if (m_received.size() < YMessage::frameOverhead)
            return result;
        const std::size_t length = m_received[2] + YMessage::frameOverhead;
        if (m_received.size() < length)
            return result;
        const auto frame = std::span(m_received).first(length);
        if (!isSound(frame)) {
            noise(1);
            continue;
        }
        const Bytes payload(frame.begin() + 3, frame.end() - 1);
        const std::uint8_t number = frame[1];
        std::string name =
            commandName(number, payload.size(), payload.empty() ? std::uint8_t{0} : payload[0]);
        ++m_commandCounts[name];
        result.push_back({Bytes(frame.begin(), frame.end()), YMessage(name, number, payload)});
        m_received.erase(m_received.begin(),
                         m_received.begin() + static_cast<std::ptrdiff_t>(length));
    }
}

SimulatedController::Handler SimulatedController::handlerFor(std::uint8_t number) {
    using C = SimulatedController;
    static const std::map<std::uint8_t, Handler> handlers{
        {1, &C::version},          {40, &C::time},
        {42, &C::deviceMode},      {44, &C::setSequenceData},
        {46, &C::getSequenceData}, {48, &C::demoMode},
        {50, &C::taskMode},        {70, &C::rtc},
        {74, &C::daylightInfo},
    };
    const auto found = handlers.find(number);
    return found == handlers.end() ? nullptr : found->second;
}

std::optional<YMessage> SimulatedController::execute(const YMessage& command) {
    const Handler handler = handlerFor(command.id());
    YBufferWriter answer;
    if (!handler || !(this->*handler)(command.data(), answer))
        return std::nullopt;
    const auto number = static_cast<std::uint8_t>(command.id() + 1U);
    return YMessage(answerName(number, answer.data().size()), number, answer.data());
}

void SimulatedController::reset() {
    m_received.clear();
    m_state.demoActive = false;
    m_state.demoLevels = {0, 0};
}

const ControllerState& SimulatedController::state() {
    endOverdueDemo();
    return m_state;
}

void SimulatedController::endOverdueDemo() {
    if (m_state.demoActive && m_clock() - m_lastDemoCommandAt > demoTimeout)
        m_state.demoActive = false;
}

std::array<std::uint8_t, 2> SimulatedController::lampLevels() {
    endOverdueDemo();
    if (m_state.demoActive)
        return m_state.demoLevels;
    if (m_state.sequence.size() < 2)
        return {0, 0};
    const double minute = m_state.clock.minuteOfDay(m_clock());
    return {levelAt(m_state.sequence[0], minute), levelAt(m_state.sequence[1], minute)};
}

bool SimulatedController::hasChannel(std::uint8_t channel) const {
    return channel < m_state.sequence.size();
}

bool SimulatedController::version(Payload payload, YBufferWriter& answer) {
    answer.writeUInt8(m_config.versionMajor).writeUInt8(m_config.versionMinor);
    answer.writeUInt8(m_config.build).writeUInt8(m_config.deviceType);
    return payload.empty();
}

bool SimulatedController::time(Payload payload, YBufferWriter& answer) {
    if (payload.size() == 2) {
        ClockFields fields = clockNow();
        fields.hour = payload[0];
        fields.minute = payload[1];
        fields.second = 0;
        setClock(fields);
    }
    const ClockFields now = clockNow();
    answer.writeUInt8(now.hour).writeUInt8(now.minute);
    return payload.empty() || payload.size() == 2;
}

void SimulatedController::writeModeAndLevels(YBufferWriter& answer) {
    endOverdueDemo();
    unsigned mode = 0;
    mode |= m_state.programMode ? programBit : 0U;
    mode |= m_state.demoActive ? demoBit : 0U;
    answer.writeUInt8(static_cast<std::uint8_t>(mode)).writeBytes(lampLevels());
}

bool SimulatedController::deviceMode(Payload payload, YBufferWriter& answer) {
    if (payload.size() == 1)
        m_state.programMode = (payload[0] & programBit) != 0;
    writeModeAndLevels(answer);
    return payload.size() <= 1;
}

void SimulatedController::writeSequence(std::uint8_t channel, YBufferWriter& answer) const {
    answer.writeUInt8(channel);
    for (const SequenceEntry& entry : m_state.sequence[channel])
        answer.writeUInt8(entry.hour).writeUInt8(entry.minute).writeUInt8(entry.level);
}

bool SimulatedController::setSequenceData(Payload payload, YBufferWriter& answer) {
    if (payload.empty() || !hasChannel(payload[0]))
        return false;
    auto& entries = m_state.sequence[payload[0]];
    entries.clear();
    for (auto rest = payload.subspan(1); rest.size() >= 3; rest = rest.subspan(3))
        if (static_cast<int>(entries.size()) < m_config.maxPoints)
            entries.push_back({rest[0], rest[1], rest[2]});
    writeSequence(payload[0], answer);
    return true;
}

bool SimulatedController::getSequenceData(Payload payload, YBufferWriter& answer) {
    if (payload.empty()) {
        for (const int value : {m_config.channels, m_config.maxPoints, m_config.entrySize})
            answer.writeUInt8(static_cast<std::uint8_t>(value));
        return true;
    }
    if (payload.size() != 1 || !hasChannel(payload[0]))
        return false;
    writeSequence(payload[0], answer);
    return true;
}

bool SimulatedController::demoMode(Payload payload, YBufferWriter& answer) {
    if (payload.size() != 1 && payload.size() != 3)
        return false;
    m_state.demoActive = payload[0] != 0;
    m_lastDemoCommandAt = m_clock();
    if (payload.size() == 3)
        m_state.demoLevels = {payload[1], payload[2]};
    writeModeAndLevels(answer);
    return true;
}

bool SimulatedController::taskMode(Payload payload, YBufferWriter& answer) {
    TaskLight& task = m_state.taskLight;
    if (payload.size() == 4) {
        task.minutes = payload[0];
        task.seconds = payload[1];
        task.levels = {payload[2], payload[3]};
    }
    answer.writeUInt8(task.minutes).writeUInt8(task.seconds);
    answer.writeBytes(task.levels).writeUInt8(task.fadeTime);
    return payload.empty() || payload.size() == 4;
}

bool SimulatedController::rtc(Payload payload, YBufferWriter& answer) {
    if (payload.size() == 6)
        setClock({payload[0], payload[1], payload[2], payload[3], payload[4], payload[5]});
    const ClockFields now = clockNow();
    for (const std::uint8_t field :
         {now.second, now.minute, now.hour, now.day, now.month, now.year})
        answer.writeUInt8(field);
    return payload.empty() || payload.size() == 6;
}

bool SimulatedController::daylightInfo(Payload payload, YBufferWriter& answer) {
    DaylightInfo& info = m_state.daylight;
    if (payload.size() == 2)
        info = {payload[0], static_cast<std::int8_t>(payload[1])};
    answer.writeUInt8(info.flags).writeUInt8(static_cast<std::uint8_t>(info.utcOffset));
    return payload.empty() || payload.size() == 2;
}
