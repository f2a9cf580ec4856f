#include "wine_channel.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>
#include <vector>

#include "util/text.h"

namespace quillo::qln {
namespace {

namespace fs = std::filesystem;

std::string Contents(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

std::string ValueOf(const std::string& environment, std::string_view name) {
    for (std::size_t at = 0; at < environment.size(); at = environment.find('\0', at) + 1) {
        const std::string_view entry(environment.c_str() + at);
        if (entry.size() > name.size() && entry.substr(0, name.size()) == name && entry[name.size()] == '=') {
            return std::string(entry.substr(name.size() + 1));
        }
        if (environment.find('\0', at) == std::string::npos) break;
    }
    return {};
}

bool IsQuillo(std::string_view program) {
    return EqualsIgnoringAsciiCase(program.substr(program.find_last_of("\\/") + 1), "quillo.exe");
}

bool SameFolder(const std::string& a, const std::string& b) {
    std::error_code error;
    return fs::equivalent(a, b, error);
}

/// Runs wine with its streams redirected to nothing; returns the process id, -1 on failure.
pid_t Launch(const std::string& prefix, const std::string& display, std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "wine");
    std::vector<char*> pointers;
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    const pid_t child = fork();
    if (child != 0) return child;
    setsid();
    const int nothing = open("/dev/null", O_RDWR);
    for (const int stream : {0, 1, 2}) dup2(nothing, stream);
    setenv("WINEPREFIX", prefix.c_str(), 1);
    setenv("WINEDEBUG", "-all", 0);
    setenv("WINEDLLOVERRIDES", "mscoree,mshtml=;winemenubuilder.exe=", 0);
    if (!display.empty()) setenv("DISPLAY", display.c_str(), 1);
    execvp("wine", pointers.data());
    _exit(127);
}

/// False if the process has not ended successfully within a minute.
bool AwaitEnd(pid_t child) {
    constexpr auto kPatience = std::chrono::seconds(60);
    constexpr auto kBetweenLooks = std::chrono::milliseconds(20);
    const auto deadline = std::chrono::steady_clock::now() + kPatience;
    int status = 0;
    while (std::chrono::steady_clock::now() < deadline) {
        const pid_t ended = waitpid(child, &status, WNOHANG);
        if (ended == child) return WIFEXITED(status) && WEXITSTATUS(status) == 0;
        if (ended < 0 && errno != EINTR) return false;
        std::this_thread::sleep_for(kBetweenLooks);
    }
    return false;
}

}  // namespace

std::optional<WineChannel::Running> WineChannel::FindRunning() const {
    std::error_code error;
    for (const auto& entry : fs::directory_iterator("/proc", error)) {
        const std::string name = entry.path().filename().string();
        if (name.empty() || name.front() < '0' || name.front() > '9') continue;
        const std::string program = Contents(entry.path() / "cmdline").c_str();
        if (!IsQuillo(program)) continue;
        const std::string environment = Contents(entry.path() / "environ");
        if (environment.empty()) continue;  // belongs to another user
        if (!prefix_.empty() && !SameFolder(ValueOf(environment, "WINEPREFIX"), prefix_)) continue;
        return Running{program, ValueOf(environment, "DISPLAY")};
    }
    return std::nullopt;
}

std::string WineChannel::Program() const {
    const char* named = std::getenv("QUILLO_EXE");
    return named != nullptr && *named != '\0' ? named : registeredProgram_;
}

bool WineChannel::Answers() {
    return FindRunning().has_value();
}

bool WineChannel::Send(const std::string& commandLine) {
    const std::optional<Running> running = FindRunning();
    if (!running || prefix_.empty()) return false;
    const bool whole = running->program.find_first_of("\\/") != std::string::npos;
    const std::string program = whole ? running->program : Program();
    if (program.empty()) return false;
    const pid_t child = Launch(prefix_, running->display, {program, commandLine});
    return child > 0 && AwaitEnd(child);
}

bool WineChannel::Start() {
    const std::string program = Program();
    return !prefix_.empty() && !program.empty() && Launch(prefix_, {}, {program}) > 0;
}

std::optional<std::string> WineChannel::PathForProgram(const std::string& path) {
    if (prefix_.empty()) return std::nullopt;
    return WinePrefix(prefix_).ToWindows(path);
}

}  // namespace quillo::qln
