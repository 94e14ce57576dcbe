#pragma once

#include <map>
#include <sstream>

#include "child_process.h"
#include "ports/desktop.h"

namespace quorlin::testing {

// A program started by the test that reports on its standard output, one line each,
// where its controls are ("at button 310 245") and what happened to it ("clicked").
class TargetApp : public ChildProcess {
public:
    explicit TargetApp(std::vector<std::string> argv) : ChildProcess(std::move(argv)) {
        while (auto line = nextLine(std::chrono::seconds(20))) {
            if (*line == "ready") break;
            std::istringstream words(*line);
            std::string at, name;
            ScreenPoint p;
            if (words >> at >> name >> p.x >> p.y && at == "at") places_[name] = p;
        }
    }

    bool ready() const { return places_.count("button") > 0; }
    bool has(const std::string& name) const { return places_.count(name) > 0; }
    ScreenPoint at(const std::string& name) const { return places_.at(name); }

    // The lines that arrive until `count` have come (then a little longer, to catch any
    // extra ones) or the time is up.
    std::vector<std::string> lines(std::size_t count, int timeoutMs = 3000) {
        using namespace std::chrono;
        std::vector<std::string> got;
        auto until = steady_clock::now() + milliseconds(timeoutMs);
        for (bool extended = false; steady_clock::now() < until;) {
            if (got.size() >= count && !extended) until = steady_clock::now() + milliseconds(250), extended = true;
            if (auto line = nextLine(milliseconds(20))) got.push_back(*line);
        }
        return got;
    }

private:
    std::map<std::string, ScreenPoint> places_;
};

}  // namespace quorlin::testing
