#pragma once

#include <QDialog>
#include <QStringList>

class QLabel;
class QPlainTextEdit;
class QPushButton;

/// The window that tells how the program here and the one in the lamp differ, and offers to make
/// them equal either way.
class ComparePanel : public QDialog {
    Q_OBJECT

public:
    explicit ComparePanel(QWidget* parent);

    /// Whether the lamp's lists make a program, which alone can be taken.
    enum class Lamps { Whole, Incomplete };
    /// Shows the differences, one a line; none are said to be none. `notes` say what else is to be
    /// known about them.
    void run(const QStringList& differences, const QStringList& notes, Lamps lamps);
    /// What needs the controller waits until it is back.
    void setConnected(bool isConnected);

Q_SIGNALS:
    // The window is closed then.
    void takeRequested();
    void sendRequested();

private:
    void makeButtons();
    void refreshButtons();

    QLabel* m_lblHeadline;
    QPlainTextEdit* m_txtDifferences;
    QLabel* m_lblNotes;
    QPushButton* m_bttnTake;
    QPushButton* m_bttnSend;
    QPushButton* m_bttnClose;
    bool m_isEqual = false;
    Lamps m_lamps = Lamps::Whole;
    bool m_isConnected = true;
};
