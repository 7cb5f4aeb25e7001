// From the last byte of an answer to the first byte of the next command, seen by the device at the
// other end of a tty; and the same with plain system calls.

#include "Benches.h"
#include "Measure.h"
#include "PtyPorts.h"
#include "Table.h"
#include "simulator/PtyPair.h"
#include "simulator/SimulatedController.h"
#include "yprotocoll/YCommands.h"
#include "yprotocoll/link/YMessageController.h"

#include <benchmark/benchmark.h>

#include <QEventLoop>

#include <array>
#include <atomic>
#include <fcntl.h>
#include <poll.h>
#include <thread>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int exchanges = 2000;

/// A device that answers at once, in a thread of its own, and notes how long it waits for what
/// comes after each answer.
class Device {
public:
    Device() : m_thread([this] { work(); }) {}
    ~Device() {
        m_stop = true;
        m_thread.join();
    }
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    const std::string& tty() const { return m_pty.slavePath(); }
    /// When no exchange is under way: the median of the `exchanges` last waits, in microseconds.
    double turnRound() const {
        Samples last;
        const std::size_t first = m_waits.size() - std::min<std::size_t>(m_waits.size(), exchanges);
        for (std::size_t i = first; i < m_waits.size(); ++i)
            last.add(m_waits[i]);
        return last.median();
    }

private:
    void work() {
        std::array<std::uint8_t, 4096> buffer{};
        pollfd readable{m_pty.master(), POLLIN, 0};
        std::optional<Clock::time_point> answered;
        while (!m_stop) {
            if (poll(&readable, 1, 50) <= 0)
                continue;
            const auto now = Clock::now();
            const auto count = read(m_pty.master(), buffer.data(), buffer.size());
            if (count <= 0)
                continue;
            if (answered)
                m_waits.push_back(
                    std::chrono::duration<double, std::micro>(now - *answered).count());
            answered.reset();
            const auto bytes = std::span(buffer).first(static_cast<std::size_t>(count));
            for (const auto& received : m_controller.receive(bytes)) {
                if (!received.command)
                    continue;
                const auto frame = m_controller.execute(*received.command).value().frame();
                // Before the writing, within which the other end may be woken.
                answered = Clock::now();
                [[maybe_unused]] const auto written =
                    write(m_pty.master(), frame.data(), frame.size());
            }
        }
    }

    PtyPair m_pty;
    SimulatedController m_controller;
    std::vector<double> m_waits;
    std::atomic<bool> m_stop = false;
    std::thread m_thread;
};

CmdGetSequenceDataInfo command() {
    return {};
}

std::size_t answerLength() {
    SimulatedController controller;
    return controller.execute(command()).value().frame().size();
}

double plainCalls() {
    Device device;
    const auto frame = command().frame();
    const std::size_t answer = answerLength();
    const int port = open(device.tty().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    std::array<std::uint8_t, 256> buffer{};
    for (int i = 0; i <= exchanges; ++i) {
        [[maybe_unused]] const auto written = write(port, frame.data(), frame.size());
        for (std::size_t received = 0; received < answer;) {
            pollfd readable{port, POLLIN, 0};
            poll(&readable, 1, -1);
            const auto count = read(port, buffer.data(), buffer.size());
            received += count > 0 ? static_cast<std::size_t>(count) : answer;
        }
    }
    close(port);
    return device.turnRound();
}

class Opened final : public YMessageControllerDelegate {
public:
    explicit Opened(QEventLoop& loop) : m_loop(loop) {}
    void messageControllerDidOpen() override { m_loop.quit(); }
    void messageControllerGotError(const YMessageError& error) override {
        qFatal("%s", error.description().c_str());
    }

private:
    QEventLoop& m_loop;
};

double program() {
    Device device;
    PtyPorts ports(device.tty());
    ModalPause pause;
    YMessageController controller(ports, pause);
    QEventLoop loop;
    Opened opened(loop);
    controller.setDelegate(&opened);
    controller.run();
    loop.exec();
    controller.sendCommands(std::vector<YCommand>(exchanges + 1, command()),
                            [&](const auto&) { loop.quit(); });
    loop.exec();
    controller.setDelegate(nullptr);
    controller.stop();
    return device.turnRound();
}

void turnRound(benchmark::State& state) {
    Samples ours;
    Samples plain;
    for (auto _ : state) {
        ours.add(program());
        plain.add(plainCalls());
    }
    Table::add({"turn-round: answer's last to next command's first byte", "us", ours.median(),
                plain.median(), "poll, read and write", Promise::atMost(120.0)});
}

} // namespace

void registerTurnRoundBenches() {
    benchmark::RegisterBenchmark("turn-round", turnRound)->Iterations(5);
}
