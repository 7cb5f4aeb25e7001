#include "journeys/Journey.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QThread>

#include <sys/prctl.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <utility>

namespace {

constexpr int replyLimit = 10'000; // milliseconds
constexpr std::chrono::milliseconds lookAgain{20};

bool isDialog(const UiElement& window) {
    const std::string role = window.role();
    return window.isShowing() && role != "frame" && (role == "alert" || role == "dialog");
}

QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

Journey::Journey(const QStringList& simulatorOptions, const QStringList& programArguments) {
    m_simulator.setProcessChannelMode(QProcess::MergedChannels);
    m_simulator.setStandardOutputFile(file(QStringLiteral("output")));
    m_simulator.setWorkingDirectory(m_folder.path()); // where file dialogs open
    m_simulator.setStandardInputFile(QProcess::nullDevice());
    m_simulator.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    const QStringList own{QStringLiteral("--control"), file(QStringLiteral("control")),
                          QStringLiteral("--log"),     file(QStringLiteral("wire")),
                          QStringLiteral("--"),        QStringLiteral(AQUELON_PROGRAM)};
    m_simulator.start(QStringLiteral(SIMULATOR_PROGRAM),
                      QStringList{QStringLiteral("--name"), port()} + simulatorOptions + own +
                          programArguments);
    const bool started = waitUntil([this] {
        const auto status = QJsonDocument::fromJson(control(QStringLiteral("status")).toUtf8());
        m_programId = status[QStringLiteral("pid")].toInteger();
        return m_programId > 0 && !title().empty();
    });
    EXPECT_TRUE(started) << "the program did not show its window";
}

Journey::~Journey() {
    if (testing::Test::HasFailure())
        explainWindow();
    if (isRunning()) {
        signal(SIGTERM);
        const int status = waitForEnd();
        EXPECT_EQ(status, 0) << "the program's exit status after SIGTERM";
    }
    if (testing::Test::HasFailure())
        std::fprintf(stderr, "--- the line\n%s--- the program's output\n%s---\n",
                     contents(file(QStringLiteral("wire"))).constData(), output().c_str());
    m_simulator.kill();
    m_simulator.waitForFinished();
}

void Journey::explainWindow() const {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    QString path = QStringLiteral("%1-%2.png")
                       .arg(QLatin1String(test->test_suite_name()), QLatin1String(test->name()));
    path.replace(u'/', u'-'); // in the names of parametrised tests
    QProcess::execute(QStringLiteral("import"),
                      {QStringLiteral("-window"), QStringLiteral("root"), path});
    std::fprintf(stderr, "--- the window, also in %s\n%s---\n", qPrintable(path),
                 application().tree().c_str());
}

bool Journey::waitUntil(const std::function<bool()>& holds, std::chrono::milliseconds limit) {
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (!holds()) {
        if (std::chrono::steady_clock::now() > deadline)
            return false;
        QThread::msleep(static_cast<unsigned long>(lookAgain.count()));
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
    std::vector<UiElement> result;
    std::ranges::copy_if(application().children(), std::back_inserter(result), isDialog);
    return result;
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
    return !front().findAll(says).empty();
}

bool Journey::waitForText(const std::string& text, std::chrono::milliseconds limit) const {
    return waitUntil([&] { return shows(text); }, limit);
}

std::vector<std::string> Journey::waitForDialog(const std::string& text,
                                                std::chrono::milliseconds limit) const {
    std::vector<std::string> texts;
    waitUntil(
        [&] {
            texts.clear();
            const auto open = dialogs();
            if (open.empty())
                return false;
            for (const UiElement& label :
                 open.back().findAll([](const UiElement& e) { return e.role() == "label"; }))
                texts.push_back(label.name());
            return std::ranges::find(texts, text) != texts.end();
        },
        limit);
    return std::ranges::find(texts, text) == texts.end() ? std::vector<std::string>() : texts;
}

std::string Journey::dialog(const std::string& text) const {
    const auto labels = waitForDialog(text);
    const auto open = dialogs();
    if (labels.empty() || open.empty())
        return {};
    std::string line = open.size() > 1 ? std::to_string(open.size()) + " dialogs: " : "";
    line += open.back().name();
    for (const std::string& label : labels)
        line += "|" + label;
    auto buttons =
        open.back().findAll([](const UiElement& e) { return e.role() == "push button"; });
    std::ranges::sort(buttons, {}, [](const UiElement& e) { return e.screenRect().x(); });
    char separator = '|';
    for (const UiElement& button : buttons)
        line += std::exchange(separator, ' ') + button.name();
    return line;
}

bool Journey::waitForNoDialog() const {
    return waitUntil([this] { return dialogs().empty(); });
}

bool Journey::press(const std::string& name) const {
    const auto isPressable = [&](const UiElement& element) {
        const std::string role = element.role();
        return element.name() == name && element.isEnabled() && role != "label";
    };
    return waitUntil([&] {
        const auto found = front().findAll(isPressable);
        if (found.empty())
            return false;
        found.front().press();
        return true;
    });
}

bool Journey::chooseMenu(const std::string& entry) const {
    // Entries of a closed menu do not show.
    const std::function<UiElement(const UiElement&)> search = [&](const UiElement& element) {
        if (element.role() == "menu item" && element.name() == entry && element.isEnabled())
            return element;
        for (const UiElement& child : element.children()) {
            if (const UiElement found = search(child))
                return found;
        }
        return UiElement();
    };
    return waitUntil([&] {
        const UiElement item = dialogs().empty() ? search(application()) : UiElement();
        item.press();
        return static_cast<bool>(item);
    });
}

bool Journey::chooseFile(const QString& path) const {
    UiElement field;
    const bool open = waitUntil([&] {
        const auto windows = dialogs();
        field = windows.empty() ? UiElement() : windows.back().find("text", {});
        return field && windows.back().find("push button", "Cancel");
    });
    if (!open)
        return false;
    field.setText(path.toStdString());
    // The accepting button is the one that is not "Cancel".
    return waitUntil([&] {
        for (const char* accept : {"Open", "Save"}) {
            const UiElement button = find("push button", accept);
            if (button && button.isEnabled()) {
                button.press();
                return true;
            }
        }
        return false;
    });
}

void Journey::xdotool(const QStringList& arguments) {
    EXPECT_EQ(QProcess::execute(QStringLiteral("xdotool"), arguments), 0);
}

void Journey::keys(const QStringList& names) {
    xdotool(QStringList{QStringLiteral("key")} + names);
}

void Journey::type(const QString& text) {
    xdotool({QStringLiteral("type"), text});
}

void Journey::click(QPoint place) {
    xdotool({QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y()),
             QStringLiteral("click"), QStringLiteral("1")});
}

void Journey::drag(const UiElement& element, const std::vector<QPoint>& places) {
    QStringList steps;
    const auto moveTo = [&](QPoint place) {
        steps +=
            {QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y())};
    };
    moveTo(element.screenRect().center());
    steps += {QStringLiteral("mousedown"), QStringLiteral("1")};
    std::ranges::for_each(places, moveTo);
    xdotool(steps + QStringList{QStringLiteral("mouseup"), QStringLiteral("1")});
}

QString Journey::port(int index) {
    return QStringLiteral("ttyUSB%1").arg(1000 + 10 * (getpid() % 10'000) + index);
}

QString Journey::control(const QString& command) const {
    QLocalSocket socket;
    socket.connectToServer(file(QStringLiteral("control")));
    if (!socket.waitForConnected(replyLimit))
        return {};
    socket.write(command.toUtf8() + '\n');
    while (!socket.canReadLine() && socket.waitForReadyRead(replyLimit)) {
    }
    return QString::fromUtf8(socket.readLine()).trimmed();
}

QJsonValue Journey::controller(QLatin1String entry, int index) const {
    const auto status = QJsonDocument::fromJson(control(QStringLiteral("status")).toUtf8());
    return status[QStringLiteral("devices")][index][entry];
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

bool Journey::isRunning() const {
    return m_simulator.state() != QProcess::NotRunning && m_programId > 0 &&
           ::kill(static_cast<pid_t>(m_programId), 0) == 0;
}

double Journey::cpuSeconds() const {
    const QByteArray stat = contents(QStringLiteral("/proc/%1/stat").arg(m_programId));
    // The fields after the name, which may hold spaces; 12th and 13th are the times.
    const auto fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
    return (fields.value(11).toDouble() + fields.value(12).toDouble()) /
           static_cast<double>(sysconf(_SC_CLK_TCK));
}

std::string Journey::output() const {
    return contents(file(QStringLiteral("output"))).toStdString();
}

void Journey::signal(int number) const {
    ::kill(static_cast<pid_t>(m_programId), number);
}

int Journey::waitForEnd(std::chrono::milliseconds limit) {
    if (m_simulator.state() != QProcess::NotRunning &&
        !m_simulator.waitForFinished(static_cast<int>(limit.count())))
        return -1;
    return m_simulator.exitCode();
}
