#include "simulator/ChildProgram.h"

#include <QSocketNotifier>

#include <sys/prctl.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>

namespace {

sigset_t passedOn() {
    sigset_t set;
    sigemptyset(&set);
    for (const int number : {SIGINT, SIGTERM, SIGHUP})
        sigaddset(&set, number);
    return set;
}

/// AddressSanitizer refuses to start behind another preloaded library unless told otherwise.
QProcessEnvironment environment() {
    auto environment = QProcessEnvironment::systemEnvironment();
    const auto name = QStringLiteral("ASAN_OPTIONS");
    const auto option = QStringLiteral("verify_asan_link_order=0");
    const QString present = environment.value(name);
    if (!present.contains(option))
        environment.insert(name, present.isEmpty() ? option : present + QLatin1Char(':') + option);
    return environment;
}

} // namespace

void ChildProgram::holdSignals() {
    const sigset_t set = passedOn();
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
}

ChildProgram::ChildProgram() {
    m_process.setProcessChannelMode(QProcess::ForwardedChannels);
    m_process.setInputChannelMode(QProcess::ForwardedInputChannel);
    m_process.setProcessEnvironment(environment());
    connect(&m_process, &QProcess::finished, this, [this](int code, QProcess::ExitStatus status) {
        Q_EMIT ended(status == QProcess::CrashExit ? 128 + code : code);
    });
    connect(&m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error != QProcess::FailedToStart)
            return;
        std::fprintf(stderr, "aquelon-simulator: cannot start %s: %s\n",
                     qPrintable(m_process.program()), qPrintable(m_process.errorString()));
        Q_EMIT ended(127);
    });
}

ChildProgram::~ChildProgram() {
    m_process.disconnect(this);
    if (m_process.state() != QProcess::NotRunning) {
        m_process.kill();
        m_process.waitForFinished();
    }
    if (m_signals >= 0)
        ::close(m_signals);
}

void ChildProgram::start(const QStringList& commandLine) {
    const sigset_t set = passedOn();
    m_signals = signalfd(-1, &set, SFD_CLOEXEC | SFD_NONBLOCK);
    auto* notifier = new QSocketNotifier(m_signals, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &ChildProgram::passSignalOn);

    m_process.setChildProcessModifier([parent = getpid()] {
        const sigset_t blocked = passedOn();
        pthread_sigmask(SIG_UNBLOCK, &blocked, nullptr);
        // The program ends with the simulator even when that is killed outright.
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (getppid() != parent)
            _exit(127);
    });
    m_process.start(commandLine.first(), commandLine.mid(1));
}

void ChildProgram::passSignalOn() {
    signalfd_siginfo info{};
    while (::read(m_signals, &info, sizeof info) == sizeof info) {
        // A terminal's Ctrl-C has reached the program already, which is in the same group.
        if (info.ssi_code == SI_KERNEL || m_process.state() == QProcess::NotRunning)
            continue;
        // Who asks a second time does not want to wait any more.
        const bool again = ++m_signalsPassedOn > 1;
        ::kill(static_cast<pid_t>(m_process.processId()),
               again ? SIGKILL : static_cast<int>(info.ssi_signo));
    }
}
