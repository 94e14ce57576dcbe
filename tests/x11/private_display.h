#pragma once

#include <X11/Xlib.h>
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <initializer_list>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

extern char** environ;

namespace quorlin::testing {

// An X server of the test's own, made $DISPLAY while it lives, for changes no other
// test may see: a resized screen, monitors, a window manager.
class PrivateDisplay {
public:
    PrivateDisplay() {
        int ready[2];
        if (pipe(ready) != 0) throw std::runtime_error("no pipe");
        const std::string fd = std::to_string(ready[1]);
        pid_ = spawn({"Xvfb", "-displayfd", fd.c_str(), "-screen", "0", "1280x1024x24", "-nolisten", "tcp"});
        close(ready[1]);
        std::string number;
        char c = 0;
        while (read(ready[0], &c, 1) == 1 && c != '\n') number += c;
        close(ready[0]);
        if (number.empty()) throw std::runtime_error("Xvfb did not start");
        if (const char* previous = std::getenv("DISPLAY")) previous_ = previous;
        name_ = ":" + number;
        setenv("DISPLAY", name_.c_str(), 1);
    }
    ~PrivateDisplay() {
        stop(windowManager_);
        stop(pid_);
        if (previous_) setenv("DISPLAY", previous_->c_str(), 1);
        else unsetenv("DISPLAY");
    }
    PrivateDisplay(const PrivateDisplay&) = delete;
    PrivateDisplay& operator=(const PrivateDisplay&) = delete;

    // Starts openbox and waits until it announces itself.
    bool startWindowManager(Display* d) {
        windowManager_ = spawn({"openbox", "--sm-disable"});
        const Atom check = XInternAtom(d, "_NET_SUPPORTING_WM_CHECK", False);
        for (auto until = std::chrono::steady_clock::now() + std::chrono::seconds(10);
             std::chrono::steady_clock::now() < until; std::this_thread::sleep_for(std::chrono::milliseconds(20))) {
            Atom type = None;
            int format = 0;
            unsigned long count = 0, after = 0;
            unsigned char* data = nullptr;
            XGetWindowProperty(d, DefaultRootWindow(d), check, 0, 1, False, AnyPropertyType, &type, &format, &count,
                               &after, &data);
            if (data) XFree(data);
            if (count > 0) return true;
        }
        return false;
    }

private:
    static pid_t spawn(std::initializer_list<const char*> args) {
        std::vector<char*> argv;
        for (const char* a : args) argv.push_back(const_cast<char*>(a));
        argv.push_back(nullptr);
        posix_spawn_file_actions_t quiet;
        posix_spawn_file_actions_init(&quiet);
        posix_spawn_file_actions_addopen(&quiet, 2, "/dev/null", O_WRONLY, 0);
        pid_t pid = 0;
        const int failed = posix_spawnp(&pid, argv[0], &quiet, nullptr, argv.data(), environ);
        posix_spawn_file_actions_destroy(&quiet);
        return failed ? 0 : pid;
    }
    static void stop(pid_t pid) {
        if (pid == 0) return;
        kill(pid, SIGTERM);
        waitpid(pid, nullptr, 0);
    }

    pid_t pid_ = 0;
    pid_t windowManager_ = 0;
    std::string name_;
    std::optional<std::string> previous_;
};

}  // namespace quorlin::testing
