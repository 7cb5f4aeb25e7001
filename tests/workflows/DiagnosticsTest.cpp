#include "SimulatedProgram.h"
#include "workflows/DiagnosticsPanel.h"
#include "workflows/ProtocolLogWindow.h"
#include "workflows/ScriptedPrompts.h"
#include "yprotocoll/YCommands.h"

#include <gmock/gmock.h>
#include <spdlog/spdlog.h>

#include <QCheckBox>
#include <QClipboard>
#include <QDir>
#include <QPlainTextEdit>

namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::Not;

TEST(Diagnostics, holdTheStateAndTheLastLinesWithoutTheHomeFolder) {
    SimulatedProgram<ScriptedPrompts> program({.scan = 20ms, .arrival = 1ms});
    program.start();
    program.plug();
    ASSERT_TRUE(runUntil([&] { return program.isConnected(); }));
    spdlog::default_logger()->set_level(spdlog::level::err);
    const std::string home = QDir::homePath().toStdString();
    SPDLOG_ERROR(fmt::format("{0}/reef.sq {0}2", home));
    const auto shown = [&](const char* panel) {
        auto* window = program.delegate.window().findChild<QWidget*>(QLatin1String(panel));
        return window->findChild<QPlainTextEdit*>()->toPlainText().toStdString();
    };
    program.ui().menuitemProtocolLog->trigger();
    EXPECT_THAT(shown("windowProtocolLog"), HasSubstr("-> CmdGetVersion 59 01 00 01\n"));
    EXPECT_THAT(shown("windowProtocolLog"), HasSubstr("<- 59 02 "));

    program.ui().menuitemDiagnostics->trigger();
    const auto* panel = program.delegate.window().findChild<DiagnosticsPanel*>();
    for (QAbstractButton* button : panel->findChildren<QAbstractButton*>())
        if (button->text() == QLatin1String("&Copy"))
            button->click();
    const std::string copied = QGuiApplication::clipboard()->text().toStdString();
    for (const char* part :
         {"USB 7a51:0c24 (controller)", "Controller: at /dev/ttyUSB0, connected yes",
          "unsaved changes no, points 7, programmed", "-> CmdGetVersion 59"})
        EXPECT_THAT(copied, HasSubstr(part));
    EXPECT_THAT(copied, HasSubstr("ERROR ~/reef.sq " + home + "2\n"));

    // A pause loses nothing.
    auto* pause =
        program.delegate.window().findChild<ProtocolLogWindow*>()->findChild<QCheckBox*>();
    pause->setChecked(true);
    for (int count = 0; count < 600; ++count)
        SPDLOG_ERROR(fmt::format("line {};", count));
    EXPECT_THAT(shown("windowProtocolLog"), Not(HasSubstr("line 0;")));
    pause->setChecked(false);
    EXPECT_THAT(shown("windowProtocolLog"), HasSubstr("line 0;"));
    program.ui().menuitemDiagnostics->trigger();
    EXPECT_THAT(shown("panelDiagnostics"), Not(HasSubstr("line 99;")));
    EXPECT_THAT(shown("panelDiagnostics"), HasSubstr("line 100;"));
    spdlog::default_logger()->set_level(spdlog::level::off);
}

} // namespace
