#include "simulator/MockBus.h"

#include <umockdev.h>

#include <termios.h>
#include <unistd.h>

#include <sys/ioctl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <stdexcept>
#include <system_error>

namespace {

const std::string hub = "/sys/devices/pci0000:00/0000:00:14.0/usb1";

// Executes a port's ioctls on the real tty, in the program that called them. Without a handler
// umockdev refuses them all. Exclusive use is granted without asking for it: the simulator's own
// descriptor would keep it for longer than the program has the port open.
gboolean passOn(UMockdevIoctlBase*, UMockdevIoctlClient* client) {
    const gulong request = umockdev_ioctl_client_get_request(client);
    if (request == TIOCEXCL || request == TIOCNXCL) {
        umockdev_ioctl_client_complete(client, 0, 0);
        return TRUE;
    }
    gint error = 0;
    const gint result = umockdev_ioctl_client_execute(client, &error, nullptr);
    umockdev_ioctl_client_complete(client, result, error);
    return TRUE;
}

void initClass(gpointer klass, gpointer) {
    static_cast<UMockdevIoctlBaseClass*>(klass)->handle_ioctl = passOn;
}

UMockdevIoctlBase* makeIoctls() {
    static const GType type = g_type_register_static_simple(
        UMOCKDEV_TYPE_IOCTL_BASE, "AquelonTtyIoctls", sizeof(UMockdevIoctlBaseClass), initClass,
        sizeof(UMockdevIoctlBase), nullptr, G_TYPE_FLAG_NONE);
    return static_cast<UMockdevIoctlBase*>(g_object_new(type, nullptr));
}

/// Runs a call that reports its failure through a GError.
template <class Call>
void checked(Call call) {
    GError* error = nullptr;
    if (call(&error))
        return;
    const std::string text = error ? error->message : "umockdev call failed";
    g_clear_error(&error);
    throw std::runtime_error(text);
}

std::string hex(int value) {
    char text[8];
    std::snprintf(text, sizeof text, "%04x", static_cast<unsigned>(value));
    return text;
}

std::string usbBlocks(const std::string& device, const UsbIdentity& usb, int address) {
    const std::string vendor = hex(usb.vendor);
    const std::string product = hex(usb.product);
    return "P: " + device.substr(4) +
           "\nE: SUBSYSTEM=usb\nE: DEVTYPE=usb_device\nE: BUSNUM=001\nE: DEVNUM=" +
           std::to_string(address) + "\nA: idVendor=" + vendor + "\\n\nA: idProduct=" + product +
           "\\n\n\n" + "P: " + device.substr(4) + "/1-" + std::to_string(address) +
           ":1.0\nE: SUBSYSTEM=usb\nE: DEVTYPE=usb_interface\nA: bInterfaceNumber=00\\n\n\n";
}

std::string ttyBlock(const std::string& path, const std::string& name, const std::string& number,
                     const std::optional<UsbIdentity>& usb) {
    const auto colon = number.find(':');
    std::string block = "P: " + path.substr(4) + "\nE: SUBSYSTEM=tty\nE: DEVNAME=/dev/" + name +
                        "\nE: MAJOR=" + number.substr(0, colon) +
                        "\nE: MINOR=" + number.substr(colon + 1) + "\nA: dev=" + number + "\\n\n";
    if (usb)
        block += "E: ID_BUS=usb\nE: ID_VENDOR_ID=" + hex(usb->vendor) +
                 "\nE: ID_MODEL_ID=" + hex(usb->product) + "\n";
    return block;
}

/// Major and minor number, as "188:0": those of USB serial ports or of built-in ones.
std::string deviceNumber(const std::string& name, bool usb) {
    const auto digits = name.find_first_of("0123456789");
    return (usb ? "188:" : "4:") + (digits == std::string::npos ? "0" : name.substr(digits));
}

} // namespace

void MockBus::Unref::operator()(void* object) const {
    g_object_unref(object);
}

MockBus::MockBus() : m_testbed(umockdev_testbed_new()), m_ioctls(makeIoctls()) {
    gchar* root = umockdev_testbed_get_root_dir(m_testbed.get());
    m_root = root;
    g_free(root);
    if (mkdir((m_root + "/dev").c_str(), 0755) != 0 && errno != EEXIST)
        throw std::system_error(errno, std::generic_category(), m_root + "/dev");
    // The hub has USB numbers too: a program must take those of the nearest device.
    const std::string text = "P: " + hub.substr(4) +
                             "\nE: SUBSYSTEM=usb\nE: DEVTYPE=usb_device\n"
                             "A: idVendor=1d6b\\n\nA: idProduct=0002\\n\n";
    checked([&](GError** error) {
        return umockdev_testbed_add_from_string(m_testbed.get(), text.c_str(), error);
    });
}

MockBus::~MockBus() {
    while (!m_entries.empty())
        remove(m_entries.begin()->first);
}

std::string MockBus::node(const std::string& name) const {
    return m_root + "/dev/" + name;
}

void MockBus::add(const std::string& name, std::optional<UsbIdentity> usb,
                  const std::string& ttyPath) {
    const int address = ++m_devicesMade;
    Entry entry;
    entry.number = deviceNumber(name, usb.has_value());
    auto& paths = entry.paths;
    std::string text;
    if (usb) {
        const std::string device = hub + "/1-" + std::to_string(address);
        const std::string interface = device + "/1-" + std::to_string(address) + ":1.0";
        paths = {interface + "/" + name + "/tty/" + name, interface, device};
        text = usbBlocks(device, *usb, address);
    } else {
        paths = {"/sys/devices/pnp0/00:0" + std::to_string(address) + "/tty/" + name};
    }
    text += ttyBlock(paths.front(), name, entry.number, usb);

    if (symlink(ttyPath.c_str(), node(name).c_str()) != 0)
        throw std::system_error(errno, std::generic_category(), node(name));
    checked([&](GError** error) {
        return umockdev_testbed_attach_ioctl(m_testbed.get(), ("/dev/" + name).c_str(),
                                             m_ioctls.get(), error);
    });
    checked([&](GError** error) {
        return umockdev_testbed_add_from_string(m_testbed.get(), text.c_str(), error);
    });
    m_entries[name] = std::move(entry);
}

void MockBus::remove(const std::string& name) {
    const auto found = m_entries.find(name);
    if (found == m_entries.end())
        return;
    for (const std::string& path : found->second.paths)
        umockdev_testbed_uevent(m_testbed.get(), path.c_str(), "remove");
    unlink(node(name).c_str());
    for (const std::string& path : found->second.paths)
        umockdev_testbed_remove_device(m_testbed.get(), path.c_str());
    // umockdev leaves this link behind and aborts when the number comes back.
    unlink((m_root + "/sys/dev/char/" + found->second.number).c_str());
    umockdev_testbed_detach_ioctl(m_testbed.get(), ("/dev/" + name).c_str(), nullptr);
    m_entries.erase(found);
}
