#pragma once

#include <string>

#include "support/fake_platform.h"
#include "window/frm_main.h"

namespace quorlin::testing {

// The main window over the in-memory desktop and the virtual clock, loaded and ready.
struct TestWindow {
    FakeDesktop desktop;
    FakeScreen screen;
    VirtualClock clock;
    FakeDialogs dialogs;
    ScriptedRandom random;
    FrmMain frm{Ports{desktop, screen, clock, clock, dialogs, random}};

    TestWindow() {
        desktop.pumpPasses = &clock.passes;
        clock.onTick = [this](TimerId id) {
            if (id == TimerId::tmrCount) frm.tmrCount_Timer();
            if (id == TimerId::tmrLoop) frm.tmrLoop_Timer();
            if (id == TimerId::timer) frm.timer_Timer();
        };
        frm.Form_Load(0x1000);
    }

    const EntryForm& form() const { return frm.form(); }
    WindowModel& model() { return frm.model(); }
    void type(Ctl field, const std::string& text) { frm.setText(field, text); }
    std::size_t clicks() const;  // left-button-down messages posted so far
};

inline std::size_t TestWindow::clicks() const {
    std::size_t n = 0;
    for (const auto& m : desktop.posted)
        if (m.code == 0x0201) ++n;
    return n;
}

}  // namespace quorlin::testing
