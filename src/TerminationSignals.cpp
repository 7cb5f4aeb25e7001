#include "TerminationSignals.h"

#include <QSocketNotifier>

#include <csignal>
#include <sys/signalfd.h>
#include <unistd.h>

TerminationSignals::TerminationSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        // What nohup or a shell has made to be ignored stays so; here it would arrive.
        struct sigaction inherited {};
        if (::sigaction(signal, nullptr, &inherited) != 0 || inherited.sa_handler != SIG_IGN)
            sigaddset(&signals, signal);
    }
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    m_descriptor = signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC);
}

TerminationSignals::~TerminationSignals() {
    delete m_notifier;
    ::close(m_descriptor);
}

void TerminationSignals::watch() {
    m_notifier = new QSocketNotifier(m_descriptor, QSocketNotifier::Read);
    connect(m_notifier, &QSocketNotifier::activated, this, &TerminationSignals::onReadable);
}

void TerminationSignals::onReadable() {
    signalfd_siginfo info{};
    while (::read(m_descriptor, &info, sizeof info) == sizeof info)
        Q_EMIT received(static_cast<int>(info.ssi_signo));
}
