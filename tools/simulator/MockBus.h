#pragma once

#include "yprotocoll/link/SerialPort.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct _UMockdevIoctlBase;
struct _UMockdevTestbed;

/// A USB bus that only this process's children see, with serial devices coming and going: their
/// /sys, /dev and system events, made with umockdev. The process must run under umockdev-wrapper.
class MockBus {
public:
    /// Sets UMOCKDEV_DIR in the environment, by which children find the bus.
    MockBus();
    ~MockBus();
    MockBus(const MockBus&) = delete;
    MockBus& operator=(const MockBus&) = delete;

    /// Shows a serial port /dev/<name> that leads to the tty at `ttyPath`; one without a USB device
    /// behind it when `usb` is none. Throws std::runtime_error.
    void add(const std::string& name, std::optional<UsbIdentity> usb, const std::string& ttyPath);
    /// The device leaves the bus: system events, /sys and /dev. The tty itself is the caller's.
    void remove(const std::string& name);
    bool has(const std::string& name) const { return m_entries.contains(name); }

private:
    struct Entry {
        std::vector<std::string> paths; ///< in /sys, child first
        std::string number;             ///< of the device node, "188:0"
    };
    struct Unref {
        void operator()(void* object) const;
    };

    std::string node(const std::string& name) const; ///< what /dev/<name> really is

    std::unique_ptr<_UMockdevTestbed, Unref> m_testbed;
    std::unique_ptr<_UMockdevIoctlBase, Unref> m_ioctls;
    std::string m_root;
    int m_devicesMade = 0; ///< every device gets a bus address of its own, as on a real bus
    std::map<std::string, Entry> m_entries;
};
