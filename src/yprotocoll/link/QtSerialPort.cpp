#include "yprotocoll/link/QtSerialPort.h"

#include "yprotocoll/link/OpenFailure.h"

#include <QFile>
#include <QFileInfo>
#include <QSerialPort>
#include <QSocketNotifier>

#include <chrono>

namespace {

/// When a device is unplugged its line hangs up a moment before its device file goes. The wait
/// tells a removal from a line that only broke.
constexpr std::chrono::milliseconds removalWait{30};

/// Fixed by the controller.
constexpr qint32 baudRate = QSerialPort::Baud115200;

QString pathOf(const SerialPortInfo& info) {
    return QString::fromStdString(info.path);
}

/// Qt knows one error for a missing permission and for a port that another program holds.
YMessageError::PortError failureOf(const QSerialPort& port, const QFileInfo& device) {
    if (!device.exists() || port.error() != QSerialPort::PermissionError)
        return {port.errorString().toStdString(), {}};
    return device.isReadable() && device.isWritable()
               ? OpenFailure::taken(device.filePath())
               : OpenFailure::forbidden(device.filePath(), port.errorString());
}

/// Errors after which Qt SerialPort can neither read nor write, but signals on without end.
bool endsTheLink(QSerialPort::SerialPortError error) {
    return error == QSerialPort::ReadError || error == QSerialPort::ResourceError ||
           error == QSerialPort::DeviceNotFoundError || error == QSerialPort::PermissionError;
}

/// A time-out is ours when we ask for pending bytes; adapters without some setting refuse it.
bool isHarmless(QSerialPort::SerialPortError error) {
    return error == QSerialPort::NoError || error == QSerialPort::TimeoutError ||
           error == QSerialPort::UnsupportedOperationError;
}

} // namespace

QtSerialPort::QtSerialPort(SerialPortInfo info, QObject* parent)
    : QObject(parent), m_info(std::move(info)) {
    m_loss.setSingleShot(true);
    connect(&m_loss, &QTimer::timeout, this, &QtSerialPort::reportLoss);
}

QtSerialPort::~QtSerialPort() {
    shut();
}

bool QtSerialPort::isOpen() const {
    return m_port && m_port->isOpen();
}

void QtSerialPort::open() {
    if (isOpen())
        return;
    m_loss.stop();
    m_lastError.clear();
    auto port = std::make_unique<QSerialPort>(pathOf(m_info));
    port->setBaudRate(baudRate);
    port->setDataBits(QSerialPort::Data8);
    port->setParity(QSerialPort::NoParity);
    port->setStopBits(QSerialPort::OneStop);
    port->setFlowControl(QSerialPort::NoFlowControl);
    if (!port->open(QIODevice::ReadWrite)) {
        const auto failure = failureOf(*port, QFileInfo(pathOf(m_info)));
        port.reset();
        if (m_delegate)
            m_delegate->serialPortDidEncounterError(*this, failure);
        return;
    }
    // Bytes of an earlier conversation would be taken for answers.
    port->clear();
    // Only now: opening signals errors of its own although it succeeds.
    connect(port.get(), &QSerialPort::errorOccurred, this, &QtSerialPort::onError);
    connect(port.get(), &QSerialPort::readyRead, this, &QtSerialPort::onReadyRead);
    // Qt SerialPort does not reliably tell that the device hung up, so we watch the line ourselves.
    m_hangUp = std::make_unique<QSocketNotifier>(port->handle(), QSocketNotifier::Exception);
    connect(m_hangUp.get(), &QSocketNotifier::activated, this, &QtSerialPort::onLinkLost);
    m_port = std::move(port);
    if (m_delegate)
        m_delegate->serialPortWasOpened(*this);
}

void QtSerialPort::close() {
    const bool wasOpen = isOpen() || m_loss.isActive();
    m_loss.stop();
    shut();
    if (wasOpen && m_delegate)
        m_delegate->serialPortWasClosed(*this);
}

/// Frees the device and lets no further signal through.
void QtSerialPort::shut() {
    if (!isOpen())
        return;
    m_hangUp->setEnabled(false);
    m_port->disconnect(this);
    // Closing waits for unsent output, for up to 30 s on a device that takes none.
    m_port->clear(QSerialPort::Output);
    m_port->close();
}

void QtSerialPort::send(std::span<const std::uint8_t> bytes) {
    if (!isOpen())
        return;
    const QByteArray data(reinterpret_cast<const char*>(bytes.data()),
                          static_cast<qsizetype>(bytes.size()));
    m_port->write(data);
    // Else the bytes would leave with the next turn of the event loop, whenever that is.
    if (isOpen())
        m_port->flush();
}

void QtSerialPort::deliverPending() {
    // Bytes may still lie in the system's buffer when the event loop was held up.
    if (isOpen())
        m_port->waitForReadyRead(0);
    onReadyRead();
}

void QtSerialPort::onReadyRead() {
    if (!isOpen())
        return;
    const QByteArray data = m_port->readAll();
    if (data.isEmpty() || !m_delegate)
        return;
    m_lastError.clear();
    m_delegate->serialPortDidReceive(*this,
                                     {reinterpret_cast<const std::uint8_t*>(data.constData()),
                                      static_cast<std::size_t>(data.size())});
}

void QtSerialPort::onError() {
    if (!isOpen() || isHarmless(m_port->error()))
        return;
    if (endsTheLink(m_port->error())) {
        onLinkLost();
        return;
    }
    const std::string text = m_port->errorString().toStdString();
    if (text == m_lastError || !m_delegate)
        return;
    m_lastError = text;
    m_delegate->serialPortDidEncounterError(*this, {text, {}});
}

/// The first sign frees the device, so that no further one can come.
void QtSerialPort::onLinkLost() {
    if (!isOpen())
        return;
    shut();
    m_loss.start(QFile::exists(pathOf(m_info)) ? removalWait : std::chrono::milliseconds::zero());
}

void QtSerialPort::reportLoss() {
    if (!m_delegate)
        return;
    if (QFile::exists(pathOf(m_info)))
        m_delegate->serialPortWasClosed(*this);
    else
        m_delegate->serialPortWasRemovedFromSystem(*this);
}

void QtSerialPort::deviceWasRemoved() {
    if (!isOpen() && !m_loss.isActive())
        return;
    m_loss.stop();
    shut();
    if (m_delegate)
        m_delegate->serialPortWasRemovedFromSystem(*this);
}
