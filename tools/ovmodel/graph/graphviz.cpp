// Drawing by Graphviz, a program of its own that is asked for at run time.
#include <errno.h>
#include <signal.h>
#include <spawn.h>
#include <string.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <optional>
#include <thread>

#include "ovmodel/graph/drawings.h"

extern char** environ;

namespace ovmodel {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds kMostTime{60};

/// A file in memory. With files for input and output nobody waits for the other side of a pipe.
class MemoryFile {
public:
    MemoryFile() : mFile(memfd_create("graph", MFD_CLOEXEC)) {
        if (mFile < 0) throw Failure(std::string("cannot draw: ") + strerror(errno));
    }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    ~MemoryFile() { close(mFile); }

    int number() const { return mFile; }

    void Fill(std::string_view text) {
        while (!text.empty()) {
            const ssize_t count = write(mFile, text.data(), text.size());
            if (count < 0 && errno != EINTR) throw Failure(std::string("cannot draw: ") + strerror(errno));
            if (count > 0) text.remove_prefix(static_cast<std::size_t>(count));
        }
        lseek(mFile, 0, SEEK_SET);
    }
    std::string Content() const {
        std::string content;
        char buffer[65536];
        for (ssize_t count = 0;
             (count = pread(mFile, buffer, sizeof buffer, static_cast<off_t>(content.size()))) > 0;) {
            content.append(buffer, static_cast<std::size_t>(count));
        }
        return content;
    }

private:
    int mFile;
};

pid_t Start(const MemoryFile& input, const MemoryFile& output, const MemoryFile& errors) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input.number(), STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output.number(), STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, errors.number(), STDERR_FILENO);
    std::string program = "dot", format = "-Tsvg";
    char* const arguments[] = {program.data(), format.data(), nullptr};
    pid_t process = 0;
    const int error = posix_spawnp(&process, program.c_str(), &actions, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error == ENOENT) {
        throw Failure("Graphviz is missing: install the package 'graphviz', or take --format dot, which needs nothing");
    }
    if (error != 0) throw Failure(std::string("cannot run 'dot': ") + strerror(error));
    return process;
}

// The status that the process ends with; nullopt if it had to be ended.
std::optional<int> WaitFor(pid_t process) {
    const Clock::time_point end = Clock::now() + kMostTime;
    std::chrono::milliseconds pause{1};
    int status = 0;
    for (;;) {
        const pid_t ended = waitpid(process, &status, WNOHANG);
        if (ended == process) return status;
        if (ended < 0 && errno != EINTR) throw Failure(std::string("cannot wait for 'dot': ") + strerror(errno));
        if (Clock::now() >= end) break;
        std::this_thread::sleep_for(pause);
        if (pause < std::chrono::milliseconds(50)) pause *= 2;
    }
    kill(process, SIGKILL);
    waitpid(process, &status, 0);
    return std::nullopt;
}

}  // namespace

std::string SvgOf(const std::string& dot) {
    MemoryFile input;
    const MemoryFile output, errors;
    input.Fill(dot);
    const std::optional<int> status = WaitFor(Start(input, output, errors));
    if (!status) {
        throw Failure("'dot' has drawn for " + std::to_string(kMostTime.count()) +
                      " seconds and was ended: take --path for a part of the device, or --format dot");
    }
    if (*status != 0) {
        const std::string words = errors.Content();
        throw Failure("'dot' failed" + (words.empty() ? "" : ": " + words.substr(0, words.find('\n'))));
    }
    return output.Content();
}

}  // namespace ovmodel
