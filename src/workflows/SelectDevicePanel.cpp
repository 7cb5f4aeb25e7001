#include "workflows/SelectDevicePanel.h"

#include "yprotocoll/link/SerialPort.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

SelectDevicePanel::SelectDevicePanel(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("panelSelectDevice"));
    setWindowTitle(QStringLiteral("Aquelon"));
    setWindowModality(Qt::ApplicationModal);
}

void SelectDevicePanel::makeControls() {
    m_comboDeviceList = new QComboBox(this);
    m_lblNone = new QLabel(tr("No Aquelon controller is plugged in."), this);
    m_comboDeviceList->setObjectName(QStringLiteral("comboDeviceList"));
    m_comboDeviceList->setAccessibleName(tr("Controller"));
    m_comboDeviceList->setMinimumContentsLength(32);
    auto* label = new QLabel(tr("&Controller to connect to:"), this);
    label->setBuddy(m_comboDeviceList);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("OK"));
    connect(buttons, &QDialogButtonBox::accepted, this, &SelectDevicePanel::onAccepted);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(8);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->addWidget(label);
    layout->addWidget(m_comboDeviceList);
    layout->addWidget(m_lblNone);
    layout->addSpacing(8);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void SelectDevicePanel::run(const std::vector<SerialPortInfo>& ports) {
    if (!m_comboDeviceList)
        makeControls();
    m_comboDeviceList->clear();
    for (const SerialPortInfo& port : ports)
        m_comboDeviceList->addItem(
            tr("Aquelon Controller %1").arg(QString::fromStdString(port.path)),
            QString::fromStdString(port.path));
    m_comboDeviceList->setCurrentIndex(ports.empty() ? -1 : 0);
    m_comboDeviceList->setEnabled(!ports.empty());
    m_lblNone->setVisible(ports.empty());
    show();
    m_comboDeviceList->setFocus();
}

void SelectDevicePanel::onAccepted() {
    accept();
    Q_EMIT chosen(m_comboDeviceList->currentData().toString().toStdString());
}
