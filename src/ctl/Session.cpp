#include "ctl/Session.h"

#include "ctl/ProgramFile.h"
#include "data/ProgramChanges.h"

#include <QFileInfo>
#include <QTimer>

namespace {

using namespace std::chrono_literals;
using Command = Arguments::Command;

constexpr auto pace = 200ms;    ///< from look to look
constexpr auto arrival = 300ms; ///< another controller may arrive with the first

QString choiceOf(const std::vector<SerialPortInfo>& ports) {
    QStringList paths;
    for (const SerialPortInfo& port : ports)
        paths << QString::fromStdString(port.path);
    return QStringLiteral("there are %1 controllers, choose one with --device: %2")
        .arg(paths.size())
        .arg(paths.join(QStringLiteral(", ")));
}

} // namespace

Session::Session(const Arguments& arguments)
    : m_arguments(arguments), m_deadline(arguments.timeout) {
    m_controller.setDelegate(this);
    connect(&m_departure, &Departure::ended, this, [this] {
        finish(Outcome::failure(Exit::done, QStringLiteral("ended by signal %1").arg(m_signal)));
    });
}

Session::~Session() {
    m_controller.setDelegate(nullptr);
}

void Session::start() {
    const QString fault = fileFault();
    if (!fault.isEmpty())
        finish(Outcome::failure(Exit::refused, fault));
    else if (m_arguments.command == Command::check)
        finish(ProgramFile::describe(m_arguments.file, m_data));
    else
        lookForController(Look::First);
}

QString Session::fileFault() {
    if (m_arguments.file.isEmpty())
        return {};
    if (m_arguments.command == Command::load)
        return QFileInfo::exists(m_arguments.file) && !m_arguments.isForced
                   ? m_arguments.file + QStringLiteral(" exists; --force replaces it")
                   : QString();
    QString fault = ProgramFile::read(m_arguments.file, m_data);
    if (fault.isEmpty() && m_arguments.scale < 100)
        m_data.sequence().replacePoints(
            ProgramChanges::scaledIntensity(m_data.sequence().points(), m_arguments.scale / 100.0));
    return fault;
}

// The controller

std::vector<SerialPortInfo> Session::controllers() const {
    auto ports = m_controller.availablePorts();
    // The links that udev makes, such as those in /dev/serial, are as good.
    const std::string given = QFile::encodeName(m_arguments.device).toStdString();
    const std::string target =
        QFile::encodeName(QFileInfo(m_arguments.device).symLinkTarget()).toStdString();
    if (!given.empty())
        std::erase_if(ports,
                      [&](const auto& port) { return port.path != given && port.path != target; });
    return ports;
}

void Session::lookForController(Look look) {
    if (m_isEnded)
        return;
    const auto ports = controllers();
    const auto lookAgain = [this](auto wait, Look next) {
        QTimer::singleShot(wait, this, [this, next] { lookForController(next); });
    };
    if (ports.empty() && !m_deadline.hasExpired())
        lookAgain(pace, Look::Again);
    else if (ports.empty())
        finish(Outcome::failure(Exit::noController, nothingFound()));
    else if (look == Look::Again)
        lookAgain(arrival, Look::First);
    else if (m_arguments.command == Command::list)
        list(ports);
    else if (ports.size() == 1)
        m_controller.open(ports.front());
    else
        finish(Outcome::failure(Exit::noController, choiceOf(ports)));
}

QString Session::nothingFound() const {
    return m_arguments.device.isEmpty()
               ? QStringLiteral("no controller is plugged in")
               : QStringLiteral("there is no controller at ") + m_arguments.device;
}

void Session::messageControllerDidOpen() {
    m_wasConnected = true;
    m_contents.linkOpened(m_controller.portPath());
    m_lamp.setConnected(true);
    if (m_signal == 0)
        run();
}

void Session::messageControllerGotError(const YMessageError& error) {
    const auto* const portError = error.get<YMessageError::PortError>();
    const bool isRefused = portError && !m_wasConnected;
    if (!isRefused && !error.is<YMessageError::PortClosedError>() &&
        !error.is<YMessageError::DeviceVersion>())
        return; // the link goes on
    QStringList remedies;
    if (portError)
        for (const auto& remedy : portError->remedies)
            remedies << QStringLiteral("This may help: ") + QString::fromStdString(remedy.command);
    finish(
        Outcome::failure(Exit::linkFailed, QString::fromStdString(error.description()), remedies));
}

// The end

void Session::interrupt(int signal) {
    if (m_signal != 0)
        return;
    m_signal = signal;
    m_departure.end(Departure::Loss::Ends);
}

void Session::finish(Outcome outcome) {
    if (std::exchange(m_isEnded, true))
        return;
    constexpr int ofSignals = 128;
    if (m_signal != 0)
        outcome.status = ofSignals + m_signal;
    m_controller.stop();
    Q_EMIT ended(outcome);
}
