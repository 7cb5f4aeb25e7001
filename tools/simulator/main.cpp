#include "simulator/ChildProgram.h"
#include "simulator/ControlCommands.h"
#include "simulator/ControlServer.h"
#include "simulator/SimulatedDevices.h"
#include "simulator/SimulatorOptions.h"

#include <QCoreApplication>
#include <QLockFile>

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

constexpr UsbIdentity foreignUsb{0x0403, 0x6001}; // a common USB serial adapter

int fail(const std::string& text) {
    std::fprintf(stderr, "aquelon-simulator: %s\n", text.c_str());
    return 1;
}

bool isWrapped() {
    const char* preloaded = std::getenv("LD_PRELOAD");
    return preloaded && std::strstr(preloaded, "libumockdev-preload");
}

/// Starts this program again with umockdev's library in front; returns only on failure.
int wrap(char** arguments) {
    const char* present = std::getenv("ASAN_OPTIONS");
    const std::string options = present ? std::string(present) + ":" : std::string();
    setenv("ASAN_OPTIONS", (options + "verify_asan_link_order=0").c_str(), 1);
    std::string wrapper = "umockdev-wrapper";
    std::string self = "/proc/self/exe";
    std::vector<char> path(4096);
    if (const auto length = readlink(self.c_str(), path.data(), path.size()); length > 0)
        self.assign(path.data(), static_cast<std::size_t>(length));
    std::vector<char*> line{wrapper.data(), self.data()};
    for (char** argument = arguments + 1; *argument; ++argument)
        line.push_back(*argument);
    line.push_back(nullptr);
    execvp(line[0], line.data());
    fail("cannot run umockdev-wrapper: " + std::string(std::strerror(errno)) +
         "\nIt shows the simulated USB device to the program; install the package umockdev.");
    return 127;
}

/// "ttyUSB0", "ttyUSB1", ... counted on from the name of the first.
std::string nameOf(const std::string& first, int index) {
    const auto digits = first.find_last_not_of("0123456789") + 1;
    const int number = digits < first.size() ? std::atoi(first.c_str() + digits) : 0;
    return first.substr(0, digits) + std::to_string(number + index);
}

/// Each simulator has a USB bus of its own, but the lock files by which serial programs keep out of
/// each other's way are the whole computer's.
bool isInUse(const std::string& name) {
    QLockFile lock(QStringLiteral("/var/lock/LCK..") + QString::fromStdString(name));
    return !lock.tryLock() && lock.error() == QLockFile::LockFailedError;
}

/// The name for the first of so many ports that no other simulator's program has open.
std::string freeName(int count) {
    for (int index = 0;; ++index) {
        const std::string first = nameOf("ttyUSB0", index);
        int free = 0;
        while (free < count && !isInUse(nameOf(first, free)))
            ++free;
        if (free == count)
            return first;
    }
}

void addDevices(SimulatedDevices& devices, const SimulatorOptions& options) {
    const std::string first = options.name.empty() ? freeName(options.devices) : options.name;
    for (int i = 0; i < options.devices; ++i) {
        auto& device = devices.addController(options.controller, nameOf(first, i));
        for (const Fault& fault : options.faults)
            device.faults.add(fault);
        if (options.pluggedAtStart)
            devices.plug(device);
    }
    if (options.foreign)
        devices.plug(devices.addForeign(foreignUsb, nameOf(first, options.devices)));
    if (options.builtin)
        devices.plug(devices.addForeign(std::nullopt, "ttyS0"));
}

int run(const SimulatorOptions& options) {
    WireLog log = options.logFile.empty() ? WireLog() : WireLog(options.logFile);
    log.setKeepEvents(false);
    ChildProgram::holdSignals(); // before umockdev makes its thread
    MockBus bus;
    SimulatedDevices devices(bus, log, options.paced);
    addDevices(devices, options);
    ControlCommands commands(devices);
    ControlServer server([&](const QString& line) { return commands.execute(line); });
    if (!options.controlPath.empty() && !server.listen(QString::fromStdString(options.controlPath)))
        return fail(options.controlPath + ": " + server.errorString().toStdString());

    ChildProgram child;
    QObject::connect(&child, &ChildProgram::ended, qApp, &QCoreApplication::exit,
                     Qt::QueuedConnection);
    child.start(options.program);
    commands.setProgramId(child.processId());
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const auto options = SimulatorOptions::parse(QCoreApplication::arguments());
    if (!options.tell.isEmpty()) {
        const QString reply = ControlServer::tell(QString::fromStdString(options.controlPath),
                                                  options.tell.join(QLatin1Char(' ')));
        std::printf("%s\n", qPrintable(reply));
        return reply.startsWith(QLatin1String("error: ")) ? 1 : 0;
    }
    if (!isWrapped())
        return wrap(argv);
    try {
        return run(options);
    } catch (const std::exception& error) {
        return fail(error.what());
    }
}
