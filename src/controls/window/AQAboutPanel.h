#pragma once

#include <QDialog>

/// The small window that says what this program is: name, version, purpose, and the libraries it
/// uses with their licences. Escape closes it.
class AQAboutPanel : public QDialog {
    Q_OBJECT

public:
    explicit AQAboutPanel(QWidget* parent = nullptr);
};
