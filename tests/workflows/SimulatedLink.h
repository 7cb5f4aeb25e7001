#pragma once

#include "simulator/EventLoop.h"
#include "simulator/FaultPlan.h"
#include "simulator/SimulatedController.h"
#include "simulator/SimulatedSerialPortManager.h"
#include "simulator/WireLog.h"
#include "yprotocoll/link/ModalPause.h"
#include "yprotocoll/link/YMessageController.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <string>
#include <vector>

/// A message controller on a simulated lamp's controller, and what went over the line between them.
struct SimulatedLink final : YMessageControllerDelegate {
    using Commands = std::vector<std::string>;

    explicit SimulatedLink(SimulatedController::Clock clock = SimulatedController::steadyClock())
        : device({}, std::move(clock)) {
        controller.setDelegate(this);
    }
    ~SimulatedLink() { controller.setDelegate(nullptr); }

    /// Plugs the controller in; true once the link has been reported as open.
    bool connect() {
        ports.plug("ttyUSB0", device, faults);
        controller.run();
        const bool isOpen = waitFor([this] { return isConnected; });
        ignoreSoFar();
        return isOpen;
    }
    static bool waitFor(const std::function<bool()>& condition) { return runUntil(condition); }
    /// True once the controller has received just these, with their payload in decimal:
    /// "CmdSetDemoModeLevels 1 254 254". Commands of the opening are left out.
    bool receives(const Commands& expected) {
        const bool asExpected = waitFor([&] { return commands() == expected; });
        EXPECT_EQ(commands(), expected);
        return asExpected;
    }
    Commands commands() const {
        Commands commands;
        for (std::size_t i = m_seen; i < log.events().size(); ++i) {
            const WireEvent& event = log.events()[i];
            if (event.kind != WireEvent::Kind::Received || event.text == "CmdGetVersion" ||
                event.text == "CmdGetSequenceDataInfo")
                continue;
            std::string command = event.text;
            for (std::size_t at = 3; at + 1 < event.bytes.size(); ++at)
                command += ' ' + std::to_string(event.bytes[at]);
            commands.push_back(command);
        }
        return commands;
    }
    /// Leaves out what has come until now.
    void ignoreSoFar() { m_seen = log.events().size(); }

    void messageControllerDidOpen() override { setConnected(true); }
    void messageControllerGotError(const YMessageError& error) override {
        if (error.is<YMessageError::PortClosedError>())
            setConnected(false);
    }

    WireLog log;
    FaultPlan faults;
    SimulatedController device;
    SimulatedSerialPortManager ports{log};
    ModalPause pause;
    YMessageController controller{ports,
                                  pause,
                                  {.scan = std::chrono::milliseconds(20),
                                   .answer = std::chrono::milliseconds(100),
                                   .arrival = std::chrono::milliseconds(1)}};
    bool isConnected = false;
    std::function<void(bool)> connectedChanged; ///< as the window would be told

private:
    void setConnected(bool connected) {
        isConnected = connected;
        if (connectedChanged)
            connectedChanged(connected);
    }

    std::size_t m_seen = 0;
};
