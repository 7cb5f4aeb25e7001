#pragma once

#include "yprotocoll/YMessageError.h"

#include <QDialog>

#include <vector>

class QLabel;
class QVBoxLayout;

/// Why a controller that is plugged in cannot be opened, and the remedies, to copy. Stays open
/// while the person carries them out.
class PortHelpPanel : public QDialog {
    Q_OBJECT

public:
    explicit PortHelpPanel(QWidget* parent);

    /// Without a text there is no problem any more, and the panel closes.
    void setProblem(const QString& help, const std::vector<YMessageError::PortRemedy>& remedies);

private:
    void addRemedy(const YMessageError::PortRemedy& remedy);

    QString m_help;
    std::vector<YMessageError::PortRemedy> m_shown;
    QLabel* m_lblHelp;
    QWidget* m_remedies = nullptr; ///< made anew for each problem
    QVBoxLayout* m_layout;
};
