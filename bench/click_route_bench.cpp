// Cost of one click step's input in each X11 route (the step's pauses left out),
// against the bare XSendEvent of the same press and release.
#include <benchmark/benchmark.h>

#include "ratio_reporter.h"

#include <X11/Xlib.h>
#include <X11/extensions/XInput2.h>

#include <cstdio>
#include <map>
#include <memory>

#include "run/window_messages.h"
#include "x11/x11_desktop.h"

namespace {

using namespace quorlin;
using namespace quorlin::wm;

constexpr int kX = 300, kY = 300;

// A window that takes clicks as core events, or (xi2) only through XInput 2.
Window makeTarget(Display* d, bool xi2) {
    XSetWindowAttributes a{};
    a.override_redirect = True;
    a.event_mask = xi2 ? 0 : ButtonPressMask | ButtonReleaseMask;
    const Window w = XCreateWindow(d, DefaultRootWindow(d), kX, kY, 100, 100, 0, CopyFromParent, InputOutput,
                                   CopyFromParent, CWOverrideRedirect | CWEventMask, &a);
    if (xi2) {
        unsigned char bits[XIMaskLen(XI_LASTEVENT)] = {};
        XISetMask(bits, XI_ButtonPress);
        XISetMask(bits, XI_ButtonRelease);
        XIEventMask mask{XIAllMasterDevices, sizeof bits, bits};
        XISelectEvents(d, w, &mask, 1);
    }
    XMapRaised(d, w);
    XSync(d, False);
    return w;
}

struct Bench {
    x11::X11Connection connection;
    x11::X11Desktop desktop{connection};
    Display* d = connection.display();
};

Bench& bench() {
    static Bench b;
    return b;
}

void step(Window target) {
    Bench& b = bench();
    b.desktop.postMessage(target, WM_LBUTTONDOWN, MK_LBUTTON, mouseLParam(10, 10));
    b.desktop.postMessage(target, WM_LBUTTONUP, 0, mouseLParam(10, 10));
    b.desktop.finishStep();
    XSync(b.d, False);
}

void BM_BareSendEvent(benchmark::State& state) {
    Display* d = bench().d;
    const Window target = makeTarget(d, false);
    for (auto _ : state) {
        for (int type : {ButtonPress, ButtonRelease}) {
            XEvent e{};
            e.xbutton.type = type;
            e.xbutton.window = target;
            e.xbutton.root = DefaultRootWindow(d);
            e.xbutton.x = e.xbutton.y = 10;
            e.xbutton.x_root = kX + 10;
            e.xbutton.y_root = kY + 10;
            e.xbutton.button = Button1;
            e.xbutton.same_screen = True;
            XSendEvent(d, target, False, type == ButtonPress ? ButtonPressMask : ButtonReleaseMask, &e);
        }
        XSync(d, False);
    }
    XDestroyWindow(d, target);
}

void BM_CoreRoute(benchmark::State& state) {
    const Window target = makeTarget(bench().d, false);
    for (auto _ : state) step(target);
    XDestroyWindow(bench().d, target);
}

void BM_DeviceRoute(benchmark::State& state) {
    const Window target = makeTarget(bench().d, true);
    for (auto _ : state) step(target);
    XDestroyWindow(bench().d, target);
}

BENCHMARK(BM_BareSendEvent)->Unit(benchmark::kMicrosecond)->MinTime(1.0);
BENCHMARK(BM_CoreRoute)->Unit(benchmark::kMicrosecond)->MinTime(1.0);
BENCHMARK(BM_DeviceRoute)->Unit(benchmark::kMicrosecond)->MinTime(1.0);


}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    const double bare = reporter.perIteration["BM_BareSendEvent/min_time:1.000"];
    const double core = reporter.perIteration["BM_CoreRoute/min_time:1.000"];
    const double device = reporter.perIteration["BM_DeviceRoute/min_time:1.000"];
    if (bare > 0) std::printf("core route / bare = %.2f, device route / bare = %.2f\n", core / bare, device / bare);
    benchmark::Shutdown();
    return 0;
}
