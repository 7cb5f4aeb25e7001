#pragma once

#include <QDialog>

#include <string>
#include <vector>

class QComboBox;
class QLabel;
struct SerialPortInfo;

/// Lets the person choose among the controllers that are plugged in.
///
/// Its controls are made when it is first shown: it is rarely needed, and the icons of its buttons
/// cost a fifth of the program's start.
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
    void makeControls();
    void onAccepted();

    QComboBox* m_comboDeviceList = nullptr;
    QLabel* m_lblNone = nullptr;
};
