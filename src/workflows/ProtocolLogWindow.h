#pragma once

#include <QDialog>
#include <QStringList>

class QPlainTextEdit;
class SessionTrace;

/// The trace, live. It stands beside the main window and holds up nobody.
class ProtocolLogWindow : public QDialog {
    Q_OBJECT

public:
    static constexpr int mostLines = 10'000; ///< older ones go

    /// `trace` must outlive the window.
    ProtocolLogWindow(SessionTrace& trace, QWidget* parent);

Q_SIGNALS:
    /// The text could not be saved there, for this reason.
    void saveFailed(const QString& path, const QString& reason);

private:
    void add(const QString& line);
    void setPaused(bool isPaused);
    void askWhereToSave();
    void save(const QString& path);

    QPlainTextEdit* m_text;
    bool m_isPaused = false;
    QStringList m_waiting; ///< came during the pause
};
