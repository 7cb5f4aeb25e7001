#pragma once

#include <QDialog>

#include <string>
#include <vector>

class QComboBox;
class QLabel;
struct SerialPortInfo;

/// Lets the person choose among the controllers that are plugged in.
class SelectDevicePanel : public QDialog {
    Q_OBJECT

public:
    explicit SelectDevicePanel(QWidget* parent);

    /// Fills the list and shows the panel, modal for the whole program.
    void run(const std::vector<SerialPortInfo>& ports);

Q_SIGNALS:
    /// "OK" was pressed; `path` is the device file, empty when the list was.
    void chosen(const std::string& path);

private:
    void onAccepted();

    QComboBox* m_comboDeviceList;
    QLabel* m_lblNone;
};
