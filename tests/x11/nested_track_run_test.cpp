#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTimer>
#include <chrono>
#include <functional>
#include <limits>
#include <utility>

// Qt's headers before Xlib's, whose macros (Bool, None) would clash with Qt's names.
#include "qt_ports.h"

#include "private_display.h"
#include "recording_window.h"
#include "run/seeded_random.h"
#include "support/fake_platform.h"
#include "window/frm_main.h"
#include "x11/x11_desktop.h"
#include "x11/x11_screen_reader.h"

namespace quorlin::testing {
namespace {

using Clock = std::chrono::steady_clock;

// The window's Qt event pump; at a given pass of a step's pause it queues a press of
// the user's, which the next pass handles.
class PumpPressingAtPass : public EventPump {
public:
    long atPass = 0;
    std::function<void()> press;

    void pumpOnce() override {
        if (++passes_ == atPass) QTimer::singleShot(0, press);
        pump_.pumpOnce();
    }
    void waitForEvents() override { pump_.waitForEvents(); }

private:
    qt::QtEventPump pump_;
    long passes_ = 0;
};

int pressesOf(RecordingWindow& w, unsigned button) {
    int n = 0;
    for (const XEvent& e : w.receive(std::numeric_limits<std::size_t>::max(), 1)) n += e.type == ButtonPress && e.xbutton.button == button;
    return n;
}

// A manual Non-stop Click at 1 ms in "Web browser" mode; during the first click's
// pause "# of times", "From track list" and "Non-Stop track" are chosen and Start
// pressed. The row's RightClicks reach their window, and one Stop ends both runs.
TEST(NestedTrackRun, StartedInAClicksPauseItPlaysAndOneStopEndsBothRuns) {
    PrivateDisplay display;
    int argc = 1;
    char name[] = "quorlin_x11_tests";
    char* argv[] = {name, nullptr};
    QCoreApplication app(argc, argv);
    RecordingWindow manualTarget(100, 100, 50, 50);
    RecordingWindow rowTarget(300, 100, 50, 50);

    x11::X11Connection connection;
    x11::X11Desktop desktop{connection};
    x11::X11ScreenReader screen{connection};
    FakeDialogs dialogs;
    SeededRandom random;
    FrmMain* frmPointer = nullptr;
    qt::QtTimers timers([&frmPointer](TimerId id) { frmPointer->timerTick(id); });
    PumpPressingAtPass pump;
    FrmMain frm{Ports{desktop, screen, timers, pump, dialogs, random}};
    frmPointer = &frm;
    frm.Form_Load(0);

    for (auto [field, text] : {std::pair{Ctl::txtX, "320"}, {Ctl::txtY, "120"}, {Ctl::txtSeconds, "0"},
                               {Ctl::txtMiliseconds, "5"}, {Ctl::txtCount, "2"}})
        frm.setText(field, text);
    frm.selectOption(Ctl::optRightClick);
    frm.cmdAddtoList_Click();
    frm.setText(Ctl::txtX, "120");
    frm.setText(Ctl::txtMiliseconds, "1");
    frm.selectOption(Ctl::optClick);
    frm.selectOption(Ctl::optWeb);
    frm.selectOption(Ctl::optLoop);

    pump.atPass = 1000;
    pump.press = [&frm] {
        frm.selectOption(Ctl::optCount);
        frm.selectOption(Ctl::optFromTrack);
        frm.selectOption(Ctl::optLooptrack);
        frm.cmdStart_Click();
    };
    const Clock::time_point start = Clock::now();
    bool stopped = false;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        if (!stopped && (pressesOf(rowTarget, Button3) >= 4 || Clock::now() - start > std::chrono::seconds(5))) {
            frm.cmdStop_Click();
            stopped = true;
        }
    });
    watch.start(10);
    frm.cmdStart_Click();
    // The watch wakes the loops below every 10 ms. The runs are nested in the manual
    // click's tick, which returns here once both have ended.
    while (!stopped) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const auto pumpFor = [](std::chrono::milliseconds time) {
        for (const auto until = Clock::now() + time; Clock::now() < until;)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    };
    pumpFor(std::chrono::milliseconds(100));

    const int rowClicks = pressesOf(rowTarget, Button3);
    const int manualClicks = pressesOf(manualTarget, Button1);
    EXPECT_GE(rowClicks, 4);
    EXPECT_GE(manualClicks, 2);
    EXPECT_FALSE(frm.model().trackRunActive);
    pumpFor(std::chrono::milliseconds(300));
    EXPECT_EQ(pressesOf(rowTarget, Button3), rowClicks);
    EXPECT_EQ(pressesOf(manualTarget, Button1), manualClicks);
}

}  // namespace
}  // namespace quorlin::testing
