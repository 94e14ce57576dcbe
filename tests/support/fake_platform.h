#pragma once

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <functional>
#include <map>
#include <optional>
#include <queue>
#include <string>
#include <vector>

#include "ports/desktop.h"
#include "ports/dialogs.h"
#include "ports/event_pump.h"
#include "ports/random_source.h"
#include "ports/screen_reader.h"
#include "ports/timers.h"

namespace quorlin::testing {

struct PostedMessage {
    WindowHandle window;
    std::uint32_t code;
    std::uint32_t wParam;
    std::uint32_t lParam;
    long pumpPassesBefore;  // pump passes run before this message was posted
};

// An in-memory desktop: one window under every point, with a client origin of its own.
class FakeDesktop : public Desktop {
public:
    WindowHandle target = 0x42;
    ScreenPoint clientOrigin{0, 0};
    ScreenPoint cursor{0, 0};
    std::vector<PostedMessage> posted;
    std::vector<ScreenPoint> lookedUp;
    std::vector<std::pair<WindowHandle, bool>> topMostCalls;
    std::vector<std::string> links;
    const long* pumpPasses = nullptr;

    WindowHandle windowFromPoint(ScreenPoint p) override {
        lookedUp.push_back(p);
        return target;
    }
    ScreenPoint screenToClient(WindowHandle w, ScreenPoint p) override {
        if (w == 0) return p;
        return {p.x - clientOrigin.x, p.y - clientOrigin.y};
    }
    void postMessage(WindowHandle w, std::uint32_t code, std::uint32_t wParam, std::uint32_t lParam) override {
        posted.push_back({w, code, wParam, lParam, pumpPasses ? *pumpPasses : 0});
    }
    ScreenPoint cursorPos() override { return cursor; }
    void setTopMost(WindowHandle w, bool on) override { topMostCalls.emplace_back(w, on); }
    void openLink(const std::string& link) override { links.push_back(link); }
};

// An in-memory screen whose pixels come from a function of (x, y); counts what is read.
class FakeScreen : public ScreenReader {
public:
    std::function<Colour(int, int)> pixelAt = [](int, int) { return Colour{0}; };
    std::vector<ScreenRect> reads;

    void readRect(const ScreenRect& rect, std::span<Colour> out) override {
        reads.push_back(rect);
        std::size_t i = 0;
        for (int y = rect.top; y <= rect.bottom; ++y)
            for (int x = rect.left; x <= rect.right; ++x) out[i++] = pixelAt(x, y);
    }
};

// Virtual time in milliseconds. Timers tick at their interval, restarted on every set;
// pump passes cost no time unless an action is planned at a pass.
class VirtualClock : public Timers, public EventPump {
public:
    using TickHandler = std::function<void(TimerId)>;

    long now = 0;
    long passes = 0;
    TickHandler onTick;

    void setInterval(TimerId id, std::int32_t ms) override {
        Timer& t = timers_[id];
        t.interval = ms;
        t.due = now + ms;
        intervals.push_back({id, ms});
    }
    std::int32_t interval(TimerId id) { return timers_[id].interval; }

    void pumpOnce() override {
        ++passes;
        if (!atPass_.empty() && atPass_.begin()->first == passes) runFirst(atPass_);
    }
    // Sleeps until the next timer or planned action is due and handles it.
    void waitForEvents() override {
        ++waits;
        if (!fireNext(std::nullopt)) throw std::runtime_error("waiting with nothing left to happen");
    }

    // Runs an action when pump pass number `pass` (counted from now) is made.
    void atPumpPass(long fromNow, std::function<void()> action) { atPass_[passes + fromNow] = std::move(action); }
    // Runs an action at a virtual time, as an event (a button press, say).
    void at(long time, std::function<void()> action) { planned_.emplace(time, std::move(action)); }

    // Lets virtual time pass, firing due ticks and actions in time order.
    void advanceTo(long time) {
        while (fireNext(time)) {
        }
        now = std::max(now, time);
    }
    void advanceBy(long ms) { advanceTo(now + ms); }

    std::vector<std::pair<TimerId, std::int32_t>> intervals;
    long waits = 0;

private:
    struct Timer {
        std::int32_t interval = 0;
        long due = 0;
    };

    // The earliest of the next due tick and the next planned action; false when none is due by the limit.
    bool fireNext(std::optional<long> limit) {
        auto next = timers_.end();
        for (auto it = timers_.begin(); it != timers_.end(); ++it)
            if (it->second.interval > 0 && (next == timers_.end() || it->second.due < next->second.due)) next = it;
        const bool noTimer = next == timers_.end();
        const bool planned = !planned_.empty() && (noTimer || planned_.begin()->first <= next->second.due);
        if (!planned && noTimer) return false;
        const long when = planned ? planned_.begin()->first : next->second.due;
        if (limit && when > *limit) return false;
        now = std::max(now, when);
        if (planned) return runFirst(planned_);
        next->second.due = now + next->second.interval;
        if (onTick) onTick(next->first);
        return true;
    }
    template <typename Actions>
    static bool runFirst(Actions& actions) {
        auto action = std::move(actions.begin()->second);
        actions.erase(actions.begin());
        action();
        return true;
    }

    std::map<TimerId, Timer> timers_;
    std::map<long, std::function<void()>> atPass_;
    std::multimap<long, std::function<void()>> planned_;
};

template <typename T>
T takeFront(std::queue<T>& queue, T otherwise) {
    if (queue.empty()) return otherwise;
    T front = std::move(queue.front());
    queue.pop();
    return front;
}

class FakeDialogs : public Dialogs {
public:
    std::vector<std::string> messages;
    std::vector<FileDialogSettings> shown;
    std::queue<std::optional<std::string>> answers;

    void messageBox(const std::string& text) override { messages.push_back(text); }
    std::optional<std::string> openFile(const FileDialogSettings& s) override { return answer(s); }
    std::optional<std::string> saveFile(const FileDialogSettings& s) override { return answer(s); }

private:
    std::optional<std::string> answer(const FileDialogSettings& s) {
        shown.push_back(s);
        return takeFront(answers, std::optional<std::string>());
    }
};

// Answers the planned numbers in turn, then 0.
class ScriptedRandom : public RandomSource {
public:
    std::queue<double> values;
    double next() override { return takeFront(values, 0.0); }
};

}  // namespace quorlin::testing
