#include "yprotocoll/link/YMessageController.h"

#include "yprotocoll/YAnswers.h"
#include "yprotocoll/YCommands.h"

#include <spdlog/spdlog.h>

namespace {

constexpr int supportedEntrySize = 3;

bool isSupported(DeviceVersion version) {
    return version.major > 1 || (version.major == 1 && version.minor >= 1);
}

} // namespace

YMessageController::YMessageController(SerialPortManager& ports, ModalPause& pause,
                                       Intervals intervals)
    : m_pause(pause), m_finder(ports, pause, {intervals.scan, intervals.open, intervals.arrival}),
      m_queue(pause, intervals.answer, intervals.maxTimeouts) {
    connect(&m_finder, &PortFinder::found, this, &YMessageController::onFound);
    connect(&m_finder, &PortFinder::left, this,
            [this](const std::string& path) { later([this, path] { Q_EMIT portLeft(path); }); });
    connect(&m_finder, &PortFinder::opening, &m_queue, &CommandQueue::start);
    connect(&m_finder, &PortFinder::opened, this, &YMessageController::onOpened);
    connect(&m_finder, &PortFinder::received, this, &YMessageController::received);
    connect(&m_finder, &PortFinder::received, &m_queue, &CommandQueue::receive);
    connect(&m_queue, &CommandQueue::written, this, &YMessageController::written);
    connect(&m_finder, &PortFinder::failed, this, &YMessageController::report);
    connect(&m_finder, &PortFinder::ended, this, [this](const auto& reason) {
        close();
        if (reason)
            report(*reason);
    });
    connect(&m_finder, &PortFinder::timedOut, this,
            [this] { refuse(YMessageError::portClosed(YMessageError::OpenTimeout{})); });
    connect(&m_queue, &CommandQueue::failed, this, &YMessageController::report);
    connect(&m_queue, &CommandQueue::gaveUp, this, [this] {
        close();
        report(YMessageError::portClosed(YMessageError::AnswerTooManyTimeouts{}));
    });
}

std::string YMessageController::portPath() const {
    const SerialPort* const port = m_finder.port();
    return port ? port->info().path : std::string();
}

void YMessageController::stop() {
    m_finder.stop();
    close();
}

void YMessageController::close() {
    m_device.reset();
    m_isConnected = false;
    m_queue.stop();
    m_finder.close();
}

// The open sequence

void YMessageController::onOpened() {
    SPDLOG_TRACE("checking device version");
    m_queue.enqueue(CmdGetVersion(), [this](const AnswerPtr& answer) { gotVersion(*answer); });
}

void YMessageController::gotVersion(const YAnswer& answer) {
    const auto* const version = dynamic_cast<const AnswerVersion*>(&answer);
    if (!version)
        return;
    const auto [major, minor] = version->version;
    if (!isSupported(version->version)) {
        refuse(YMessageError::DeviceVersion{major, minor});
        return;
    }
    SPDLOG_INFO(fmt::format("device version {}.{}", major, minor));
    m_device = DeviceInfo{version->version, version->build, version->deviceType, {}, {}};
    m_queue.enqueue(CmdGetSequenceDataInfo(),
                    [this](const AnswerPtr& info) { gotSequenceDataInfo(*info); });
}

void YMessageController::gotSequenceDataInfo(const YAnswer& answer) {
    const auto* const info = dynamic_cast<const AnswerSequenceDataInfo*>(&answer);
    if (!m_device || !info)
        return;
    if (info->sizeOfEntry != supportedEntrySize) {
        refuse(YMessageError::portClosed(YMessageError::SequenceDataFormat{}));
        return;
    }
    m_device->channelCount = info->channelCount;
    m_device->maxPointsInSeq = info->maxPoints;
    m_finder.accept();
    m_isConnected = true;
    later([this] {
        // Lost again in between: the loss alone is told.
        if (m_delegate && m_isConnected)
            m_delegate->messageControllerDidOpen();
    });
}

/// Ends the link to a device that discovery would only find unfit again.
void YMessageController::refuse(const YMessageError& error) {
    m_finder.refuse();
    close();
    report(error);
}

// Reports, all from the event loop

void YMessageController::onFound(std::size_t count) {
    later([this, count] {
        if (m_delegate)
            m_delegate->messageControllerFoundPorts(count);
    });
}

void YMessageController::report(const YMessageError& error) {
    later([this, error] {
        if (m_delegate)
            m_delegate->messageControllerGotError(error);
    });
}

void YMessageController::later(std::function<void()> call) {
    QMetaObject::invokeMethod(this, std::move(call), Qt::QueuedConnection);
}
