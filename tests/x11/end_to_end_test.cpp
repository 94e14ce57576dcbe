#include <gtest/gtest.h>

#include "recording_window.h"
#include "x11_window.h"

namespace quorlin::testing {
namespace {

using Presses = std::vector<std::tuple<unsigned, int, int>>;

Presses pressesOf(const std::vector<XEvent>& events) {
    Presses at;
    for (const XEvent& e : events)
        if (e.type == ButtonPress) at.emplace_back(e.xbutton.button, e.xbutton.x, e.xbutton.y);
    return at;
}

TEST(EndToEnd, AManualRunClicksAndTypesIntoARealWindow) {
    RecordingWindow target(300, 200, 100, 100);
    X11Window w;
    w.frm.setText(Ctl::txtCount, "2");
    w.frm.setCheck(Ctl::chkText, 1);
    w.frm.setText(Ctl::txtText, "ok\r\n");
    w.runAt({310, 220});
    EXPECT_EQ(pressesOf(target.receive(2 * (2 + 2 * 3))), (Presses{{1, 10, 20}, {1, 10, 20}}));
    EXPECT_EQ(target.typed(), "ok\rok\r");
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
    EXPECT_EQ(pressesOf(first.receive(4)), (Presses{{1, 5, 10}, {1, 5, 10}}));
    EXPECT_EQ(pressesOf(second.receive(2)), (Presses{{3, 40, 40}}));
    EXPECT_EQ(w.clock.now, 3000);
}

}  // namespace
}  // namespace quorlin::testing
