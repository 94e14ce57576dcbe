#pragma once

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "ports/desktop.h"

extern char** environ;

namespace quorlin::testing {

// A program started by the test that reports on its standard output, one line each,
// where its controls are ("at button 310 245") and what happened to it ("clicked").
class TargetApp {
public:
    explicit TargetApp(std::vector<std::string> argv) {
        int out[2];
        if (pipe(out) != 0) return;
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
        posix_spawn_file_actions_addclose(&actions, out[0]);
        std::vector<char*> args;
        for (auto& a : argv) args.push_back(a.data());
        args.push_back(nullptr);
        if (posix_spawnp(&pid_, args[0], &actions, nullptr, args.data(), environ) != 0) pid_ = 0;
        posix_spawn_file_actions_destroy(&actions);
        close(out[1]);
        fd_ = out[0];
        for (const std::string& line : lines(1, 20000, "ready")) {
            std::istringstream words(line);
            std::string at, name;
            ScreenPoint p;
            if (words >> at >> name >> p.x >> p.y && at == "at") places_[name] = p;
        }
    }
    ~TargetApp() {
        if (pid_) kill(pid_, SIGTERM), waitpid(pid_, nullptr, 0);
        if (fd_ >= 0) close(fd_);
    }
    TargetApp(const TargetApp&) = delete;
    TargetApp& operator=(const TargetApp&) = delete;

    bool ready() const { return places_.count("button") > 0; }
    bool has(const std::string& name) const { return places_.count(name) > 0; }
    ScreenPoint at(const std::string& name) const { return places_.at(name); }

    // The lines that arrive until `count` have come (then a little longer, to catch any
    // extra ones) or the time is up; stops early at a line equal to `until`.
    std::vector<std::string> lines(std::size_t count, int timeoutMs = 3000, const std::string& until = "") {
        std::vector<std::string> got;
        auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
        bool extended = false;
        while (std::chrono::steady_clock::now() < deadline) {
            if (got.size() >= count && !extended) {
                deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(250);
                extended = true;
            }
            pollfd p{fd_, POLLIN, 0};
            if (poll(&p, 1, 20) <= 0) continue;
            char buffer[512];
            const ssize_t n = read(fd_, buffer, sizeof buffer);
            if (n <= 0) break;
            pending_.append(buffer, static_cast<std::size_t>(n));
            for (std::size_t end; (end = pending_.find('\n')) != std::string::npos;) {
                got.push_back(pending_.substr(0, end));
                pending_.erase(0, end + 1);
                if (!until.empty() && got.back() == until) return got;
            }
        }
        return got;
    }

private:
    pid_t pid_ = 0;
    int fd_ = -1;
    std::string pending_;
    std::map<std::string, ScreenPoint> places_;
};

}  // namespace quorlin::testing
