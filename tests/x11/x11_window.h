#pragma once

#include "support/fake_platform.h"
#include "window/frm_main.h"
#include "x11/x11_desktop.h"
#include "x11/x11_screen_reader.h"

namespace quorlin::testing {

// The whole window over the real X11 back end, set to Application clicks; only time is virtual.
struct X11Window {
    x11::X11Connection connection;
    x11::X11Desktop desktop{connection};
    x11::X11ScreenReader screen{connection};
    VirtualClock clock;
    FakeDialogs dialogs;
    ScriptedRandom random;
    FrmMain frm{Ports{desktop, screen, clock, clock, dialogs, random}};

    X11Window() {
        clock.onTick = [this](TimerId id) { frm.timerTick(id); };
        frm.Form_Load(0);
        frm.selectOption(Ctl::optApplication);
    }
    // A manual run of one step at a screen point, played to its end.
    void runAt(ScreenPoint at) {
        frm.setText(Ctl::txtX, std::to_string(at.x));
        frm.setText(Ctl::txtY, std::to_string(at.y));
        frm.cmdStart_Click();
        clock.advanceBy(10'000);
    }
};

}  // namespace quorlin::testing
