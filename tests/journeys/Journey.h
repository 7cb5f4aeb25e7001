#pragma once

#include "journeys/UiElement.h"
#include "simulator/WireEvent.h"

#include <gtest/gtest.h>

#include <QJsonValue>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <chrono>
#include <functional>
#include <source_location>
#include <string>
#include <vector>

/// The unmodified program in its window, with simulated controllers on its USB bus, driven from
/// outside: through the accessibility tree, the keyboard and the pointer, the simulator's commands
/// and log, signals and files.
///
/// Needs a desktop, with nobody else at its keyboard. At its end the program is told to quit by
/// SIGTERM when it still runs, and the test fails unless it then ends with status 0 (a sanitizer's
/// finding is another status). A failed test prints the line's log and the program's output, and
/// leaves a screenshot.
class Journey {
public:
    /// The simulator's options stand in one text, with blanks between them.
    explicit Journey(const std::string& simulatorOptions = {},
                     const QStringList& programArguments = {});
    ~Journey();
    Journey(const Journey&) = delete;
    Journey& operator=(const Journey&) = delete;

    /// Looks again and again until `holds` is true; false when it is not within half a minute.
    static bool waitUntil(const std::function<bool()>& holds);

    // The window. While a dialog is open, elements are searched for in the front one only: what is
    // behind it cannot be reached by a person either.

    /// Main window's title; empty until it is shown.
    std::string title() const;
    std::vector<UiElement> dialogs() const; ///< open ones, the front one last
    UiElement front() const;                ///< the front dialog, else the whole program
    UiElement find(const std::string& role, const std::string& name) const;
    /// A label, button, time in the table or other element with exactly this text.
    bool shows(const std::string& text) const;
    bool waitForText(const std::string& text) const;
    /// The table's editor of a point, by its number or its time now: "Point 3" or "08:30". Columns
    /// are "Time", "Colour temperature" and "Intensity".
    UiElement cell(const std::string& point, const std::string& column) const;
    /// The place on a slider that stands for a value from 0 to 1.
    static QPoint placeOn(const UiElement& slider, double value);
    bool waitForTitle(const std::string& text) const; ///< with no dialog open
    /// Waits for a dialog that shows this text and describes it in one line, as a person reads it:
    /// "Aquelon|message|informative text|Yes No Cancel", title first and buttons from left to
    /// right. "2 dialogs: " stands before it when there is another one; empty when it does not
    /// come.
    std::string dialog(const std::string& text) const;
    bool waitForNoDialog() const;
    /// Waits for a button, check box or menu item of this name and presses it; false when it is not
    /// there or not enabled within the limit.
    bool press(const std::string& name) const;
    /// As `press`, for an entry of a menu that need not be open.
    bool chooseMenu(const std::string& entry) const;
    /// Waits for a file dialog, fills in the path and accepts it.
    bool chooseFile(const QString& path) const;

    /// What xdotool is told in one go: "mousemove 1 2 click 1 key --delay 0 ctrl+a type 12".
    static void hands(const std::string& actions);
    static std::string at(QPoint place); ///< the pointer there, for `hands`
    /// Keys by their X names with blanks between them, "ctrl+s Return", to the focused window.
    static void keys(const std::string& names) { hands("key " + names); }
    /// The pointer's left button, at a place on the screen.
    static void click(QPoint place) { hands(at(place) + " click 1"); }
    static void click(const UiElement& element) { click(element.screenRect().center()); }
    /// Presses there, moves through the places and lets go at the last one.
    static void drag(const UiElement& element, const std::vector<QPoint>& places);
    /// What is seen at a place on the screen: red, green, blue as "808080".
    static std::string colorAt(QPoint place);

    // The controllers.

    /// Names of ports, "ttyUSB<number>", the first controller's is that of 0. They are this test
    /// program's own: Qt locks a port by its name for all programs of the machine.
    static QString port(int index = 0);
    /// A command to the simulator, which must take it.
    void control(const std::string& command) const;
    void control(const std::string& command, int portIndex) const {
        control(command + ' ' + port(portIndex).toStdString());
    }
    /// One entry of what the controller stores and does: "channels", "taskLight", "demoActive",
    /// "clock" and the others of `reportOf`.
    QJsonValue controller(const char* entry) const;
    /// Everything on the line until now.
    std::vector<WireEvent> wire() const;
    /// The commands that the controllers received, by name, in order.
    std::vector<std::string> commands() const;
    int count(const std::string& command) const;
    bool waitForCommand(const std::string& command, int atLeast = 1) const;

    // The process.

    qint64 processId() const { return m_programId; }
    void signal(int number) const;
    /// Waits for the program's end; its exit status, 128 and the number of the signal that killed
    /// it, or −1 when it does not end.
    int waitForEnd();
    /// Simulator and program once more, after their end, in the same folders.
    void startAgain() { start(); }
    /// A folder of the journey's own.
    QString file(const QString& name) const { return m_folder.filePath(name); }

private:
    void start();
    UiElement application() const { return UiElement::application(m_programId); }
    QByteArray ask(const QByteArray& command) const;
    QJsonValue status(const char* entry) const;

    QTemporaryDir m_folder;
    QProcess m_simulator;
    qint64 m_programId = 0;
};

/// Expects `read()` to be `expected` within the usual limit. What the program shows follows the
/// hand, the line and the accessibility bus a little later.
template <class Read, class Value>
void expectSoon(Read read, const Value& expected,
                std::source_location where = std::source_location::current()) {
    const testing::ScopedTrace trace(where.file_name(), static_cast<int>(where.line()), "from");
    // After a failure there is nothing left to wait for.
    const bool wait = !testing::Test::HasFailure();
    auto seen = read();
    Journey::waitUntil([&] { return seen == expected || !wait || ((seen = read()), false); });
    EXPECT_EQ(seen, expected);
}
