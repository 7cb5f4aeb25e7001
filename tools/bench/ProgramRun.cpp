#include "ProgramRun.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <system_error>

extern char** environ;

namespace {

constexpr int paintDescriptor = 9;   ///< in the program
constexpr int longestStart = 60'000; ///< ms; under callgrind it takes seconds

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<std::string> environment(const ProgramCall& call, bool toFirstPaint) {
    std::vector<std::string> variables;
    for (char** variable = environ; *variable; ++variable)
        if (!std::string_view(*variable).starts_with("QT_QPA_PLATFORM="))
            variables.emplace_back(*variable);
    variables.push_back("QT_QPA_PLATFORM=" + call.platform);
    if (toFirstPaint) {
        // A relative path: spaces in the absolute one would end the name.
        const auto library = std::filesystem::relative(FIRST_PAINT_LIBRARY);
        variables.push_back("LD_PRELOAD=./" + library.string());
        variables.push_back("FIRST_PAINT_FD=" + std::to_string(paintDescriptor));
    }
    return variables;
}

/// `paintPipe` becomes `paintDescriptor` in the program; -1 for none.
pid_t start(const ProgramCall& call, int paintPipe) {
    std::vector<std::string> line = call.line;
    std::vector<std::string> variables = environment(call, paintPipe >= 0);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    for (const int stream : {STDOUT_FILENO, STDERR_FILENO})
        posix_spawn_file_actions_addopen(&actions, stream, "/dev/null", O_WRONLY, 0);
    if (paintPipe >= 0)
        posix_spawn_file_actions_adddup2(&actions, paintPipe, paintDescriptor);
    pid_t id = -1;
    const int error = posix_spawnp(&id, line.front().c_str(), &actions, nullptr,
                                   pointersTo(line).data(), pointersTo(variables).data());
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
        throw std::system_error(error, std::generic_category(), line.front());
    return id;
}

std::int64_t now() {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

/// The time that the program writes; 0 when it ends without a picture or shows none in time.
std::int64_t readPaintTime(int descriptor) {
    pollfd readable{descriptor, POLLIN, 0};
    std::int64_t time = 0;
    if (poll(&readable, 1, longestStart) <= 0 ||
        read(descriptor, &time, sizeof time) != ssize_t{sizeof time})
        return 0;
    return time;
}

/// The sum of a "name: number" line's numbers over the given files of /proc.
std::uint64_t sumOf(const std::vector<std::string>& files, const std::string& name) {
    std::uint64_t sum = 0;
    for (const std::string& path : files) {
        std::ifstream file(path);
        for (std::string line; std::getline(file, line);)
            if (line.starts_with(name + ":"))
                sum += std::stoull(line.substr(name.size() + 1));
    }
    return sum;
}

std::string processFolder(pid_t id) {
    return "/proc/" + std::to_string(id);
}

} // namespace

double runToFirstPaint(const ProgramCall& call) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        throw std::system_error(errno, std::generic_category(), "pipe");
    const std::int64_t started = now();
    const pid_t id = start(call, ends[1]);
    close(ends[1]);
    const std::int64_t painted = readPaintTime(ends[0]);
    close(ends[0]);
    if (painted == 0)
        kill(id, SIGKILL);
    waitpid(id, nullptr, 0);
    if (painted == 0)
        throw std::runtime_error(call.line.front() + " showed no window");
    return static_cast<double>(painted - started) / 1e6;
}

std::uint64_t instructionsToFirstPaint(const ProgramCall& call, const std::string& profile) {
    ProgramCall valgrind = call;
    valgrind.line = {"valgrind", "--tool=callgrind", "--callgrind-out-file=" + profile};
    valgrind.line.insert(valgrind.line.end(), call.line.begin(), call.line.end());
    runToFirstPaint(valgrind);
    std::ifstream file(profile);
    for (std::string line; std::getline(file, line);)
        if (line.starts_with("summary:") || line.starts_with("totals:"))
            return std::stoull(line.substr(line.find(':') + 1));
    throw std::runtime_error("no total in " + profile);
}

RunningProgram::RunningProgram(const ProgramCall& call) : m_id(start(call, -1)) {}

RunningProgram::~RunningProgram() {
    kill(innermost(), SIGTERM);
    waitpid(m_id, nullptr, 0);
}

pid_t RunningProgram::innermost() const {
    pid_t id = m_id;
    for (pid_t child = id; child > 0;) {
        id = child;
        child = 0;
        std::ifstream file(processFolder(id) + "/task/" + std::to_string(id) + "/children");
        file >> child;
    }
    return id;
}

std::uint64_t RunningProgram::wakeUps() const {
    std::vector<std::string> threads;
    for (const auto& thread :
         std::filesystem::directory_iterator(processFolder(innermost()) + "/task"))
        threads.push_back(thread.path() / "status");
    return sumOf(threads, "voluntary_ctxt_switches");
}

double RunningProgram::residentMegabytes() const {
    return static_cast<double>(sumOf({processFolder(innermost()) + "/status"}, "VmRSS")) / 1024.0;
}
