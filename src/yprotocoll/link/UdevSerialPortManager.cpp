#include "yprotocoll/link/UdevSerialPortManager.h"

#include "yprotocoll/link/QtSerialPort.h"

#include <QSocketNotifier>

#include <dirent.h>
#include <libudev.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <cstring>
#include <string_view>

namespace {

constexpr const char* ttySubsystem = "tty";

template <auto Unref>
struct Release {
    template <class Handle>
    void operator()(Handle* handle) const {
        Unref(handle);
    }
};
using Registry = std::unique_ptr<udev, Release<udev_unref>>;
using Monitor = std::unique_ptr<udev_monitor, Release<udev_monitor_unref>>;
using Device = std::unique_ptr<udev_device, Release<udev_device_unref>>;

std::optional<int> hexAttribute(udev_device* device, const char* name) {
    const char* const text = udev_device_get_sysattr_value(device, name);
    if (!text)
        return {};
    int value = 0;
    const char* const end = text + std::strlen(text);
    const auto result = std::from_chars(text, end, value, 16);
    if (result.ec != std::errc{} || result.ptr != end)
        return {};
    return value;
}

/// The nearest device upwards with both numbers decides; a hub above it is never asked.
std::optional<UsbIdentity> usbIdentity(udev_device* device) {
    // A parent belongs to its child and needs no release.
    for (; device; device = udev_device_get_parent(device)) {
        const auto product = hexAttribute(device, "idProduct");
        const auto vendor = hexAttribute(device, "idVendor");
        if (product && vendor)
            return UsbIdentity{*vendor, *product};
    }
    return {};
}

/// Registry paths of the ports of hardware, sorted. The registry's own list would open every entry;
/// a hundred of them are consoles and pseudo terminals, which the target of their link tells.
std::vector<std::string> hardwarePorts() {
    const std::string folder = "/sys/class/tty";
    std::vector<std::string> paths;
    const std::unique_ptr<DIR, Release<closedir>> dir(opendir(folder.c_str()));
    while (const dirent* const entry = dir ? readdir(dir.get()) : nullptr) {
        std::string path = folder + '/' + entry->d_name;
        std::array<char, PATH_MAX> target{};
        const ssize_t length = readlink(path.c_str(), target.data(), target.size());
        const std::string_view link(target.data(),
                                    length > 0 ? static_cast<std::size_t>(length) : 0);
        if (!link.empty() && link.find("/devices/virtual/") == std::string_view::npos)
            paths.push_back(std::move(path));
    }
    std::ranges::sort(paths);
    return paths;
}

} // namespace

struct UdevSerialPortManager::Handles {
    Registry registry;
    Monitor monitor;
};

UdevSerialPortManager::UdevSerialPortManager(QObject* parent)
    : QObject(parent), m_handles(std::make_unique<Handles>()) {
    m_handles->registry.reset(udev_new());
    if (!m_handles->registry)
        return;
    m_handles->monitor.reset(udev_monitor_new_from_netlink(m_handles->registry.get(), "udev"));
    udev_monitor* const monitor = m_handles->monitor.get();
    if (!monitor ||
        udev_monitor_filter_add_match_subsystem_devtype(monitor, ttySubsystem, nullptr) < 0 ||
        udev_monitor_enable_receiving(monitor) < 0)
        return;
    m_notifier =
        std::make_unique<QSocketNotifier>(udev_monitor_get_fd(monitor), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this,
            &UdevSerialPortManager::onMonitorReadable);
}

UdevSerialPortManager::~UdevSerialPortManager() = default;

std::vector<SerialPortInfo> UdevSerialPortManager::availablePorts() {
    std::vector<SerialPortInfo> ports;
    udev* const registry = m_handles->registry.get();
    if (!registry)
        return ports;
    for (const std::string& sysPath : hardwarePorts()) {
        const Device device(udev_device_new_from_syspath(registry, sysPath.c_str()));
        const char* const path = device ? udev_device_get_devnode(device.get()) : nullptr;
        if (path)
            ports.push_back(
                {udev_device_get_sysname(device.get()), path, usbIdentity(device.get())});
    }
    return ports;
}

std::unique_ptr<SerialPort> UdevSerialPortManager::port(const SerialPortInfo& info) {
    auto port = std::make_unique<QtSerialPort>(info);
    connect(this, &UdevSerialPortManager::deviceRemoved, port.get(),
            [port = port.get()](const std::string& path) {
                if (path == port->info().path)
                    port->deviceWasRemoved();
            });
    return port;
}

void UdevSerialPortManager::onMonitorReadable() {
    bool changed = false;
    while (const Device device{udev_monitor_receive_device(m_handles->monitor.get())}) {
        const char* const action = udev_device_get_action(device.get());
        const char* const path = udev_device_get_devnode(device.get());
        if (!action || !path)
            continue;
        changed = true;
        if (std::string_view(action) != "remove")
            continue;
        Q_EMIT deviceRemoved(path);
        if (m_delegate)
            m_delegate->serialPortLeft(path);
    }
    if (changed && m_delegate)
        m_delegate->serialPortsChanged();
}
