#include "lamp/LampContents.h"

#include "data/AQDataSource.h"
#include "data/DeviceProgramImage.h"
#include "lamp/HeldDay.h"

#include <algorithm>
#include <utility>

LampContents::LampContents(AQDataSource& data, QObject* parent) : QObject(parent), m_data(data) {
    // Whatever a person changes is noted there.
    connect(&data.history(), &History::changed, this, &LampContents::refresh);
    connect(&data.notifications(), &NotificationCenter::dataLoaded, this, &LampContents::refresh);
    connect(&data.notifications(), &NotificationCenter::dayChanged, this, &LampContents::refresh);
}

const LampContents::Lamp& LampContents::lamp() const {
    static const Lamp nothing;
    const auto found = m_lamps.find(m_path);
    return found == m_lamps.end() ? nothing : found->second;
}

bool LampContents::isPartKnown() const {
    if (m_isConnected)
        return lamp().brokenSend.has_value();
    return std::ranges::any_of(m_lamps,
                               [](const auto& each) { return each.second.brokenSend.has_value(); });
}

LampContents::State LampContents::stateNow() const {
    if (isPartKnown())
        return State::partOfThisProgram;
    if (!m_isConnected)
        return State::unknown;
    const Lamp& lamp = this->lamp();
    if (lamp.isProgramMode == false)
        return State::analogInput;
    if (!lamp.stored)
        return State::unknown;
    return ProgramComparison(m_data.contentsToday(), *lamp.stored).isEqual()
               ? State::thisProgram
               : State::anotherProgram;
}

void LampContents::refresh() {
    m_state = stateNow();
    const QString all = text() + u'|' + explanation();
    if (std::exchange(m_announced, all) != all)
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

QString LampContents::explanation() const {
    if (m_state == State::partOfThisProgram)
        return brokenSends();
    if (m_state == State::thisProgram || m_state == State::anotherProgram) {
        QStringList lines{earlierDay(), unknownMode()};
        lines.removeAll(QString());
        return lines.join(u'\n');
    }
    if (m_state != State::unknown || !m_isConnected)
        return {};
    switch (lamp().unknown) {
    case Unknown::unreadable:
        return tr("read, but not understood");
    case Unknown::untold:
        return tr("sent, but the controller does not tell what it stored");
    case Unknown::notRead:
        break;
    }
    return tr("not read yet");
}

QString LampContents::unknownMode() const {
    if (lamp().isProgramMode)
        return {};
    return tr("If it is in programmed mode: the mode has not been read.");
}

QString LampContents::earlierDay() const {
    if (m_state != State::anotherProgram)
        return {};
    const auto day = heldAcclimationDay(m_data, *lamp().stored);
    // If it is today's, the difference is elsewhere.
    if (!day || *day == m_data.acclimation()->dayOn(m_data.today()))
        return {};
    const Acclimation& acclimation = *m_data.acclimation();
    const QDate date = acclimation.firstDay.addDays(*day - 1);
    const int held = acclimation.percentOn(date);
    const int wanted = acclimation.percentOn(m_data.today());
    if (date == m_data.today().addDays(-1))
        return tr("The lamp runs yesterday's %1 %; send it today's %2 %").arg(held).arg(wanted);
    return tr("The lamp runs the %1 % of day %2; send it today's %3 %")
        .arg(held)
        .arg(*day)
        .arg(wanted);
}

QString LampContents::brokenSends() const {
    QStringList lines;
    const auto here = m_data.contents();
    for (const auto& [path, lamp] : m_lamps) {
        if (!lamp.brokenSend || (m_isConnected && path != m_path))
            continue;
        const bool isStillHere =
            lamp.brokenSend->points == here.points && lamp.brokenSend->taskLight == here.taskLight;
        lines << (isStillHere
                      ? tr("A send to %1 broke off.")
                      : tr("A send to %1 broke off; the program has been changed here since."))
                     .arg(QString::fromStdString(path));
    }
    lines << tr("What the lamp holds is known again after a whole send, load or "
                "comparison.");
    return lines.join(u'\n');
}

QString LampContents::changeBySending() const {
    const auto& acclimation = m_data.acclimation();
    const QString change = changeOfStored();
    return acclimation && !acclimation->isOverOn(m_data.today())
               ? change + u'\n' +
                     tr("Acclimation %1 is sent").arg(acclimation->textOn(m_data.today()))
               : change;
}

QString LampContents::changeOfStored() const {
    const Lamp& lamp = this->lamp();
    if (isPartKnown() && !lamp.stored)
        return tr("The lamp may hold a part of what was sent before.");
    if (!lamp.stored && lamp.unknown == Unknown::notRead)
        return tr("What the lamp holds has not been read yet.");
    if (!lamp.stored)
        return tr("What the lamp holds is not known.");
    // By levels alone: a load cannot always be given back exactly, and then sending it is a change.
    const auto contents = m_data.contentsToday();
    const auto channels = static_cast<int>(lamp.stored->image.channels.size());
    return ProgramComparison(contents, DeviceProgramImage::imageOf(contents, channels),
                             lamp.stored->image)
        .change();
}

void LampContents::noteComplete(const std::optional<StoredProgram>& stored) {
    m_lamps[m_path].brokenSend.reset();
    m_lamps[m_path].stored = stored;
    refresh();
}

void LampContents::noteRead(const StoredProgram& program) {
    if (program.contents) {
        noteComplete(program);
        return;
    }
    // What a broken send has left is what it says now for certain.
    m_lamps[m_path].stored = program;
    refresh();
}

void LampContents::noteStored(const DeviceImage& image) {
    noteComplete(StoredProgram{image, std::nullopt});
}

void LampContents::noteStoredUntold() {
    m_lamps[m_path].unknown = Unknown::untold;
    noteComplete(std::nullopt);
}

void LampContents::noteUnreadable() {
    Lamp& lamp = m_lamps[m_path];
    lamp.stored.reset();
    lamp.unknown = Unknown::unreadable;
    refresh();
}

void LampContents::noteBrokenSend(const DocumentContents& contents) {
    Lamp& lamp = m_lamps[m_path];
    lamp.stored.reset();
    lamp.unknown = Unknown::notRead;
    lamp.brokenSend = contents;
    refresh();
}

void LampContents::forgetMode() {
    m_lamps[m_path].isProgramMode.reset();
    refresh();
}

void LampContents::noteMode(bool isProgramMode) {
    m_lamps[m_path].isProgramMode = isProgramMode;
    refresh();
}

void LampContents::linkOpened(const std::string& path) {
    m_path = path;
    m_isConnected = true;
    refresh();
}

void LampContents::linkLost() {
    m_isConnected = false;
    refresh();
}

void LampContents::portLeft(const std::string& path) {
    if (const auto found = m_lamps.find(path); found != m_lamps.end()) {
        auto brokenSend = std::move(found->second.brokenSend);
        found->second = Lamp();
        found->second.brokenSend = std::move(brokenSend);
    }
    refresh();
}
