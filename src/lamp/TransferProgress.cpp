#include "lamp/TransferProgress.h"

#include <utility>

TransferProgress::TransferProgress(QObject* parent) : QObject(parent) {
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    connect(&m_patience, &QTimer::timeout, this, [this] {
        m_isShown = true;
        refresh();
    });
}

void TransferProgress::begin(const QString& activity, int commands) {
    if (m_commands == 0)
        m_patience.start();
    m_activity = activity;
    m_commands += commands;
    refresh();
}

void TransferProgress::step() {
    if (m_commands == 0)
        return;
    if (++m_answered == m_commands)
        stop();
    else
        refresh();
}

void TransferProgress::stop() {
    m_patience.stop();
    m_isShown = false;
    m_answered = 0;
    m_commands = 0;
    refresh();
}

void TransferProgress::refresh() {
    const QString text = m_isShown ? m_activity.arg(m_answered + 1).arg(m_commands) : QString();
    if (std::exchange(m_text, text) != text)
        Q_EMIT changed(text);
}
