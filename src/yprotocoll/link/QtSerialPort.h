#pragma once

#include "yprotocoll/link/SerialPort.h"

#include <QObject>
#include <QTimer>

#include <memory>

class QSerialPort;
class QSocketNotifier;

/// A serial port of this computer, read and written through Qt SerialPort.
///
/// `open()` ends before it returns. The loss of an open port is reported from the event loop, never
/// from inside a call: as removal when the device file has gone, else as closing. `close()` on an
/// open port reports `serialPortWasClosed` before it returns. Not to be deleted, nor opened again,
/// from inside its own report.
class QtSerialPort : public QObject, public SerialPort {
    Q_OBJECT

public:
    explicit QtSerialPort(SerialPortInfo info, QObject* parent = nullptr);
    /// Closes the port without a report.
    ~QtSerialPort() override;

    void setDelegate(SerialPortDelegate* delegate) override { m_delegate = delegate; }
    const SerialPortInfo& info() const override { return m_info; }
    void open() override;
    void close() override;
    void send(std::span<const std::uint8_t> bytes) override;
    void deliverPending() override;

    /// The system says that the device has gone; closes and reports it, if the port is open.
    void deviceWasRemoved();

private:
    void onReadyRead();
    void onError();
    void onLinkLost();
    void reportLoss();
    bool isOpen() const;
    void shut();

    SerialPortInfo m_info;
    SerialPortDelegate* m_delegate = nullptr;
    /// Kept closed after a loss: one of its signals may be what told of it.
    std::unique_ptr<QSerialPort> m_port;
    std::unique_ptr<QSocketNotifier> m_hangUp;
    QTimer m_loss;           ///< runs between the first sign of a loss and its report
    std::string m_lastError; ///< reported already
};
