// A whole load and a whole send with four channels and 20 points, through the program's own buttons
// and over a tty whose bytes take their time as at 115200 baud.

#include "Benches.h"
#include "Measure.h"
#include "SampleProgram.h"
#include "Table.h"
#include "WholeProgram.h"
#include "simulator/PtyController.h"
#include "ui_MainWindow.h"

#include <benchmark/benchmark.h>

#include <QEventLoop>
#include <QTest>
#include <QThread>

namespace {

/// A simulated controller in a thread of its own, so that it keeps time by itself. It answers at
/// once: what passes besides the bytes' time is the program's and the system's.
class PacedController {
public:
    PacedController() {
        m_worker.moveToThread(&m_thread);
        m_thread.start();
        inThread([this] {
            m_pty = std::make_unique<PtyController>(&m_controller, m_faults, m_log, "pty", true);
        });
    }
    ~PacedController() {
        inThread([this] { m_pty.reset(); });
        m_thread.quit();
        m_thread.wait();
    }
    PacedController(const PacedController&) = delete;
    PacedController& operator=(const PacedController&) = delete;

    const std::string& tty() const { return m_pty->path(); }
    /// Bytes that have gone over the line so far, in both directions.
    std::size_t bytes() {
        std::size_t count = 0;
        inThread([&] {
            for (const WireEvent& event : m_log.events())
                count += event.bytes.size();
        });
        return count;
    }

private:
    template <typename Work>
    void inThread(Work work) {
        QMetaObject::invokeMethod(&m_worker, work, Qt::BlockingQueuedConnection);
    }

    QThread m_thread;
    QObject m_worker;
    WireLog m_log;
    FaultPlan m_faults;
    SimulatedController m_controller{{.channels = 4}};
    std::unique_ptr<PtyController> m_pty;
};

class Transfers {
public:
    explicit Transfers(PacedController& controller)
        : m_controller(controller), m_program(controller.tty()) {
        m_program.delegate.applicationDidFinishLaunching({});
        if (!QTest::qWaitFor([this] { return m_program.controller.isConnected(); }, 10'000))
            qFatal("The controller was not found.");
        m_program.data.sequence().replacePoints(SampleProgram::points());
        m_program.data.sequence().notifyDataChange(nullptr, false);
        QTest::qWait(100); // the button is enabled, the window painted
        m_program.prompts.onAlert = [this] { m_done.quit(); };
        QObject::connect(&m_program.notifications, &NotificationCenter::dataLoaded, &m_done,
                         &QEventLoop::quit);
    }
    double load() { return clickAndWait(*m_program.delegate.window().outlets().bttnLoad); }
    double send() { return clickAndWait(*m_program.delegate.window().outlets().bttnSend); }
    /// What the bytes of the last transfer take on the line, in milliseconds.
    double lineTime() const { return m_lineTime; }

private:
    double clickAndWait(QAbstractButton& button) {
        const std::size_t before = m_controller.bytes();
        const double time = milliseconds([&] {
            button.click();
            m_done.exec();
        });
        const std::chrono::duration<double, std::milli> byteTime = ControllerLine::byteTime;
        m_lineTime = static_cast<double>(m_controller.bytes() - before) * byteTime.count();
        return time;
    }

    PacedController& m_controller;
    WholeProgram m_program;
    QEventLoop m_done;
    double m_lineTime = 0.0;
};

void transfers(benchmark::State& state) {
    PacedController controller;
    Transfers transfers(controller);
    Samples loads;
    Samples sends;
    Samples loadLine;
    Samples sendLine;
    for (auto _ : state) {
        sends.add(transfers.send());
        sendLine.add(transfers.lineTime());
        loads.add(transfers.load());
        loadLine.add(transfers.lineTime());
    }
    Table::add({"load, 4 channels, 20 points, paced line", "ms", loads.median(), loadLine.median(),
                "the bytes' time on the line", Promise::timesFloor(1.10)});
    Table::add({"send, 4 channels, 20 points, paced line", "ms", sends.median(), sendLine.median(),
                "the bytes' time on the line", Promise::timesFloor(1.10)});
}

} // namespace

void registerTransferBenches() {
    benchmark::RegisterBenchmark("transfers", transfers)->Iterations(30);
}
