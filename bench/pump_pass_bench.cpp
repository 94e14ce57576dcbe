// What one pass of the event pump costs, measured as the click step's long pause
// (100,000 passes): with the main window's kind of load (a shown window and a readout
// timer) against a bare application, side by side in one run.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QLabel>
#include <QTimer>

namespace {

constexpr int kLongPause = 100'000;

void longPause() {
    for (int i = 0; i < kLongPause; ++i) QCoreApplication::processEvents();
}

void BM_LongPauseBareApplication(benchmark::State& state) {
    for (auto _ : state) longPause();
    state.counters["per_pass"] = benchmark::Counter(kLongPause, benchmark::Counter::kIsIterationInvariantRate |
                                                                         benchmark::Counter::kInvert);
}

void BM_LongPauseShownWindowWithReadout(benchmark::State& state) {
    QLabel window("readout");
    window.show();
    QTimer readout;
    int ticks = 0;
    QObject::connect(&readout, &QTimer::timeout, [&] { window.setText(QString::number(++ticks)); });
    readout.start(50);
    for (auto _ : state) longPause();
    state.counters["per_pass"] = benchmark::Counter(kLongPause, benchmark::Counter::kIsIterationInvariantRate |
                                                                         benchmark::Counter::kInvert);
}

BENCHMARK(BM_LongPauseBareApplication)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_LongPauseShownWindowWithReadout)->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
