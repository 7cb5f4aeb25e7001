#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>

/// How far the transfers on their way are, for the person: "Sending 2 of 5". Those that are under
/// way together count as one.
class TransferProgress : public QObject {
    Q_OBJECT

public:
    /// What ends sooner shows nothing.
    static constexpr std::chrono::milliseconds patience{300};

    explicit TransferProgress(QObject* parent = nullptr);

    /// A transfer of this many commands begins; `activity` is what it does: "Sending %1 of %2".
    void begin(const QString& activity, int commands);
    /// One of its commands was answered.
    void step();
    /// Nothing is on its way any more.
    void stop();

    QString text() const { return m_text; }

Q_SIGNALS:
    /// Empty when there is nothing to show.
    void changed(const QString& text);

private:
    void refresh();

    QTimer m_patience;
    bool m_isShown = false;
    QString m_activity;
    int m_answered = 0;
    int m_commands = 0;
    QString m_text;
};
