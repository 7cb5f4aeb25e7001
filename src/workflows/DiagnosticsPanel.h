#pragma once

#include <QDialog>

class QPlainTextEdit;

/// Shows the diagnostics, so that a person sees what is copied before it is copied.
class DiagnosticsPanel : public QDialog {
    Q_OBJECT

public:
    explicit DiagnosticsPanel(QWidget* parent = nullptr);

    void run(const QString& text);

private:
    void copy();

    QPlainTextEdit* m_text;
};
