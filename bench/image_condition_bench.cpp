// The capture and the image test of a 1001 x 1001 rectangle against a bare read of the
// same rectangle, side by side in one run on the X display in $DISPLAY.
#include <benchmark/benchmark.h>

#include "ratio_reporter.h"

#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "../tests/support/fake_platform.h"
#include "window/frm_main.h"
#include "x11/x11_desktop.h"
#include "x11/x11_screen_reader.h"

namespace {

using namespace quorlin;

struct Setup {
    x11::X11Connection connection;
    x11::X11Desktop desktop{connection};
    x11::X11ScreenReader screen{connection};
    testing::VirtualClock clock;
    testing::FakeDialogs dialogs;
    testing::ScriptedRandom random;
    FrmMain frm{Ports{desktop, screen, clock, clock, dialogs, random}};

    Setup() {
        for (Ctl field : {Ctl::txtTopX, Ctl::txtTopY}) frm.setText(field, "0");
        for (Ctl field : {Ctl::txtBottomX, Ctl::txtBottomY}) frm.setText(field, "1000");
    }
};

Setup& setup() {
    static Setup s;
    return s;
}

void BM_BareRead(benchmark::State& state) {
    std::vector<Colour> out(1001 * 1001);
    for (auto _ : state) setup().screen.readRect({0, 0, 1000, 1000}, out);
}

void BM_Capture(benchmark::State& state) {
    for (auto _ : state) setup().frm.cmdGetPic_Click();
}

void BM_ImageCondition(benchmark::State& state) {
    Setup& s = setup();
    s.frm.cmdGetPic_Click();
    ImageCondition condition(s.screen);
    const StepCondition step{true, {0, 0, 1000, 1000}};
    bool met = false;
    for (auto _ : state) met = condition.ImageConditionMet(step, s.frm.model().picture, true);
    benchmark::DoNotOptimize(met);
}

BENCHMARK(BM_BareRead)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(BM_Capture)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(BM_ImageCondition)->Unit(benchmark::kMillisecond)->MinTime(1.0);


}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    const double read = reporter.perIteration["BM_BareRead/min_time:1.000"];
    const double capture = reporter.perIteration["BM_Capture/min_time:1.000"];
    const double test = reporter.perIteration["BM_ImageCondition/min_time:1.000"];
    if (read > 0)
        std::printf("capture / bare read = %.2f, image test / bare read = %.2f\n", capture / read, test / read);
    benchmark::Shutdown();
    return 0;
}
