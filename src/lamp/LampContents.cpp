#include "lamp/LampContents.h"

#include "data/AQDataSource.h"
#include "data/DeviceProgramImage.h"

#include <algorithm>
#include <utility>

namespace {

bool contains(const std::vector<std::string>& paths, const std::string& path) {
    return std::ranges::find(paths, path) != paths.end();
}

} // namespace

LampContents::LampContents(AQDataSource& data, QObject* parent) : QObject(parent), m_data(data) {
    // Whatever a person changes is noted there.
    connect(&data.history(), &History::changed, this, &LampContents::refresh);
    connect(&data.notifications(), &NotificationCenter::dataLoaded, this, &LampContents::refresh);
}

bool LampContents::isPartKnown() const {
    return m_brokenSendTo && (!m_isConnected || m_brokenSendTo == m_path);
}

LampContents::State LampContents::stateNow() const {
    if (isPartKnown())
        return State::partOfThisProgram;
    if (!m_isConnected)
        return State::unknown;
    if (m_isProgramMode == false)
        return State::analogInput;
    if (!m_stored)
        return State::unknown;
    return ProgramComparison(m_data.contents(), *m_stored).isEqual() ? State::thisProgram
                                                                     : State::anotherProgram;
}

void LampContents::refresh() {
    m_state = stateNow();
    if (std::exchange(m_announcedText, text()) != text())
        Q_EMIT changed();
}

QString LampContents::text() const {
    switch (m_state) {
    case State::thisProgram:
        return tr("the lamp runs this program");
    case State::anotherProgram:
        return tr("the lamp runs another program");
    case State::partOfThisProgram:
        return m_isConnected ? tr("the lamp may hold a part of this program: Send again")
                             : tr("the lamp may hold a part of this program");
    case State::analogInput:
        return tr("the lamp follows its analog input");
    case State::unknown:
        break;
    }
    return {};
}

QString LampContents::changeBySending() const {
    if (isPartKnown())
        return tr("The lamp may hold a part of what was sent before.");
    if (!m_stored)
        return tr("What the lamp holds has not been read yet.");
    // By levels alone: a load cannot always be given back exactly, and then sending it is a change.
    const auto contents = m_data.contents();
    const auto channels = static_cast<int>(m_stored->image.channels.size());
    return ProgramComparison(contents, DeviceProgramImage::imageOf(contents, channels),
                             m_stored->image)
        .change();
}

void LampContents::noteRead(const StoredProgram& program) {
    m_stored = program;
    if (isPartKnown())
        m_brokenSendTo.reset();
    refresh();
}

void LampContents::noteUnreadable() {
    m_stored.reset();
    refresh();
}

void LampContents::noteStored(const DeviceImage& image) {
    noteRead({image, std::nullopt});
}

void LampContents::noteBrokenSend() {
    m_stored.reset();
    m_brokenSendTo = m_path;
    refresh();
}

void LampContents::forgetMode() {
    m_isProgramMode.reset();
    refresh();
}

void LampContents::noteMode(bool isProgramMode) {
    m_isProgramMode = isProgramMode;
    refresh();
}

void LampContents::linkOpened(const std::string& path, const std::vector<std::string>& present) {
    if (path != m_path)
        portRemoved();
    m_path = path;
    // A controller that was plugged in again may have another path.
    if (m_brokenSendTo && !contains(present, *m_brokenSendTo))
        m_brokenSendTo = path;
    m_isConnected = true;
    refresh();
}

void LampContents::linkLost() {
    m_isConnected = false;
    refresh();
}

void LampContents::portRemoved() {
    m_path.clear();
    m_stored.reset();
    m_isProgramMode.reset();
    refresh();
}

void LampContents::portsPresent(const std::vector<std::string>& present) {
    if (!m_isConnected && !m_path.empty() && !contains(present, m_path))
        portRemoved();
}
