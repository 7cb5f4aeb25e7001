#include "journeys/Journey.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLocalSocket>
#include <QThread>

#include <sys/prctl.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <utility>

namespace {

using Matches = UiElement::Matches;

constexpr int limit = 30'000; // milliseconds, far beyond what anything takes
constexpr unsigned long lookAgain = 20;

QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Waits for an element in the window, also one of a closed menu, and presses it.
bool pressFirst(const std::function<UiElement()>& window, const Matches& matches,
                UiElement::Search search = UiElement::Search::Showing) {
    return Journey::waitUntil([&] {
        const UiElement found = window().find(matches, search);
        found.press();
        return bool(found);
    });
}

} // namespace

Journey::Journey(const std::string& simulatorOptions, const QStringList& programArguments) {
    m_simulator.setProcessChannelMode(QProcess::MergedChannels);
    m_simulator.setStandardOutputFile(file(QStringLiteral("output")), QIODevice::Append);
    // What a journey leaves there, no other journey finds.
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_DATA_HOME"), file(QStringLiteral("data")));
    environment.insert(QStringLiteral("XDG_STATE_HOME"), file(QStringLiteral("state")));
    m_simulator.setProcessEnvironment(environment);
    m_simulator.setWorkingDirectory(m_folder.path()); // where file dialogs open
    m_simulator.setStandardInputFile(QProcess::nullDevice());
    m_simulator.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    const QStringList own{QStringLiteral("--control"), file(QStringLiteral("control")),
                          QStringLiteral("--log"), file(QStringLiteral("wire")),
                          QStringLiteral("--")};
    // Such as a memory checker and its options, which then runs the program.
    const auto runUnder = QProcess::splitCommand(qEnvironmentVariable("JOURNEYS_RUN_UNDER"));
    const auto options = QString::fromStdString(simulatorOptions).split(u' ', Qt::SkipEmptyParts);
    m_simulator.setProgram(QStringLiteral(SIMULATOR_PROGRAM));
    m_simulator.setArguments(QStringList{QStringLiteral("--name"), port()} + options + own +
                             runUnder + QStringList{QStringLiteral(AQUELON_PROGRAM)} +
                             programArguments);
    start();
}

void Journey::start() {
    m_programId = 0;
    m_simulator.start();
    EXPECT_TRUE(waitUntil([this] {
        m_programId = status("pid").toInteger();
        return m_programId > 0 && !title().empty();
    })) << "the program did not show its window";
}

Journey::~Journey() {
    if (testing::Test::HasFailure()) {
        QString name = QLatin1String(testing::UnitTest::GetInstance()->current_test_info()->name());
        name.replace(u'/', u'-'); // in the names of parametrised tests
        QProcess::execute(
            QStringLiteral("import"),
            {QStringLiteral("-window"), QStringLiteral("root"), name + QStringLiteral(".png")});
    }
    if (m_simulator.state() != QProcess::NotRunning && m_programId > 0) {
        signal(SIGTERM);
        EXPECT_EQ(waitForEnd(), 0) << "the program's exit status after SIGTERM";
    }
    if (testing::Test::HasFailure())
        std::fprintf(stderr, "--- the line\n%s--- the program's output\n%s---\n",
                     contents(file(QStringLiteral("wire"))).constData(),
                     contents(file(QStringLiteral("output"))).constData());
    m_simulator.kill();
    m_simulator.waitForFinished();
}

bool Journey::waitUntil(const std::function<bool()>& holds) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(limit);
    while (!holds()) {
        if (std::chrono::steady_clock::now() > deadline)
            return false;
        QThread::msleep(lookAgain);
    }
    return true;
}

std::string Journey::title() const {
    for (const UiElement& window : application().children()) {
        if (window.role() == "frame")
            return window.name();
    }
    return {};
}

std::vector<UiElement> Journey::dialogs() const {
    auto windows = application().children();
    std::erase_if(windows, [](const UiElement& window) {
        const std::string role = window.role();
        return !window.isShowing() || (role != "alert" && role != "dialog");
    });
    return windows;
}

UiElement Journey::front() const {
    const auto open = dialogs();
    return open.empty() ? application() : open.back();
}

UiElement Journey::find(const std::string& role, const std::string& name) const {
    return front().find(role, name);
}

bool Journey::shows(const std::string& text) const {
    const auto says = [&](const UiElement& element) {
        return element.name() == text ||
               (element.role() == "spin button" && element.text() == text);
    };
    return bool(front().find(says));
}

UiElement Journey::cell(const std::string& point, const std::string& column) const {
    return find("frame", {}).find([&](const UiElement& element) {
        const std::string name = ", " + element.name();
        return element.role() == (column == "Time" ? "spin button" : "slider") &&
               name.find(", " + point + ", ") != std::string::npos && name.ends_with(", " + column);
    });
}

QPoint Journey::placeOn(const UiElement& slider, double value) {
    const QRect rect = slider.screenRect();
    return {rect.x() + qRound(10 + value * (rect.width() - 20)), rect.center().y()};
}

bool Journey::waitForText(const std::string& text) const {
    return waitUntil([&] { return shows(text); });
}

std::string Journey::dialog(const std::string& text) const {
    std::vector<UiElement> open;
    if (!waitUntil([&] { return !(open = dialogs()).empty() && open.back().find("label", text); }))
        return {};
    const auto all = [&](const char* role) {
        return open.back().findAll([role](const UiElement& e) { return e.role() == role; });
    };
    std::string line = open.size() > 1 ? std::to_string(open.size()) + " dialogs: " : "";
    line += open.back().name();
    for (const UiElement& label : all("label"))
        line += "|" + label.name();
    auto buttons = all("push button");
    std::ranges::sort(buttons, {}, [](const UiElement& e) { return e.screenRect().x(); });
    char separator = '|';
    for (const UiElement& button : buttons)
        line += std::exchange(separator, ' ') + button.name();
    return line;
}

bool Journey::waitForTitle(const std::string& text) const {
    return waitUntil([&] { return title() == text && dialogs().empty(); });
}

bool Journey::waitForNoDialog() const {
    return waitUntil([this] { return dialogs().empty(); });
}

bool Journey::press(const std::string& name) const {
    return pressFirst([this] { return front(); },
                      [&](const UiElement& element) {
                          return element.name() == name && element.isEnabled() &&
                                 element.role() != "label";
                      });
}

bool Journey::chooseMenu(const std::string& entry) const {
    return waitForNoDialog() && pressFirst([this] { return application(); },
                                           [&](const UiElement& element) {
                                               return element.name() == entry &&
                                                      element.isEnabled() &&
                                                      element.role() == "menu item";
                                           },
                                           UiElement::Search::Hidden);
}

bool Journey::chooseFile(const QString& path) const {
    UiElement field;
    const bool isOpen = waitUntil([&] {
        field = find("text", {});
        return !dialogs().empty() && field && find("push button", "Cancel");
    });
    field.setText(path.toStdString());
    const auto accepts = [](const UiElement& element) {
        const std::string name = element.name();
        return element.role() == "push button" && element.isEnabled() &&
               (name == "Open" || name == "Save");
    };
    return isOpen && pressFirst([this] { return front(); }, accepts);
}

void Journey::hands(const std::string& actions) {
    const QStringList arguments = QString::fromStdString(actions).split(u' ');
    EXPECT_EQ(QProcess::execute(QStringLiteral("xdotool"), arguments), 0);
}

std::string Journey::at(QPoint place) {
    return "mousemove " + std::to_string(place.x()) + ' ' + std::to_string(place.y());
}

void Journey::drag(const UiElement& element, const std::vector<QPoint>& places) {
    std::string steps = at(element.screenRect().center()) + " mousedown 1 ";
    for (const QPoint place : places)
        steps += at(place) + ' ';
    hands(steps + "mouseup 1");
}

std::string Journey::colorAt(QPoint place) {
    QProcess import;
    import.start(QStringLiteral("import"),
                 {QStringLiteral("-window"), QStringLiteral("root"), QStringLiteral("-crop"),
                  QStringLiteral("1x1+%1+%2").arg(place.x()).arg(place.y()),
                  QStringLiteral("-depth"), QStringLiteral("8"), QStringLiteral("rgb:-")});
    import.waitForFinished();
    return import.readAllStandardOutput().toHex().toStdString();
}

QString Journey::port(int index) {
    return QStringLiteral("ttyUSB%1").arg(1000 + 10 * (getpid() % 10'000) + index);
}

QByteArray Journey::ask(const QByteArray& command) const {
    QLocalSocket socket;
    socket.connectToServer(file(QStringLiteral("control")));
    if (!socket.waitForConnected(limit))
        return {};
    socket.write(command + '\n');
    while (!socket.canReadLine() && socket.waitForReadyRead(limit)) {
    }
    return socket.readLine();
}

void Journey::control(const std::string& command) const {
    EXPECT_EQ(ask(QByteArray::fromStdString(command)).trimmed(), "ok") << command;
}

QJsonValue Journey::status(const char* entry) const {
    return QJsonDocument::fromJson(ask("status"))[QLatin1String(entry)];
}

QJsonValue Journey::controller(const char* entry) const {
    return status("devices")[0][QLatin1String(entry)];
}

std::vector<WireEvent> Journey::wire() const {
    std::vector<WireEvent> events;
    for (const QByteArray& line : contents(file(QStringLiteral("wire"))).split('\n')) {
        if (auto event = WireEvent::fromLine(line.toStdString()))
            events.push_back(std::move(*event));
    }
    return events;
}

std::vector<std::string> Journey::commands() const {
    std::vector<std::string> names;
    for (const WireEvent& event : wire()) {
        if (event.kind == WireEvent::Kind::Received)
            names.push_back(event.text);
    }
    return names;
}

int Journey::count(const std::string& command) const {
    return static_cast<int>(std::ranges::count(commands(), command));
}

bool Journey::waitForCommand(const std::string& command, int atLeast) const {
    return waitUntil([&] { return count(command) >= atLeast; });
}

void Journey::signal(int number) const {
    ::kill(static_cast<pid_t>(m_programId), number);
}

int Journey::waitForEnd() {
    const bool hasEnded =
        m_simulator.state() == QProcess::NotRunning || m_simulator.waitForFinished(limit);
    return hasEnded ? m_simulator.exitCode() : -1;
}
