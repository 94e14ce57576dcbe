#include <gtest/gtest.h>

#include <array>

#include "support/test_window.h"
#include "window/messages.h"

namespace quorlin::testing {
namespace {

using C = Ctl;
using Cells = std::array<std::string, kGridColumns>;

// A track-list run in "Application" mode over entries written straight into the grid.
class TrackRunTest : public ::testing::Test {
protected:
    TestWindow w;

    void SetUp() override {
        w.frm.selectOption(C::optApplication);
        w.frm.selectOption(C::optFromTrack);
    }
    // An entry clicking at (x, 0) every second, `rep` times.
    void add(const std::string& x, const std::string& rep = "2", const std::string& interval = "0:1:0",
             const std::string& type = "Click") {
        add(Cells{"", x, "0", "Custom", interval, type, rep, "No", "", "No"});
    }
    void add(Cells cells) {
        WindowModel& m = w.model();
        int r = m.vFirstRowUsed ? m.fgResult.rowCount() : 1;
        m.fgResult.setRowCount(r + 1);
        cells[colNumber] = std::to_string(r);
        for (int c = 0; c < kGridColumns; ++c) m.fgResult.setCell(r, c, cells[static_cast<std::size_t>(c)]);
        m.rows.sRowCells[static_cast<std::size_t>(r)] = cells;
        m.vFirstRowUsed = true;
    }
    std::vector<int> clickedXs() const {
        std::vector<int> xs;
        for (ScreenPoint p : w.desktop.lookedUp) xs.push_back(p.x);
        return xs;
    }
    void repeat(const char* times) {
        w.frm.selectOption(C::optRepeatTrack);
        w.type(C::txtTrackNum, times);
    }
};

TEST_F(TrackRunTest, PlaysEveryRowItsCountTimesForEachRepetition) {
    add("1");
    add("2");
    repeat("2");
    w.frm.cmdStart_Click();
    EXPECT_EQ(clickedXs(), (std::vector<int>{1, 1, 2, 2, 1, 1, 2, 2}));
    EXPECT_EQ(w.clock.now, 8000);
    EXPECT_EQ(w.model().fgResult.row(), 2) << "the current row stays on the last row played";
    EXPECT_EQ(w.form().text(C::txtX), "2");
    EXPECT_FALSE(w.model().trackRunActive);
}

TEST_F(TrackRunTest, RepeatCountIsTheWholePartOfTheNumber) {
    add("1", "1");
    for (auto [times, passes] : {std::pair{"0", 0}, {"", 0}, {"2.7", 2}, {"-3", 0}, {"1", 1}}) {
        w.desktop.lookedUp.clear();
        repeat(times);
        w.frm.cmdStart_Click();
        EXPECT_EQ(w.desktop.lookedUp.size(), static_cast<std::size_t>(passes)) << "times: " << times;
        EXPECT_TRUE(w.dialogs.messages.empty());
    }
}

TEST_F(TrackRunTest, StopEndsOnlyThePassInProgressWhenRepeating) {
    add("1");
    add("2");
    repeat("3");
    w.clock.at(1500, [&] { w.frm.cmdStop_Click(); });  // during row 1 of the first pass
    w.frm.cmdStart_Click();
    EXPECT_EQ(clickedXs(), (std::vector<int>{1, 1, 1, 2, 2, 1, 1, 2, 2}));
}

TEST_F(TrackRunTest, NonStopTrackRepeatsUntilStop) {
    add("1", "1");
    add("2", "1");
    w.frm.selectOption(C::optLooptrack);
    w.clock.at(5500, [&] { w.frm.cmdStop_Click(); });
    w.frm.cmdStart_Click();
    EXPECT_EQ(clickedXs(), (std::vector<int>{1, 2, 1, 2, 1}));
    EXPECT_TRUE(w.model().run.bStop);
}

TEST_F(TrackRunTest, ClosingTheWindowEndsARepeatingRun) {
    add("1", "1");
    repeat("1000");
    w.clock.at(2500, [&] { w.frm.Form_Unload(); });
    w.frm.cmdStart_Click();
    EXPECT_EQ(clickedXs(), (std::vector<int>{1, 1}));
}

TEST_F(TrackRunTest, NonStopClicksStepThroughTheRowsWithoutClicking) {
    add("1");
    add("2");
    repeat("1");
    w.frm.selectOption(C::optLoop);
    w.frm.cmdStart_Click();
    EXPECT_TRUE(w.desktop.posted.empty());
    EXPECT_EQ(w.model().fgResult.row(), 2);
    EXPECT_EQ(w.form().text(C::txtX), "2");
}

TEST_F(TrackRunTest, EmptyListIsRefusedByTheGate) {
    w.frm.cmdStart_Click();
    EXPECT_EQ(w.dialogs.messages, std::vector<std::string>{msg::kFieldsIncorrect});
    EXPECT_TRUE(w.clock.intervals.empty());
}

struct IntervalCase {
    const char* cell;
    bool random;
    double u;
    std::int32_t timer;
};

class RowInterval : public TrackRunTest, public ::testing::WithParamInterface<IntervalCase> {};

TEST_P(RowInterval, FollowsTheIntervalOptionSelectedNow) {
    add("1", "1", GetParam().cell);
    repeat("1");
    if (GetParam().random) w.frm.selectOption(C::optRandom);
    w.random.values.push(GetParam().u);
    w.clock.at(100'000, [&] { w.frm.cmdStop_Click(); });  // an interval of 0 waits until Stop
    w.frm.cmdStart_Click();
    EXPECT_EQ(w.clock.intervals.front(), (std::pair{TimerId::tmrCount, GetParam().timer}));
}

INSTANTIATE_TEST_SUITE_P(Cells, RowInterval, ::testing::Values(
    IntervalCase{"0:2:500", false, 0, 2500}, IntervalCase{"0:2:500", true, 0, 0},
    IntervalCase{"0:2:500", true, 0.99, 1}, IntervalCase{"3:7", true, 0, 3}, IntervalCase{"3:7", true, 0.999, 9},
    IntervalCase{"0:0:2.5", false, 0, 2}, IntervalCase{"1:5:535", false, 0, 65535}, IntervalCase{"7", true, 0.5, 7}));

TEST_F(TrackRunTest, ARowAboveTheTimerLimitEndsEachPassWithTheMessage) {
    add("1", "1");
    add("2", "1", "1:6:0");
    add("3", "1");
    repeat("2");
    w.frm.cmdStart_Click();
    EXPECT_EQ(clickedXs(), (std::vector<int>{1, 1}));
    EXPECT_EQ(w.dialogs.messages, (std::vector<std::string>{msg::kMaxMinute, msg::kMaxMinute}));
}

TEST_F(TrackRunTest, ANegativeRowIntervalEndsThatRowWithoutClicking) {
    add("1", "2", "0:-1:0");
    add("2", "1");
    repeat("1");
    w.frm.cmdStart_Click();
    EXPECT_EQ(clickedXs(), (std::vector<int>{2}));
}

TEST_F(TrackRunTest, AnUnknownTypeKeepsTheClickKindOfTheRowBefore) {
    add("1", "1", "0:1:0", "DBClick");
    add("2", "1", "0:1:0", "dbclick");
    repeat("1");
    w.frm.cmdStart_Click();
    std::size_t doubles = 0;
    for (const auto& m : w.desktop.posted) doubles += m.code == 0x0203;
    EXPECT_EQ(doubles, 2u);
}

TEST_F(TrackRunTest, ARowTypesItsOwnTextOnlyWhileTheTextBoxIsNotEmpty) {
    add(Cells{"", "1", "0", "Custom", "0:1:0", "Click", "1", "Yes", "ab", "No"});
    repeat("1");
    w.frm.cmdStart_Click();
    EXPECT_EQ(w.desktop.posted.size(), 2u);

    w.frm.setCheck(C::chkText, 1);
    w.type(C::txtText, "zzz");
    w.desktop.posted.clear();
    w.frm.cmdStart_Click();
    ASSERT_EQ(w.desktop.posted.size(), 2u + 6u);
    EXPECT_EQ(w.desktop.posted[3].wParam, static_cast<std::uint32_t>('a'));
    EXPECT_EQ(w.model().step.sTypeText, "ab");
}

TEST_F(TrackRunTest, StepsAreGatedByTheirOwnRectangleAgainstTheWindowsPicture) {
    add("1", "1");
    add("2", "1");
    WindowModel& m = w.model();
    m.rows.bRowImage[2] = true;
    m.rows.lRowRect[2] = {50, 60, 50, 60};
    m.picture.pixel(0, 0) = 0x123456;
    w.screen.pixelAt = [](int x, int y) { return x == 50 && y == 60 ? 0x123456 : 0; };
    repeat("1");
    w.frm.cmdStart_Click();
    EXPECT_EQ(clickedXs(), (std::vector<int>{1, 2}));
    EXPECT_EQ(w.screen.reads.size(), 1u) << "only the image step reads the screen";

    w.frm.selectOption(C::optImageNotInclude);
    w.desktop.lookedUp.clear();
    w.frm.cmdStart_Click();
    EXPECT_EQ(clickedXs(), (std::vector<int>{1}));
}

TEST_F(TrackRunTest, StartWhileTheListPlaysIsIgnored) {
    add("1", "2");
    repeat("1");
    w.clock.at(500, [&] { w.frm.cmdStart_Click(); });
    w.frm.cmdStart_Click();
    EXPECT_EQ(clickedXs(), (std::vector<int>{1, 1}));
}

TEST_F(TrackRunTest, WaitsSleepInTheEventPumpInsteadOfPolling) {
    add("1", "1", "0:5:0");
    repeat("1");
    w.frm.cmdStart_Click();
    EXPECT_LE(w.clock.waits, 2);
}

}  // namespace
}  // namespace quorlin::testing
