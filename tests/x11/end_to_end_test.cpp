#include <gtest/gtest.h>

#include "recording_window.h"
#include "support/fake_platform.h"
#include "window/frm_main.h"
#include "x11/x11_desktop.h"
#include "x11/x11_screen_reader.h"

namespace quorlin::testing {
namespace {

// The whole window over the real X11 back end; only time is virtual.
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
};

std::vector<std::pair<int, int>> pressesAt(const std::vector<XEvent>& events) {
    std::vector<std::pair<int, int>> at;
    for (const XEvent& e : events)
        if (e.type == ButtonPress) at.emplace_back(e.xbutton.x, e.xbutton.y);
    return at;
}

TEST(EndToEnd, AManualRunClicksAndTypesIntoARealWindow) {
    RecordingWindow target(300, 200, 100, 100);
    X11Window w;
    w.frm.setText(Ctl::txtX, "310");
    w.frm.setText(Ctl::txtY, "220");
    w.frm.setText(Ctl::txtCount, "2");
    w.frm.setCheck(Ctl::chkText, 1);
    w.frm.setText(Ctl::txtText, "ok\r\n");
    w.frm.cmdStart_Click();
    w.clock.advanceBy(10'000);
    const auto& events = target.receive(2 * (2 + 2 * 3));
    EXPECT_EQ(pressesAt(events), (std::vector<std::pair<int, int>>{{10, 20}, {10, 20}}));
    EXPECT_EQ(target.typed(), "ok\rok\r");
}

TEST(EndToEnd, TheReadoutShowsWhereTheRealPointerIs) {
    X11Window w;
    XWarpPointer(w.connection.display(), None, w.connection.root(), 0, 0, 0, 0, 123, 45);
    XSync(w.connection.display(), False);
    w.frm.timerTick(TimerId::timer);
    EXPECT_EQ(w.frm.form().text(Ctl::lblXPos), "123");
    EXPECT_EQ(w.frm.form().text(Ctl::lblYPos), "45");
}

TEST(EndToEnd, ATrackListPlaysItsStepsAgainstRealWindows) {
    RecordingWindow first(100, 100, 50, 50);
    RecordingWindow second(200, 100, 50, 50);
    X11Window w;
    TrackGrid& grid = w.frm.model().fgResult;
    grid.setRowCount(3);
    const char* rows[2][kGridColumns] = {{"1", "105", "110", "Custom", "0:1:0", "Click", "2", "No", "", "No"},
                                         {"2", "240", "140", "Custom", "0:1:0", "RightClick", "1", "No", "", "No"}};
    for (int r = 1; r <= 2; ++r)
        for (int c = 0; c < kGridColumns; ++c) grid.setCell(r, c, rows[r - 1][c]);
    w.frm.model().vFirstRowUsed = true;
    w.frm.selectOption(Ctl::optFromTrack);
    w.frm.cmdStart_Click();

    const auto& a = first.receive(4);
    const auto& b = second.receive(2);
    EXPECT_EQ(pressesAt(a), (std::vector<std::pair<int, int>>{{5, 10}, {5, 10}}));
    ASSERT_EQ(b.size(), 2u);
    EXPECT_EQ(b[0].xbutton.button, 3u);
    EXPECT_EQ(b[0].xbutton.x, 40);
    EXPECT_EQ(b[0].xbutton.y, 40);
    EXPECT_EQ(w.clock.now, 3000);
}

}  // namespace
}  // namespace quorlin::testing
