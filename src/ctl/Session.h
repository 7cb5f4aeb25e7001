#pragma once

#include "ctl/Arguments.h"
#include "ctl/Outcome.h"
#include "data/AQDataSource.h"
#include "lamp/DemoPlayer.h"
#include "lamp/Departure.h"
#include "lamp/LampContents.h"
#include "lamp/LampPreview.h"
#include "lamp/Transfers.h"
#include "yprotocoll/link/ModalPause.h"
#include "yprotocoll/link/UdevSerialPortManager.h"
#include "yprotocoll/link/YMessageController.h"

#include <QDeadlineTimer>
#include <QObject>

/// Carries out one command: finds and opens the controller where it is needed, and leaves it in
/// order.
class Session : public QObject, private YMessageControllerDelegate {
    Q_OBJECT

public:
    explicit Session(const Arguments& arguments);
    ~Session() override;

    /// Ends in `ended`.
    void start();
    /// Ends the command by this signal: a send ends first, the lamp gets back its own program.
    void interrupt(int signal);

Q_SIGNALS:
    /// Once.
    void ended(const Outcome& outcome);

private:
    enum class Look { First, Again };

    // Until the link is there.
    QString fileFault();
    void lookForController(Look look);
    std::vector<SerialPortInfo> controllers() const;
    QString nothingFound() const;
    void messageControllerDidOpen() override;
    void messageControllerGotError(const YMessageError& error) override;

    // The commands; those with a link end later.
    void run();
    void list(const std::vector<SerialPortInfo>& ports);
    void info();
    void load(const StoredProgram& program);
    void send();
    void compare(const StoredProgram& program);
    void clock();
    void demo();
    void onRead(const TransferResult& result, const StoredProgram& program);
    void onSent(const TransferResult& result, const QString& difference);
    void onClock(const YAnswer& answer, const QDateTime& askedAt);
    QJsonObject deviceJson() const;

    void finish(Outcome outcome);

    Arguments m_arguments;
    QDeadlineTimer m_deadline;
    UdevSerialPortManager m_ports;
    ModalPause m_pause; ///< never active
    YMessageController m_controller{m_ports, m_pause};
    NotificationCenter m_notifications;
    AQDataSource m_data{m_notifications, [this] { return m_controller.device(); }};
    LampContents m_contents{m_data};
    Transfers m_transfers{m_data, m_controller, m_contents};
    LampPreview m_lamp{m_controller};
    DemoPlayer m_demo{m_data, m_lamp};
    Departure m_departure{m_controller, m_transfers, m_lamp};
    bool m_wasConnected = false;
    bool m_isEnded = false;
    int m_signal = 0; ///< that ends the session
};
