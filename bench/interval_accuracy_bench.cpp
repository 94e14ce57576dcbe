// How closely a run's clicks keep to their schedule: a manual "# of times" RightClick
// run (a step without pauses) through the whole window, the X11 desktop and the Qt
// event pump, timed by when each button press reaches a real target window, against
// Start + k x interval. The run timers on their absolute schedule are measured side by
// side with a repeating Qt timer, which starts its schedule again after a late tick.
// On a machine busy with other work, a raised priority for the bench and its X server
// (nice -n -15 xvfb-run ...) keeps that work from deciding the figures.
#include <QCoreApplication>
#include <QTimer>

#include "qt_ports.h"

#include <X11/Xlib.h>
#include <poll.h>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <functional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "run/seeded_random.h"
#include "support/fake_platform.h"
#include "window/frm_main.h"
#include "x11/x11_desktop.h"
#include "x11/x11_screen_reader.h"

namespace {

using namespace quorlin;
using Clock = std::chrono::steady_clock;

constexpr int kTargetX = 400, kTargetY = 300;
constexpr int kTicks = 1000;

// A window on a connection of its own whose thread notes when each button press arrives.
class ArrivalRecorder {
public:
    ArrivalRecorder() : d_(XOpenDisplay(nullptr)) {
        if (!d_) throw std::runtime_error("no X display: run under xvfb-run");
        XSetWindowAttributes a{};
        a.override_redirect = True;
        a.event_mask = ButtonPressMask | ExposureMask;
        window_ = XCreateWindow(d_, DefaultRootWindow(d_), kTargetX - 50, kTargetY - 50, 100, 100, 0, CopyFromParent,
                                InputOutput, CopyFromParent, CWOverrideRedirect | CWEventMask, &a);
        XMapRaised(d_, window_);
        XEvent e;
        XWindowEvent(d_, window_, ExposureMask, &e);
    }
    ~ArrivalRecorder() {
        XDestroyWindow(d_, window_);
        XCloseDisplay(d_);
    }

    // Presses of an earlier run that came after it was measured are not this run's.
    void start(std::size_t count) {
        XSync(d_, True);
        arrivals_.clear();
        arrivals_.reserve(count);
        thread_ = std::thread([this, count] { record(count); });
    }
    // The arrival times, once the presses are in or five seconds have passed without one.
    std::vector<Clock::time_point> finish() {
        thread_.join();
        return arrivals_;
    }

private:
    void record(std::size_t count) {
        pollfd connection{ConnectionNumber(d_), POLLIN, 0};
        while (arrivals_.size() < count) {
            if (!XPending(d_) && poll(&connection, 1, 5000) <= 0) return;
            const Clock::time_point now = Clock::now();
            while (XPending(d_)) {
                XEvent e;
                XNextEvent(d_, &e);
                if (e.type == ButtonPress) arrivals_.push_back(now);
            }
        }
    }

    Display* d_;
    Window window_;
    std::vector<Clock::time_point> arrivals_;
    std::thread thread_;
};

// The run timers as a repeating Qt timer keeps them: a tick late by an interval or
// more starts the schedule again from that tick.
class RestartingTimers : public Timers {
public:
    explicit RestartingTimers(std::function<void(TimerId)> onTick) {
        for (auto [timer, id] : {std::pair{&count_, TimerId::tmrCount}, {&loop_, TimerId::tmrLoop}}) {
            timer->setTimerType(Qt::PreciseTimer);
            QObject::connect(timer, &QTimer::timeout, [onTick, id = id] { onTick(id); });
        }
    }
    void setInterval(TimerId id, std::int32_t milliseconds) override {
        QTimer& timer = id == TimerId::tmrLoop ? loop_ : count_;
        if (milliseconds > 0) timer.start(milliseconds);
        else timer.stop();
    }

private:
    QTimer count_;
    QTimer loop_;
};

struct Accuracy {
    std::size_t ticks = 0;
    double totalMs = 0;
    double meanErrorMs = 0;   // mean of arrival - (Start + k x interval)
    double worstErrorMs = 0;  // largest of them
    double driftMs = 0;       // fitted change of the error from the first tick to the last
    double meanIntervalErrorMs = 0;
};

double ms(Clock::duration d) { return std::chrono::duration<double, std::milli>(d).count(); }

Accuracy accuracyOf(Clock::time_point start, const std::vector<Clock::time_point>& arrivals, int intervalMs) {
    Accuracy a;
    a.ticks = arrivals.size();
    if (arrivals.size() < 2) return a;
    const double n = static_cast<double>(arrivals.size());
    double sumK = 0, sumE = 0, sumKK = 0, sumKE = 0;
    for (std::size_t i = 0; i < arrivals.size(); ++i) {
        const double k = static_cast<double>(i + 1);
        const double error = ms(arrivals[i] - start) - k * intervalMs;
        sumK += k;
        sumE += error;
        sumKK += k * k;
        sumKE += k * error;
        a.worstErrorMs = std::max(a.worstErrorMs, error);
    }
    a.meanErrorMs = sumE / n;
    a.driftMs = (n * sumKE - sumK * sumE) / (n * sumKK - sumK * sumK) * (n - 1);
    a.totalMs = ms(arrivals.back() - start);
    a.meanIntervalErrorMs = ms(arrivals.back() - arrivals.front()) / (n - 1) - intervalMs;
    return a;
}

// One counted RightClick run of kTicks clicks at the interval, played by the real window.
Accuracy measureRun(Timers& timers, FrmMain*& frmPointer, ArrivalRecorder& target, int intervalMs) {
    x11::X11Connection connection;
    x11::X11Desktop desktop{connection};
    x11::X11ScreenReader screen{connection};
    qt::QtEventPump pump;
    testing::FakeDialogs dialogs;
    SeededRandom random;
    FrmMain frm{Ports{desktop, screen, timers, pump, dialogs, random}};
    frmPointer = &frm;
    frm.Form_Load(0);
    frm.selectOption(Ctl::optApplication);
    frm.selectOption(Ctl::optRightClick);
    frm.setText(Ctl::txtX, std::to_string(kTargetX));
    frm.setText(Ctl::txtY, std::to_string(kTargetY));
    frm.setText(Ctl::txtSeconds, "0");
    frm.setText(Ctl::txtMiliseconds, std::to_string(intervalMs));
    frm.setText(Ctl::txtCount, std::to_string(kTicks));

    target.start(kTicks);
    const Clock::time_point start = Clock::now();
    frm.cmdStart_Click();
    while (!frm.model().run.bCountDone) pump.waitForEvents();
    const Accuracy accuracy = accuracyOf(start, target.finish(), intervalMs);
    frmPointer = nullptr;
    return accuracy;
}

void print(const char* schedule, int intervalMs, const Accuracy& a) {
    std::printf("%-11s %5d ms %6zu %11.1f %9.4f %11.3f %11.3f %11.3f %14.5f\n", schedule, intervalMs, a.ticks,
                a.totalMs, a.totalMs / (static_cast<double>(a.ticks) * intervalMs), a.meanErrorMs, a.worstErrorMs,
                a.driftMs, a.meanIntervalErrorMs);
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    ArrivalRecorder target;
    FrmMain* frmPointer = nullptr;
    const auto tick = [&frmPointer](TimerId id) {
        if (frmPointer) frmPointer->timerTick(id);
    };
    qt::QtTimers absolute(tick);
    RestartingTimers restarting(tick);

    std::printf("%d RightClick ticks per run; errors are arrival - (Start + k x interval), in ms\n", kTicks);
    std::printf("%-11s %8s %6s %11s %9s %11s %11s %11s %14s\n", "schedule", "interval", "ticks", "total ms",
                "/ nominal", "mean error", "worst error", "drift", "mean interval");
    for (int intervalMs : {1, 10, 100}) {
        print("absolute", intervalMs, measureRun(absolute, frmPointer, target, intervalMs));
        print("restarting", intervalMs, measureRun(restarting, frmPointer, target, intervalMs));
    }
    return 0;
}
