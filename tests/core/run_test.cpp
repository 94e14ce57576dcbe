#include <gtest/gtest.h>

#include <tuple>

#include "support/test_window.h"

namespace quorlin::testing {
namespace {

using C = Ctl;

// A posted message's code, wParam and lParam, and the pump passes made before it was posted.
using Msg = std::tuple<std::uint32_t, std::uint32_t, std::uint32_t, long>;

constexpr std::uint32_t kDown = 0x0201, kUp = 0x0202, kDbl = 0x0203, kRDown = 0x0204, kRUp = 0x0205;
constexpr std::uint32_t kKeyDown = 0x0100, kChar = 0x0102, kKeyUp = 0x0101, kKey = 0xC0100001;
constexpr long kLong = 100'000, kKeyPause = 10'000;

// A manual run in "Application" mode at (100, 200), one second apart, against the in-memory
// desktop on the virtual clock.
class ManualRun : public ::testing::Test {
protected:
    TestWindow w;
    std::vector<long> times;  // virtual times at which clicks were made

    void SetUp() override {
        w.typeAll({{C::txtX, "100"}, {C::txtY, "200"}, {C::txtSeconds, "1"}});
        w.frm.selectOption(C::optApplication);
        w.clock.onTick = [this](TimerId id) {
            const std::size_t before = w.clicks();
            w.frm.timerTick(id);
            if (w.clicks() > before) times.push_back(w.clock.now);
        };
    }
    void clickOnce() {
        w.frm.cmdStart_Click();
        w.clock.advanceBy(1000);
    }
};

struct StepCase {
    const char* name;
    Ctl kind;
    Ctl mode;
    ScreenPoint clientOrigin;  // the point (100, 200) is (100 - x, 200 - y) in the client area
    const char* text;          // typed after the click when not empty
    std::vector<Msg> messages;
    long passes;
    WindowHandle target = 0x42;  // the window under the point
};

const StepCase kSteps[] = {
    {"ApplicationClick", C::optClick, C::optApplication, {80, 150}, "",
     {{kDown, 1, 0x00320014, 0}, {kUp, 0, 0x00320014, 0}}, kLong},
    {"WebClickRepeatsAfterALongPause", C::optClick, C::optWeb, {80, 150}, "",
     {{kDown, 1, 0x00320014, 0}, {kUp, 0, 0x00320014, 0}, {kDown, 1, 0x00320014, kLong}, {kUp, 0, 0x00320014, kLong}},
     2 * kLong},
    {"NegativeClientPointKeepsLowSixteenBits", C::optClick, C::optApplication, {105, 300}, "",
     {{kDown, 1, 0xFF9CFFFB, 0}, {kUp, 0, 0xFF9CFFFB, 0}}, kLong},
    {"NoWindowUnderThePointTakesScreenCoordinates", C::optClick, C::optApplication, {80, 150}, "",
     {{kDown, 1, 0x00C80064, 0}, {kUp, 0, 0x00C80064, 0}}, kLong, 0},
    {"ClickTypesThreeMessagesAPausePerCharacter", C::optClick, C::optApplication, {100, 200}, "ab",
     {{kDown, 1, 0, 0}, {kUp, 0, 0, 0}, {kKeyDown, 65, kKey, 0}, {kChar, 97, kKey, kKeyPause},
      {kKeyUp, 65, kKey, 2 * kKeyPause}, {kKeyDown, 66, kKey, 3 * kKeyPause}, {kChar, 98, kKey, 4 * kKeyPause},
      {kKeyUp, 66, kKey, 5 * kKeyPause}},
     6 * kKeyPause + kLong},
    {"DoubleClickNeverTypesOrPauses", C::optDbClick, C::optWeb, {100, 200}, "x",
     {{kDown, 1, 0, 0}, {kUp, 0, 0, 0}, {kDbl, 1, 0, 0}, {kUp, 0, 0, 0}}, 0},
    {"RightClickAtTheClientOrigin", C::optRightClick, C::optWeb, {100, 200}, "x",
     {{kRDown, 2, 0, 0}, {kRUp, 0, 0, 0}}, 0},
    {"RightClickLeftOfTheClientAreaOnlyReleases", C::optRightClick, C::optWeb, {105, 190}, "",
     {{kRUp, 0, 0x000AFFFB, 0}}, 0},
    {"RightClickAboveTheClientAreaOnlyReleases", C::optRightClick, C::optWeb, {90, 201}, "",
     {{kRUp, 0, 0xFFFF000A, 0}}, 0},
};

class ClickStep : public ManualRun, public ::testing::WithParamInterface<StepCase> {};

TEST_P(ClickStep, PostsTheMessagesOfItsKindWithThePausesBetween) {
    const StepCase& c = GetParam();
    w.frm.selectOption(c.kind);
    w.frm.selectOption(c.mode);
    w.desktop.clientOrigin = c.clientOrigin;
    w.desktop.target = c.target;
    w.frm.setCheck(C::chkText, 1);
    w.type(C::txtText, c.text);
    clickOnce();
    std::vector<Msg> sent;
    for (const auto& m : w.desktop.posted) sent.emplace_back(m.code, m.wParam, m.lParam, m.pumpPassesBefore);
    EXPECT_EQ(sent, c.messages);
    EXPECT_EQ(w.clock.passes, c.passes);
    EXPECT_EQ(w.desktop.lookedUp, (std::vector<ScreenPoint>{{100, 200}}));
    for (const auto& m : w.desktop.posted) EXPECT_EQ(m.window, c.target);
}

INSTANTIATE_TEST_SUITE_P(Kinds, ClickStep, ::testing::ValuesIn(kSteps),
                         [](const auto& info) { return std::string(info.param.name); });

// Each character goes as its Windows-1252 code; its key code is that less 32, as 32 bits.
TEST_F(ClickStep, TypingNeedsTheSwitchAndAnUnemptyBoxAndTypesTheKeptCopyInTheAnsiCodePage) {
    w.frm.setCheck(C::chkText, 1);
    w.model().step.sTypeText = "zz";  // as a track row would set it
    clickOnce();
    EXPECT_EQ(w.desktop.posted.size(), 2u) << "an empty text box types nothing";

    w.type(C::txtText, "q");
    w.model().step.sTypeText = "A\r\n\xC3\xA9 ";  // A, CR, LF, e-acute (0xE9), blank
    w.desktop.posted.clear();
    w.frm.cmdStart_Click();
    w.clock.atPumpPass(5, [&] {
        w.type(C::txtX, "0");
        w.type(C::txtText, "xyz");
        w.desktop.target = 0x99;
    });
    w.clock.advanceBy(1000);
    std::vector<std::uint32_t> chars, keys;
    for (const auto& m : w.desktop.posted) {
        EXPECT_EQ(m.window, 0x42u);
        if (m.code == kChar) chars.push_back(m.wParam);
        if (m.code == kKeyDown) keys.push_back(m.wParam);
    }
    EXPECT_EQ(chars, (std::vector<std::uint32_t>{65, 13, 10, 0xE9, 32}));
    EXPECT_EQ(keys, (std::vector<std::uint32_t>{33, 0xFFFFFFED, 0xFFFFFFEA, 0xC9, 0}));

    w.frm.setCheck(C::chkText, 0);
    w.desktop.posted.clear();
    w.typeAll({{C::txtX, "1e12"}, {C::txtY, "-3e10"}});
    clickOnce();
    EXPECT_EQ(w.desktop.posted.size(), 2u) << "without the switch nothing is typed";
    EXPECT_EQ(w.desktop.lookedUp.back(), (ScreenPoint{2147483647, -2147483647 - 1})) << "the nearest edge";
}

TEST_F(ManualRun, CustomIntervalsAreArmedRoundedOrRefused) {
    using Case = std::tuple<const char*, const char*, const char*, std::int32_t, const char*>;
    // minutes, seconds, milliseconds; the interval armed; the refusal shown, if any
    for (auto [minutes, seconds, ms, timer, refusal] :
         {Case{"1", "0", "0", 60000, nullptr}, {"1", "5", "535", 65535, nullptr},
          {"1", "5", "536", 0, "Maximum interval is 1 minute"}, {"0", "1.5", "0", 1500, nullptr},
          {"0", "0", "2.5", 2, nullptr}, {"0", "0", "3.5", 4, nullptr}, {"0", "0", "0", 0, nullptr},
          {"0", "0", "-0.5", 0, nullptr}, {"0", "0", "-5", 0, "Error in input"},
          {"0", "-1", "0", 0, "Error in input"}}) {
        TestWindow fresh;
        fresh.typeAll({{C::txtX, "1"}, {C::txtY, "1"}, {C::txtMinutes, minutes}, {C::txtSeconds, seconds},
                       {C::txtMiliseconds, ms}});
        fresh.frm.cmdStart_Click();
        EXPECT_EQ(fresh.clock.interval(TimerId::tmrCount), timer) << seconds << " " << ms;
        EXPECT_EQ(fresh.messages(), refusal ? std::vector<std::string>{refusal} : std::vector<std::string>{});
        EXPECT_EQ(fresh.model().run.bStop, refusal != nullptr);
    }
}

TEST_F(ManualRun, CountedRunsClickTheirRoundedCountOneIntervalApart) {
    for (auto [count, clicks] : {std::pair{"3", std::vector<long>{1000, 2000, 3000}}, {"0", std::vector<long>{}},
                                 {"1.5", std::vector<long>{1000, 2000}}}) {
        times.clear();
        w.clock.now = 0;
        w.type(C::txtCount, count);
        w.frm.cmdStart_Click();
        w.clock.advanceTo(10'000);
        EXPECT_EQ(times, clicks) << count;
        EXPECT_TRUE(w.model().run.bCountDone);
        EXPECT_EQ(w.clock.interval(TimerId::tmrCount), 0);
    }
    w.type(C::txtCount, "40000");
    w.frm.cmdStart_Click();
    EXPECT_EQ(w.model().run.iClickTarget, 40000);
    w.type(C::txtCount, "3e10");
    w.frm.cmdStart_Click();
    EXPECT_EQ(w.messages(), std::vector<std::string>{"Error in input"});
}

// A refused Start silences an armed endless run too, until the next Start.
TEST_F(ManualRun, StopLetsTheStepInProgressFinishAndDisarmsBothTimersAsARefusedStartDoes) {
    w.frm.selectOption(C::optLoop);
    w.frm.cmdStart_Click();
    w.frm.selectOption(C::optCount);
    w.type(C::txtCount, "5");
    w.frm.cmdStart_Click();
    w.clock.atPumpPass(10, [&] { w.frm.cmdStop_Click(); });
    w.clock.advanceBy(60'000);
    EXPECT_EQ(times, (std::vector<long>{1000}));
    EXPECT_EQ(w.desktop.posted.size(), 2u) << "the step in progress is not cut short";
    EXPECT_EQ((std::pair{w.clock.interval(TimerId::tmrCount), w.clock.interval(TimerId::tmrLoop)}), std::pair(0, 0));

    w.frm.selectOption(C::optLoop);
    w.frm.cmdStart_Click();
    w.clock.advanceBy(1000);
    w.typeAll({{C::txtMinutes, "1"}, {C::txtSeconds, "6"}});
    w.frm.cmdStart_Click();
    EXPECT_EQ(w.messages(), std::vector<std::string>{"Maximum interval is 1 minute"});
    w.clock.advanceBy(3000);
    EXPECT_EQ(w.clicks(), 2u);
}

// The endless run restarts its countdown at every Start; a counted run ticks beside it.
TEST_F(ManualRun, EndlessAndCountedRunsTickSideBySideUntilOneStopEndsBoth) {
    w.type(C::txtSeconds, "2");
    w.frm.selectOption(C::optLoop);
    w.frm.cmdStart_Click();
    w.clock.advanceBy(1500);
    w.frm.cmdStart_Click();
    w.frm.selectOption(C::optCount);
    w.typeAll({{C::txtCount, "2"}, {C::txtSeconds, "3"}});
    w.clock.advanceBy(500);
    w.frm.cmdStart_Click();
    w.clock.advanceBy(5500);
    w.frm.cmdStop_Click();
    w.clock.advanceBy(10'000);
    EXPECT_EQ(times, (std::vector<long>{3500, 5000, 5500, 7500}));
}

TEST_F(ManualRun, RandomIntervalsAreDrawnAtStartAndAfterEveryEndlessClick) {
    w.randomInterval("2", "5", {0.0, 0.999999});
    w.type(C::txtCount, "3");
    w.frm.cmdStart_Click();
    EXPECT_EQ(w.clock.interval(TimerId::tmrCount), 2);
    w.clock.advanceBy(6);
    EXPECT_EQ(w.clicks(), 3u) << "a counted run keeps the interval drawn at Start";
    w.frm.cmdStart_Click();
    EXPECT_EQ(w.clock.interval(TimerId::tmrCount), 6);

    w.frm.cmdStop_Click();
    times.clear();
    w.clock.now = 0;
    w.randomInterval("-100", "1000", {0.6, 0.2, 0.05, 0.3, 0.9});  // the third draw is negative: the shortest interval
    w.frm.selectOption(C::optLoop);
    w.frm.cmdStart_Click();
    w.clock.advanceTo(1000);
    EXPECT_EQ(times, (std::vector<long>{500, 600, 601, 801}));
    EXPECT_EQ(w.clock.interval(TimerId::tmrLoop), 800);

    w.randomInterval("10", "100000", {0.9});
    w.clock.advanceBy(700);
    EXPECT_EQ(w.clock.interval(TimerId::tmrLoop), 65535) << "a re-draw beyond the limit is cut to it";
}

TEST_F(ManualRun, ClicksOnlyWhileTheScreenShowsThePictureAndFollowsTheImageRuleLive) {
    Colour shown = 0x123456;
    w.screen.pixelAt = [&](int, int) { return shown; };
    w.typeAll({{C::txtTopX, "0"}, {C::txtTopY, "0"}, {C::txtBottomX, "1"}, {C::txtBottomY, "1"}});
    w.frm.selectOption(C::optLoop);
    w.frm.setCheck(C::chkRecImage, 1);
    w.frm.cmdGetPic_Click();
    w.frm.cmdStart_Click();
    w.clock.advanceBy(1000);
    EXPECT_EQ(w.clicks(), 1u);
    shown = 0;
    w.clock.advanceBy(1000);
    EXPECT_EQ(w.clicks(), 1u);
    w.frm.selectOption(C::optImageNotInclude);
    w.clock.advanceBy(1000);
    EXPECT_EQ(w.clicks(), 2u);
    w.frm.setCheck(C::chkRecImage, 0);  // counts from the next Start
    w.clock.advanceBy(1000);
    EXPECT_EQ(w.screen.reads.size(), 1u + 4u);
}

// A track-list run, played once unless told otherwise, over entries written straight into the grid.
class TrackRun : public ManualRun {
protected:
    void SetUp() override {
        ManualRun::SetUp();
        w.frm.selectOption(C::optFromTrack);
    }
    // An entry clicking at (x, 0) every second, `rep` times.
    void add(const std::string& x, const std::string& rep = "2", const std::string& interval = "0:1:0",
             const std::string& type = "Click", const std::string& fill = "No") {
        const int r = w.model().vFirstRowUsed ? w.model().fgResult.rowCount() : 1;
        w.putRow(r, {std::to_string(r), x, "0", "Custom", interval, type, rep, fill, "ab", "No"});
    }
};

TEST_F(TrackRun, PlaysEveryRowItsCountTimesForTheWholePartOfTheRepetitionsAndIgnoresStartMeanwhile) {
    add("1");
    add("2");
    w.type(C::txtTrackNum, "2");
    w.clock.at(1500, [&] { w.frm.cmdStart_Click(); });  // ignored while the list plays
    w.frm.cmdStart_Click();
    EXPECT_EQ(w.clickedXs(), (std::vector<int>{1, 1, 2, 2, 1, 1, 2, 2}));
    EXPECT_EQ(w.clock.now, 8000);
    EXPECT_EQ(w.model().fgResult.row(), 2) << "the current row stays on the last row played";
    EXPECT_EQ(w.text(C::txtX), "2");
    EXPECT_FALSE(w.model().trackRunActive);
    EXPECT_LE(w.clock.waits, 9) << "waits sleep in the event pump, woken by the eight ticks and the Start";

    for (auto [times, passes] : {std::pair{"0", 0}, {"", 0}, {"2.7", 2}, {"-3", 0}, {"1", 1}}) {
        w.desktop.lookedUp.clear();
        w.type(C::txtTrackNum, times);
        w.frm.cmdStart_Click();
        EXPECT_EQ(w.desktop.lookedUp.size(), 4u * passes) << "the whole part of the times: " << times;
    }
    EXPECT_TRUE(w.messages().empty());
}

TEST_F(TrackRun, StopEndsThePassInProgressWhenRepeatingAndTheRunOtherwise) {
    add("1", "1");
    add("2", "1");
    w.type(C::txtTrackNum, "3");
    w.clock.at(500, [&] { w.frm.cmdStop_Click(); });  // during row 1 of the first pass
    w.frm.cmdStart_Click();
    EXPECT_EQ(w.clickedXs(), (std::vector<int>{1, 2, 1, 2}));

    w.desktop.lookedUp.clear();
    w.frm.selectOption(C::optLooptrack);
    w.clock.at(w.clock.now + 5500, [&] { w.frm.cmdStop_Click(); });
    w.frm.cmdStart_Click();
    EXPECT_EQ(w.clickedXs(), (std::vector<int>{1, 2, 1, 2, 1}));

    w.frm.selectOption(C::optRepeatTrack);
    w.type(C::txtTrackNum, "1000");
    w.desktop.lookedUp.clear();
    w.clock.at(w.clock.now + 2500, [&] { w.frm.Form_Unload(); });
    w.frm.cmdStart_Click();
    EXPECT_EQ(w.clickedXs(), (std::vector<int>{1, 2})) << "closing the window ends every run";
}

TEST_F(TrackRun, NonStopClicksStepThroughTheRowsAndNonStopTrackWaitsForStop) {
    add("1");
    add("2");
    w.frm.selectOption(C::optLoop);
    w.frm.cmdStart_Click();
    EXPECT_TRUE(w.desktop.posted.empty());
    EXPECT_EQ(w.text(C::txtX), "2");

    w.frm.selectOption(C::optLooptrack);
    w.clock.at(w.clock.now + 1000, [&] { w.frm.cmdStop_Click(); });
    w.frm.cmdStart_Click();  // returns only because Stop is handled between the passes
    EXPECT_TRUE(w.model().run.bStop);
    EXPECT_EQ(w.clock.waits, 1) << "between passes that wait for nothing, the run sleeps";
}

TEST_F(TrackRun, TheGateNeedsAnEntryOrANumberOneWithoutASourceOption) {
    w.frm.cmdStart_Click();
    EXPECT_EQ(w.messages(), std::vector<std::string>{"Input field are incorrect. Please enter a valid value."});
    EXPECT_TRUE(w.clock.intervals.empty());
    EXPECT_EQ(w.model().fgResult.row(), 1) << "even a refused run starts at the first row";

    w.putRow(1, {"01", "1", "0", "Custom", "0:1:0", "Click", "1", "No", "", "No"});
    w.model().form.deselectOption(C::optFromTrack);  // a loaded file may leave both sources off
    w.frm.cmdStart_Click();
    EXPECT_EQ(w.messages().size(), 2u);
    w.model().setEntryCells(1, {"1", "1", "0", "Custom", "0:1:0", "Click", "1", "No", "", "No"});
    w.frm.cmdStart_Click();
    EXPECT_EQ(w.clickedXs(), (std::vector<int>{1}));
}

TEST_F(TrackRun, RowIntervalsFollowTheIntervalOptionSelectedNow) {
    // the row's interval cell, Random selected, the draw, the interval armed
    using Case = std::tuple<const char*, bool, double, std::int32_t>;
    for (auto [cell, random, u, timer] :
         {Case{"0:2:500", false, 0, 2500}, {"0:2:500", true, 0, 0}, {"0:2:500", true, 0.99, 1}, {"3:7", true, 0.999, 9},
          {"-5:2", true, 0, 1}, {"0:0:2.5", false, 0, 2}, {"1:5:535", false, 0, 65535}, {"7", true, 0.5, 7}}) {
        w.putRow(1, {"1", "1", "0", "Custom", cell, "Click", "1", "No", "", "No"});
        w.frm.selectOption(random ? C::optRandom : C::optCustom);
        if (random) w.random.values.push(u);
        w.clock.intervals.clear();
        w.clock.at(w.clock.now + 100'000, [&] { w.frm.cmdStop_Click(); });  // an interval of 0 waits until Stop
        w.frm.cmdStart_Click();
        EXPECT_EQ(w.clock.intervals.front(), (std::pair{TimerId::tmrCount, timer})) << cell;
        w.clock.advanceBy(100'000);
    }
}

TEST_F(TrackRun, RowsATimerCannotTakeEndTheirPassWithAMessage) {
    add("1", "1");
    add("2", "1", "1:6:0");
    add("3", "1", "0:-1:0");
    w.type(C::txtTrackNum, "2");
    w.frm.cmdStart_Click();
    EXPECT_EQ(w.clickedXs(), (std::vector<int>{1, 1}));
    EXPECT_EQ(w.messages(), (std::vector<std::string>{"Maximum interval is 1 minute", "Maximum interval is 1 minute"}));
    w.model().setEntryCells(2, {"2", "2", "0", "Custom", "0:1:0", "Click", "1", "No", "", "No"});
    w.dialogs.messages.clear();
    w.frm.cmdStart_Click();
    EXPECT_EQ(w.messages(), (std::vector<std::string>{"Error in input", "Error in input"}));
}

TEST_F(TrackRun, RowsCarryTheirClickKindAndTypeTheirOwnTextOnlyWhenFillIsYes) {
    add("1", "1", "0:1:0", "DBClick");
    add("2", "1", "0:1:0", "dbclick");  // an unknown type keeps the kind of the row before
    add("3", "1", "0:1:0", "Click", "Yes");
    add("4", "1", "0:1:0", "Click", "yes");
    w.frm.setCheck(C::chkText, 1);
    w.type(C::txtText, "zzz");
    w.frm.cmdStart_Click();
    std::vector<std::uint32_t> codes;
    for (const auto& m : w.desktop.posted) codes.push_back(m.code == kChar ? m.wParam : m.code);
    EXPECT_EQ(codes, (std::vector<std::uint32_t>{kDown, kUp, kDbl, kUp, kDown, kUp, kDbl, kUp, kDown, kUp, kKeyDown,
                                                 'a', kKeyUp, kKeyDown, 'b', kKeyUp, kDown, kUp}));
}

TEST_F(TrackRun, StepsAreGatedByTheirOwnRectangleAgainstTheWindowsPicture) {
    add("1", "1");
    add("2", "1");
    w.model().rows.bRowImage[2] = true;
    w.model().rows.lRowRect[2] = {50, 60, 52, 61};
    w.setPicture(0, 0, 2, 1, 50'060);  // the screen's pixels of the row's rectangle
    w.screen.pixelAt = [](int x, int y) { return x * 1000 + y; };
    w.frm.cmdStart_Click();
    EXPECT_EQ(w.clickedXs(), (std::vector<int>{1, 2}));
    ASSERT_EQ(w.screen.reads.size(), 1u) << "only the image step reads the screen";
    const ScreenRect& read = w.screen.reads[0];
    EXPECT_EQ((std::array{read.left, read.top, read.right, read.bottom}), (std::array{50, 60, 52, 61}));
    w.frm.selectOption(C::optImageNotInclude);
    w.desktop.lookedUp.clear();
    w.frm.cmdStart_Click();
    EXPECT_EQ(w.clickedXs(), (std::vector<int>{1}));
}

// Start is handled inside the pauses of a manual step; the track run begun there takes
// tmrCount over, clicks every row, and the interrupted endless run carries on after it.
TEST_F(TrackRun, ARunStartedDuringAManualStepsPausePlaysAndOneStopEndsBoth) {
    add("1", "2");
    add("2", "1");
    w.frm.selectOption(C::optManual);
    w.frm.selectOption(C::optWeb);
    w.typeAll({{C::txtX, "9"}, {C::txtSeconds, "0"}, {C::txtMiliseconds, "1"}});
    w.frm.selectOption(C::optLoop);
    w.frm.cmdStart_Click();
    w.clock.atPumpPass(50, [&] {
        w.frm.selectOption(C::optCount);
        w.frm.selectOption(C::optFromTrack);
        w.frm.cmdStart_Click();
    });
    w.clock.at(5000, [&] { w.frm.cmdStop_Click(); });
    w.clock.advanceTo(10'000);
    const std::vector<int> xs = w.clickedXs();
    ASSERT_GE(xs.size(), 4u);
    EXPECT_EQ(std::vector<int>(xs.begin(), xs.begin() + 4), (std::vector<int>{9, 1, 1, 2}));
    EXPECT_EQ(w.clock.interval(TimerId::tmrLoop), 0);
    EXPECT_FALSE(w.model().trackRunActive);
}

}  // namespace
}  // namespace quorlin::testing
