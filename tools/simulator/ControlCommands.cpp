#include "simulator/ControlCommands.h"

#include "simulator/ControllerReport.h"
#include "simulator/SimulatedDevices.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <stdexcept>

namespace {

const auto ok = QStringLiteral("ok");

[[noreturn]] void refuse(const QString& text) {
    throw std::runtime_error(text.toStdString());
}

int number(const QString& text, int most = 255) {
    bool valid = false;
    const int value = text.toInt(&valid);
    if (!valid || value < 0 || value > most)
        refuse(QStringLiteral("not a number from 0 to %1: %2").arg(most).arg(text));
    return value;
}

std::vector<std::uint8_t> bytes(const QStringList& words, qsizetype count) {
    if (words.size() != count)
        refuse(QStringLiteral("%1 numbers are needed").arg(count));
    std::vector<std::uint8_t> values;
    for (const QString& word : words)
        values.push_back(static_cast<std::uint8_t>(number(word)));
    return values;
}

/// "HH:MM=LEVEL"
SequenceEntry entry(const QString& text) {
    const QStringList parts =
        QString(text).replace(QLatin1Char('='), QLatin1Char(':')).split(QLatin1Char(':'));
    const auto values = bytes(parts, 3);
    return {values[0], values[1], values[2]};
}

} // namespace

QString ControlCommands::execute(const QString& line) {
    try {
        return run(line.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts));
    } catch (const std::exception& error) {
        return QStringLiteral("error: ") + QString::fromUtf8(error.what());
    }
}

QString ControlCommands::run(QStringList words) {
    std::string name;
    if (words.size() >= 2 && words.first() == QLatin1String("on")) {
        name = words[1].toStdString();
        words = words.mid(2);
    }
    if (words.isEmpty())
        refuse(QStringLiteral("empty command"));
    const QString verb = words.takeFirst();
    if (verb == QLatin1String("status"))
        return status();
    if (verb == QLatin1String("note")) {
        m_log.note("-", words.join(QLatin1Char(' ')).toStdString());
        return ok;
    }
    if (verb == QLatin1String("plug")) {
        plug(words);
        return ok;
    }
    const QStringList cables{QStringLiteral("unplug"), QStringLiteral("hangup"),
                             QStringLiteral("vanish")};
    if (cables.contains(verb) && !words.isEmpty())
        name = words.first().toStdString();
    SimulatedDevice* device = m_devices.find(name);
    if (!device)
        refuse(QStringLiteral("no such device"));
    return runOnDevice(verb, words, *device);
}

void ControlCommands::plug(const QStringList& arguments) {
    const std::string name = arguments.value(0).toStdString();
    const auto& devices = m_devices.all();
    if (arguments.size() > 1) {
        const int index = number(arguments[1], static_cast<int>(devices.size()) - 1);
        return m_devices.plug(*devices[static_cast<std::size_t>(index)], name);
    }
    SimulatedDevice* known = name.empty() ? nullptr : m_devices.find(name);
    if (known && !known->isPlugged())
        return m_devices.plug(*known);
    for (const auto& device : devices) {
        if (!device->isPlugged())
            return m_devices.plug(*device, name);
    }
    refuse(QStringLiteral("all devices are plugged in"));
}

QString ControlCommands::runOnDevice(const QString& verb, const QStringList& arguments,
                                     SimulatedDevice& device) {
    if (verb == QLatin1String("unplug")) {
        m_devices.unplug(device);
    } else if (verb == QLatin1String("hangup")) {
        m_devices.hangUp(device);
    } else if (verb == QLatin1String("vanish")) {
        m_devices.vanish(device);
    } else if (verb == QLatin1String("fault") || verb == QLatin1String("faults")) {
        const std::string text = arguments.value(0).toStdString();
        std::string error;
        const auto fault = Fault::parse(text, &error);
        if (text == "off")
            device.faults.clear();
        else if (fault)
            device.faults.add(*fault);
        else
            throw std::runtime_error(error);
    } else {
        editController(verb, arguments, device);
    }
    return ok;
}

void ControlCommands::editController(const QString& verb, const QStringList& arguments,
                                     SimulatedDevice& device) {
    ControllerLine* line = device.pty ? device.pty->line() : nullptr;
    if (!device.controller)
        refuse(QStringLiteral("not a controller"));
    ControllerState& state = device.controller->editState();
    if (verb == QLatin1String("clock")) {
        const auto f = bytes(arguments, 6);
        device.controller->setClock({f[0], f[1], f[2], f[3], f[4], f[5]});
    } else if (verb == QLatin1String("task-light")) {
        const auto f = bytes(arguments, 4);
        state.taskLight = {f[0], f[1], {f[2], f[3]}, state.taskLight.fadeTime};
    } else if (verb == QLatin1String("sequence")) {
        const int last = static_cast<int>(state.sequence.size()) - 1;
        std::vector<SequenceEntry> entries;
        for (const QString& text : arguments.mid(1))
            entries.push_back(entry(text));
        state.sequence[static_cast<std::size_t>(number(arguments.value(0), last))] = entries;
    } else if (!line) {
        refuse(QStringLiteral("unknown command, or nothing is plugged in: ") + verb);
    } else if (verb == QLatin1String("unasked")) {
        line->send(FaultPlan::unaskedAnswer(number(arguments.value(0))), "unasked");
    } else if (verb == QLatin1String("noise")) {
        line->send(device.faults.strayBytes(number(arguments.value(0), 1000000)), "noise");
    } else if (verb == QLatin1String("reset")) {
        line->reset(std::chrono::milliseconds(number(arguments.value(0), 60000)));
    } else {
        refuse(QStringLiteral("unknown command: ") + verb);
    }
}

QString ControlCommands::status() const {
    QJsonArray devices;
    for (const auto& device : m_devices.all()) {
        QJsonObject object;
        if (device->controller)
            object = reportOf(*device->controller);
        object[QStringLiteral("name")] = QString::fromStdString(device->name);
        object[QStringLiteral("plugged")] = device->isPlugged();
        object[QStringLiteral("inUse")] = device->isPlugged() && device->pty->isInUse();
        devices.append(object);
    }
    const QJsonObject all{{QStringLiteral("devices"), devices},
                          {QStringLiteral("seconds"), m_log.secondsNow()},
                          {QStringLiteral("pid"), m_programId}};
    return QString::fromUtf8(QJsonDocument(all).toJson(QJsonDocument::Compact));
}
