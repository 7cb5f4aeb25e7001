#pragma once

#include "yprotocoll/link/QtSerialPort.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

/// A system with one serial port or none, a real tty that is said to be the controller's.
class PtyPorts : public SerialPortManager {
public:
    /// `path` of the tty; empty for none.
    explicit PtyPorts(std::string path) : m_path(std::move(path)) {}

    std::vector<SerialPortInfo> availablePorts() override {
        if (m_path.empty())
            return {};
        return {{"pty", m_path, aquelonUsbIdentity}};
    }
    std::unique_ptr<SerialPort> port(const SerialPortInfo& info) override {
        return std::make_unique<QtSerialPort>(info);
    }
    void setDelegate(SerialPortManagerDelegate* /*delegate*/) override {}

private:
    std::string m_path;
};
