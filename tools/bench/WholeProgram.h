#pragma once

#include "AppDelegate.h"
#include "MainWindow.h"
#include "PtyPorts.h"
#include "data/AQDataSource.h"
#include "workflows/Prompts.h"
#include "yprotocoll/link/ModalPause.h"
#include "yprotocoll/link/YMessageController.h"

#include <functional>

/// Says yes to everything, at once.
class AgreeingPrompts : public Prompts {
public:
    std::function<void()> onAlert;

    void askToSave(const QString& /*message*/, const QString& /*informative*/,
                   std::function<void(SaveAnswer)> done) override {
        done(SaveAnswer::Discard);
    }
    void confirm(const QString& /*message*/, const QString& /*informative*/, Answer /*usual*/,
                 std::function<void(bool)> done) override {
        done(true);
    }
    void offer(const QString& /*message*/, const QString& /*informative*/,
               const QString& /*button*/, std::function<void(bool)> done) override {
        done(true);
    }
    void confirmWithNote(const QString& message, const QString& informative,
                         const QString& /*note*/, Answer usual,
                         std::function<void(bool)> done) override {
        confirm(message, informative, usual, std::move(done));
    }
    void askToRecover(const QString& /*message*/, const QString& /*informative*/,
                      std::function<void(bool)> done) override {
        done(true);
    }
    void alert(const QString& /*message*/, const QString& /*informative*/,
               Severity /*severity*/) override {
        if (onAlert)
            onAlert();
    }
    void askForFileToOpen(std::function<void(std::optional<QString>)> done) override { done({}); }
    void askWhereToSave(const QString& /*suggested*/,
                        std::function<void(std::optional<QString>)> done) override {
        done({});
    }
    void
    askWhereToExport(const QString& /*suggested*/, const std::vector<FileType>& /*types*/,
                     std::function<void(std::optional<QString>, const QString&)> done) override {
        done({}, {});
    }
};

/// The program in this process, with its window and its serial port.
struct WholeProgram {
    explicit WholeProgram(const std::string& tty) : ports(tty) {}

    PtyPorts ports;
    ModalPause pause;
    YMessageController controller{ports, pause};
    NotificationCenter notifications;
    AQDataSource data{notifications, [this] { return controller.device(); }};
    AgreeingPrompts prompts;
    AppDelegate delegate{{data, controller, prompts}};
};
