#include "yprotocoll/UdevSerialPortManager.h"

#include <QTest>

#include <gtest/gtest.h>
#include <umockdev.h>

#include <map>

namespace {

using Story = std::vector<std::string>;

/// The process runs with umockdev preloaded and sees only the devices of this test bed.
class UdevSerialPortManagerTest : public testing::Test, public SerialPortManagerDelegate {
public:
    ~UdevSerialPortManagerTest() override { g_object_unref(bed); }

protected:
    struct Device {
        std::string path; ///< below /sys
        std::string subsystem;
        std::map<std::string, std::string> attributes;
        std::string node; ///< name in /dev, none for no device file
    };

    void serialPortsChanged() override { ++changes; }

    void add(const Device& device) const {
        std::string text = "P: " + device.path + "\nE: SUBSYSTEM=" + device.subsystem + "\n";
        if (!device.node.empty())
            text += "E: DEVNAME=/dev/" + device.node + "\n";
        for (const auto& [name, value] : device.attributes)
            text.append("A: ").append(name).append("=").append(value).append("\\n\n");
        GError* error = nullptr;
        umockdev_testbed_add_from_string(bed, text.c_str(), &error);
        ASSERT_EQ(error, nullptr) << error->message;
    }

    static Device usb(const std::string& path, const std::string& vendor,
                      const std::string& product) {
        return {path, "usb", {{"idVendor", vendor}, {"idProduct", product}}, {}};
    }
    static Device tty(const std::string& parent, const std::string& name) {
        return {parent + "/tty/" + name, "tty", {{"dev", "188:0"}}, name};
    }

    UMockdevTestbed* bed = umockdev_testbed_new();
    int changes = 0;
};

TEST_F(UdevSerialPortManagerTest, theNearestUsbDeviceWithBothNumbersDecides) {
    ASSERT_TRUE(umockdev_in_mock_environment());
    const std::string hub = "/devices/pci0000:00/usb1/1-1";
    add(usb("/devices/pci0000:00/usb1", "1d6b", "0002"));
    add(usb(hub, "7a51", "0c24")); // must not answer for what hangs below it
    const struct {
        std::vector<Device> chain;
        std::optional<UsbIdentity> usb;
    } rows[] = {
        {{usb(hub + "/1-1.0", "7a51", "0c24")}, aquelonUsbIdentity},
        {{usb(hub + "/1-1.1", "7A51", "0C24")}, aquelonUsbIdentity},
        {{usb(hub + "/1-1.2", "7a51", "0c25")}, UsbIdentity{0x7a51, 0x0c25}},
        {{usb(hub + "/1-1.3", "7a52", "0c24")}, UsbIdentity{0x7a52, 0x0c24}},
        // An interface without numbers, and a device with one number or no hexadecimal ones, pass
        // the question on.
        {{{hub + "/1-1.4", "usb", {{"bInterfaceNumber", "00"}}, {}}}, aquelonUsbIdentity},
        {{{hub + "/1-1.5", "usb", {{"idVendor", "1234"}}, {}}}, aquelonUsbIdentity},
        {{usb(hub + "/1-1.6", "12zz", "0001")}, aquelonUsbIdentity},
        {{{"/devices/pnp0/00:07", "pnp", {}, {}}}, std::nullopt},
    };
    int number = 0;
    for (const auto& row : rows) {
        for (const Device& device : row.chain)
            add(device);
        add(tty(row.chain.back().path, "ttyUSB" + std::to_string(number++)));
    }
    add(tty("/devices/virtual", "tty1"));

    UdevSerialPortManager manager;
    const auto ports = manager.availablePorts();
    ASSERT_EQ(ports.size(), std::size(rows));
    for (std::size_t i = 0; i < ports.size(); ++i) {
        EXPECT_EQ(ports[i].name, "ttyUSB" + std::to_string(i));
        EXPECT_EQ(ports[i].path, "/dev/" + ports[i].name);
        EXPECT_EQ(ports[i].usb, rows[i].usb) << i;
        EXPECT_EQ(ports[i].isAquelonDevice(), rows[i].usb == aquelonUsbIdentity) << i;
    }
}

TEST_F(UdevSerialPortManagerTest, tellsArrivalAndRemovalAtOnce) {
    UdevSerialPortManager manager;
    manager.setDelegate(this);
    EXPECT_TRUE(manager.availablePorts().empty());
    Story removed;
    QObject::connect(&manager, &UdevSerialPortManager::deviceRemoved,
                     [&](const std::string& path) { removed.push_back(path); });

    const std::string adapter = "/devices/pci0000:00/usb1/1-1";
    add(usb(adapter, "7a51", "0c24"));
    add(tty(adapter, "ttyUSB0"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return changes > 0; }));
    EXPECT_EQ(manager.availablePorts().size(), 1U);
    EXPECT_EQ(removed, Story{});

    changes = 0;
    umockdev_testbed_uevent(bed, ("/sys" + adapter + "/tty/ttyUSB0").c_str(), "remove");
    EXPECT_TRUE(QTest::qWaitFor([&] { return changes > 0; }));
    EXPECT_EQ(removed, Story{"/dev/ttyUSB0"});
}

} // namespace
