#include "yprotocoll/link/UdevSerialPortManager.h"

#include <gtest/gtest.h>
#include <umockdev.h>

namespace {

/// The process runs with umockdev preloaded and sees only the devices of this test bed.
class UdevSerialPortManagerTest : public testing::Test {
public:
    ~UdevSerialPortManagerTest() override { g_object_unref(bed); }

protected:
    /// `lines` are the device's properties and attributes in the words of umockdev.
    void add(const std::string& path, const std::string& lines) const {
        GError* error = nullptr;
        umockdev_testbed_add_from_string(bed, ("P: " + path + "\n" + lines).c_str(), &error);
        ASSERT_EQ(error, nullptr) << error->message;
    }
    void addUsb(const std::string& path, const std::string& vendor,
                const std::string& product) const {
        add(path,
            "E: SUBSYSTEM=usb\nA: idVendor=" + vendor + "\\n\nA: idProduct=" + product + "\\n\n");
    }
    void addTty(const std::string& parent, const std::string& name) const {
        add(parent + "/tty/" + name,
            "E: SUBSYSTEM=tty\nE: DEVNAME=/dev/" + name + "\nA: dev=188:0\\n\n");
    }

    UMockdevTestbed* bed = umockdev_testbed_new();
};

TEST_F(UdevSerialPortManagerTest, theNearestUsbDeviceWithBothNumbersDecides) {
    ASSERT_TRUE(umockdev_in_mock_environment());
    const std::string hub = "/devices/pci0000:00/usb1/1-1";
    addUsb("/devices/pci0000:00/usb1", "1d6b", "0002");
    addUsb(hub, "7a51", "0c24"); // must not answer for what hangs below it
    addUsb(hub + "/1-1.0", "7A51", "0C24");
    addUsb(hub + "/1-1.1", "7a51", "0c25");
    // These pass the question on: an interface without numbers, and no hexadecimal ones.
    add(hub + "/1-1.2", "E: SUBSYSTEM=usb\nA: bInterfaceNumber=00\n");
    addUsb(hub + "/1-1.3", "12zz", "0001");
    add("/devices/pnp0/00:07", "E: SUBSYSTEM=pnp\n");
    const std::pair<std::string, std::optional<UsbIdentity>> rows[] = {
        {hub + "/1-1.0", aquelonUsbIdentity},  {hub + "/1-1.1", UsbIdentity{0x7a51, 0x0c25}},
        {hub + "/1-1.2", aquelonUsbIdentity},  {hub + "/1-1.3", aquelonUsbIdentity},
        {"/devices/pnp0/00:07", std::nullopt},
    };
    std::vector<SerialPortInfo> expected;
    for (const auto& [parent, usb] : rows) {
        const std::string name = "ttyUSB" + std::to_string(expected.size());
        addTty(parent, name);
        expected.push_back({name, "/dev/" + name, usb});
    }
    addTty("/devices/virtual", "tty1"); // a console
    EXPECT_EQ(UdevSerialPortManager().availablePorts(), expected);
}

} // namespace
