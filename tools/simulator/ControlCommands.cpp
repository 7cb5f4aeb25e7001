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

} // namespace

QString ControlCommands::execute(const QString& line) {
    try {
        return run(line.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts));
    } catch (const std::exception& error) {
        return QStringLiteral("error: ") + QString::fromUtf8(error.what());
    }
}

QString ControlCommands::run(QStringList words) {
    if (words.isEmpty())
        refuse(QStringLiteral("empty command"));
    const QString verb = words.takeFirst();
    if (verb == QLatin1String("status"))
        return status();
    const std::string name = words.value(0).toStdString();
    if (verb == QLatin1String("plug"))
        plug(name);
    else if (verb == QLatin1String("unplug"))
        m_devices.unplug(device(name));
    else if (verb == QLatin1String("hangup"))
        m_devices.hangUp(device(name));
    else if (verb == QLatin1String("vanish"))
        m_devices.vanish(device(name));
    else
        changeController(verb, words, device({}));
    return ok;
}

SimulatedDevice& ControlCommands::device(const std::string& name) {
    SimulatedDevice* device = m_devices.find(name);
    if (!device)
        refuse(QStringLiteral("no such device"));
    return *device;
}

void ControlCommands::plug(const std::string& name) {
    SimulatedDevice* known = name.empty() ? nullptr : m_devices.find(name);
    if (known && !known->isPlugged())
        return m_devices.plug(*known);
    for (const auto& device : m_devices.all())
        if (!device->isPlugged())
            return m_devices.plug(*device, name);
    refuse(QStringLiteral("all devices are plugged in"));
}

void ControlCommands::changeController(const QString& verb, const QStringList& arguments,
                                       SimulatedDevice& device) {
    if (!device.controller)
        refuse(QStringLiteral("not a controller"));
    if (verb == QLatin1String("fault")) {
        const std::string text = arguments.value(0).toStdString();
        std::string error;
        const auto fault = Fault::parse(text, &error);
        if (text == "off")
            device.faults.clear();
        else if (fault)
            device.faults.add(*fault);
        else
            throw std::runtime_error(error);
    } else if (verb == QLatin1String("clock")) {
        const auto f = bytes(arguments, 6);
        device.controller->setClock({f[0], f[1], f[2], f[3], f[4], f[5]});
    } else if (verb == QLatin1String("forget")) {
        for (auto& channel : device.controller->editState().sequence)
            channel.clear();
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
                          {QStringLiteral("pid"), m_programId}};
    return QString::fromUtf8(QJsonDocument(all).toJson(QJsonDocument::Compact));
}
