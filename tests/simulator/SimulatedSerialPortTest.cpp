#include "simulator/SimulatedSerialPortManager.h"

#include "simulator/EventLoop.h"

#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;
using Bytes = std::vector<std::uint8_t>;

/// Writes down what a port and the list of ports tell.
struct Recorder final : SerialPortDelegate, SerialPortManagerDelegate {
    std::vector<std::string> events;
    Bytes bytes;
    int changes = 0;

    void serialPortWasOpened(SerialPort&) override { events.push_back("opened"); }
    void serialPortWasClosed(SerialPort&) override { events.push_back("closed"); }
    void serialPortWasRemovedFromSystem(SerialPort&) override { events.push_back("removed"); }
    void serialPortDidEncounterError(SerialPort&, const std::string& error) override {
        events.push_back("error " + error);
    }
    void serialPortDidReceive(SerialPort&, std::span<const std::uint8_t> received) override {
        bytes.insert(bytes.end(), received.begin(), received.end());
    }
    void serialPortsChanged() override { ++changes; }
};

struct Fixture {
    WireLog log;
    SimulatedController controller;
    FaultPlan faults;
    SimulatedSerialPortManager ports{log};
    Recorder recorder;

    Fixture() { ports.setDelegate(&recorder); }

    std::unique_ptr<SerialPort> openPort(const std::string& name) {
        for (const SerialPortInfo& info : ports.availablePorts()) {
            if (info.name != name)
                continue;
            auto port = ports.port(info);
            port->setDelegate(&recorder);
            port->open();
            return port;
        }
        return nullptr;
    }
    bool tells(const std::vector<std::string>& events) {
        return runUntil([&] { return recorder.events == events; });
    }
};

const Bytes getVersion = YMessage("CmdGetVersion", 1, {}).frame();
const Bytes version = YMessage("AnswerVersion", 2, {1, 4, 17, 1}).frame();

TEST(SimulatedSerialPort, answersFromTheEventLoopOnly) {
    Fixture fixture;
    fixture.ports.plug("ttyUSB0", fixture.controller, fixture.faults);
    fixture.ports.plugForeign("ttyUSB1", UsbIdentity{0x0403, 0x6001});
    const auto infos = fixture.ports.availablePorts();
    ASSERT_EQ(infos.size(), 2U);
    EXPECT_TRUE(infos[0].isAquelonDevice());
    EXPECT_FALSE(infos[1].isAquelonDevice());

    const auto port = fixture.openPort("ttyUSB0");
    EXPECT_TRUE(fixture.recorder.events.empty());
    ASSERT_TRUE(fixture.tells({"opened"}));
    port->send(getVersion);
    EXPECT_TRUE(fixture.recorder.bytes.empty());
    port->deliverPending();
    EXPECT_EQ(fixture.recorder.bytes, version);
    port->send(getVersion);
    ASSERT_TRUE(runUntil([&] { return fixture.recorder.bytes.size() == 2 * version.size(); }));
    EXPECT_EQ(fixture.recorder.changes, 2);
}

TEST(SimulatedSerialPort, tellsItsEndOnceAndNothingAfterClosing) {
    Fixture fixture;
    fixture.ports.plug("ttyUSB0", fixture.controller, fixture.faults);
    auto port = fixture.openPort("ttyUSB0");
    ASSERT_TRUE(fixture.tells({"opened"}));
    fixture.ports.hangUp("ttyUSB0");
    fixture.ports.unplug("ttyUSB0");
    ASSERT_TRUE(fixture.tells({"opened", "closed"}));
    EXPECT_TRUE(fixture.ports.availablePorts().empty());

    fixture.ports.plug("ttyUSB3", fixture.controller, fixture.faults);
    port = fixture.openPort("ttyUSB3");
    ASSERT_TRUE(fixture.tells({"opened", "closed", "opened"}));
    port->send(getVersion);
    port->close();
    fixture.ports.unplug("ttyUSB3");
    const int changes = fixture.recorder.changes;
    ASSERT_TRUE(runUntil([&] { return fixture.recorder.changes > changes; }));
    EXPECT_EQ(fixture.recorder.events.size(), 3U);
    EXPECT_TRUE(fixture.recorder.bytes.empty());
}

TEST(SimulatedSerialPort, unplugFaultRemovesAndPlugsAgain) {
    Fixture fixture;
    fixture.faults.add(Fault::parse("unplug=20#1@1").value());
    fixture.ports.plug("ttyUSB0", fixture.controller, fixture.faults);
    const auto port = fixture.openPort("ttyUSB0");
    ASSERT_TRUE(fixture.tells({"opened"}));
    port->send(getVersion);
    ASSERT_TRUE(fixture.tells({"opened", "removed"}));
    EXPECT_FALSE(fixture.ports.device("ttyUSB0"));
    ASSERT_TRUE(runUntil([&] { return fixture.ports.device("ttyUSB0") != nullptr; }));
    EXPECT_TRUE(fixture.recorder.bytes.empty());
}

TEST(SimulatedSerialPort, openingFailsAsAsked) {
    Fixture fixture;
    auto& device = fixture.ports.plug("ttyUSB0", fixture.controller, fixture.faults);
    device.opening = SimulatedSerialDevice::Opening::Fails;
    auto port = fixture.openPort("ttyUSB0");
    ASSERT_TRUE(fixture.tells({"error Permission denied"}));
    device.opening = SimulatedSerialDevice::Opening::Succeeds;
    port->open();
    ASSERT_TRUE(fixture.tells({"error Permission denied", "opened"}));
    const auto second = fixture.openPort("ttyUSB0");
    ASSERT_TRUE(
        fixture.tells({"error Permission denied", "opened", "error Device or resource busy"}));
}

} // namespace
