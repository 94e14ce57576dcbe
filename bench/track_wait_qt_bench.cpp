// Processor time a track-list run spends waiting for its next click: one row clicking
// twice at a 5-second interval (a 10-second wait), against the same wait built as a
// polling loop of event-pump passes, measured side by side in one run.
#include <QApplication>
#include <QElapsedTimer>
#include <cstdio>
#include <ctime>

#include "../tests/support/fake_platform.h"
#include "qt_ports.h"
#include "window/frm_main.h"

namespace {

using namespace quorlin;

double processSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

// Share of one core used while the track list waits through its row.
double trackWaitShare() {
    testing::FakeDesktop desktop;
    testing::FakeScreen screen;
    testing::FakeDialogs dialogs;
    testing::ScriptedRandom random;
    FrmMain* frmPointer = nullptr;
    qt::QtTimers timers([&](TimerId id) { frmPointer->timerTick(id); });
    qt::QtEventPump pump;
    FrmMain frm{Ports{desktop, screen, timers, pump, dialogs, random}};
    frmPointer = &frm;
    frm.Form_Load(0);
    frm.selectOption(Ctl::optApplication);
    frm.setText(Ctl::txtX, "1");
    frm.setText(Ctl::txtY, "1");
    frm.setText(Ctl::txtSeconds, "5");
    frm.setText(Ctl::txtCount, "2");
    frm.cmdAddtoList_Click();
    frm.selectOption(Ctl::optFromTrack);

    QElapsedTimer wall;
    wall.start();
    const double before = processSeconds();
    frm.cmdStart_Click();
    const double used = processSeconds() - before;
    std::printf("track wait: %.1f s of waiting, %.3f s of processor time\n", wall.elapsed() / 1000.0, used);
    return used / (wall.elapsed() / 1000.0);
}

// The same wait as a loop that polls the event pump until the time is up.
double pollingShare(int milliseconds) {
    QElapsedTimer wall;
    wall.start();
    const double before = processSeconds();
    while (wall.elapsed() < milliseconds) QCoreApplication::processEvents();
    return (processSeconds() - before) / (wall.elapsed() / 1000.0);
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const double waiting = trackWaitShare();
    const double polling = pollingShare(3000);
    std::printf("share of one core: track wait %.2f %%, polling loop %.1f %%, ratio %.4f\n", waiting * 100,
                polling * 100, waiting / polling);
    return 0;
}
