#include <gtest/gtest.h>

#include "run/seeded_random.h"
#include "support/test_window.h"
#include "window/messages.h"

namespace quorlin::testing {
namespace {

// A manual run in "Application" mode against the in-memory desktop on the virtual clock.
class ManualRun : public ::testing::Test {
protected:
    TestWindow w;

    void SetUp() override {
        w.type(Ctl::txtX, "10");
        w.type(Ctl::txtY, "20");
        w.frm.selectOption(Ctl::optApplication);
    }
    void custom(const char* minutes, const char* seconds, const char* ms) {
        w.type(Ctl::txtMinutes, minutes);
        w.type(Ctl::txtSeconds, seconds);
        w.type(Ctl::txtMiliseconds, ms);
    }
    // Virtual times at which the clicks were made.
    std::vector<long> times;
    std::vector<long>& clickTimes() {
        w.clock.onTick = [this](TimerId id) {
            std::size_t before = w.clicks();
            if (id == TimerId::tmrCount) w.frm.tmrCount_Timer();
            if (id == TimerId::tmrLoop) w.frm.tmrLoop_Timer();
            if (w.clicks() > before) times.push_back(w.clock.now);
        };
        return times;
    }
};

struct IntervalCase {
    const char* minutes;
    const char* seconds;
    const char* ms;
    std::int32_t timer;  // -1: refused with the interval message
};

class CustomInterval : public ManualRun, public ::testing::WithParamInterface<IntervalCase> {};

TEST_P(CustomInterval, IsArmedOrRefusedAtTheLimitOf65535) {
    const auto& c = GetParam();
    custom(c.minutes, c.seconds, c.ms);
    w.frm.cmdStart_Click();
    if (c.timer < 0) {
        EXPECT_EQ(w.dialogs.messages, std::vector<std::string>{msg::kMaxMinute});
        EXPECT_TRUE(w.model().run.bStop);
        EXPECT_TRUE(w.model().run.bCountDone);
        EXPECT_TRUE(w.clock.intervals.empty());
    } else {
        EXPECT_TRUE(w.dialogs.messages.empty());
        EXPECT_EQ(w.clock.interval(TimerId::tmrCount), c.timer);
    }
}

INSTANTIATE_TEST_SUITE_P(Limits, CustomInterval, ::testing::Values(
    IntervalCase{"1", "0", "0", 60000}, IntervalCase{"1", "5", "535", 65535},
    IntervalCase{"1", "5", "536", -1}, IntervalCase{"1", "6", "0", -1},
    IntervalCase{"0", "1.5", "0", 1500}, IntervalCase{"0", "0", "2.5", 2},
    IntervalCase{"0", "0", "3.5", 4}, IntervalCase{"0", "0", "0", 0},
    IntervalCase{"0", "-1", "0", 0}));

TEST_F(ManualRun, CountedRunClicksOneIntervalApartThenStops) {
    custom("0", "1", "0");
    w.type(Ctl::txtCount, "3");
    auto& times = clickTimes();
    w.frm.cmdStart_Click();
    w.clock.advanceBy(10'000);
    EXPECT_EQ(times, (std::vector<long>{1000, 2000, 3000}));
    EXPECT_TRUE(w.model().run.bCountDone);
    EXPECT_EQ(w.clock.interval(TimerId::tmrCount), 0);
}

TEST_F(ManualRun, CountOfZeroEndsAtTheFirstTickWithoutAClick) {
    custom("0", "1", "0");
    w.type(Ctl::txtCount, "0");
    w.frm.cmdStart_Click();
    w.clock.advanceBy(999);
    EXPECT_FALSE(w.model().run.bCountDone);
    w.clock.advanceBy(1);
    EXPECT_EQ(w.clicks(), 0u);
    EXPECT_TRUE(w.model().run.bCountDone);
    EXPECT_EQ(w.clock.interval(TimerId::tmrCount), 0);
}

TEST_F(ManualRun, CountsRoundHalvesToEvenAndMayExceedSixteenBits) {
    custom("0", "0", "1");
    w.type(Ctl::txtCount, "2.5");
    w.frm.cmdStart_Click();
    EXPECT_EQ(w.model().run.iClickTarget, 2);
    w.type(Ctl::txtCount, "40000");
    w.frm.cmdStart_Click();
    EXPECT_EQ(w.model().run.iClickTarget, 40000);
    w.type(Ctl::txtCount, "3e10");
    w.frm.cmdStart_Click();
    EXPECT_EQ(w.dialogs.messages, std::vector<std::string>{msg::kErrorInInput});
}

TEST_F(ManualRun, StopDuringAStepLetsTheStepFinishButNoFurtherTick) {
    custom("0", "1", "0");
    w.type(Ctl::txtCount, "5");
    w.frm.cmdStart_Click();
    w.clock.atPumpPass(10, [&] { w.frm.cmdStop_Click(); });
    w.clock.advanceBy(60'000);
    EXPECT_EQ(w.clicks(), 1u);
    EXPECT_EQ(w.desktop.posted.size(), 2u);
    EXPECT_TRUE(w.model().run.bStop);
    EXPECT_EQ(w.clock.interval(TimerId::tmrCount), 0);
}

TEST_F(ManualRun, EndlessRunClicksUntilStop) {
    custom("0", "2", "0");
    w.frm.selectOption(Ctl::optLoop);
    auto& times = clickTimes();
    w.frm.cmdStart_Click();
    w.clock.advanceBy(7000);
    w.frm.cmdStop_Click();
    w.clock.advanceBy(10'000);
    EXPECT_EQ(times, (std::vector<long>{2000, 4000, 6000}));
}

TEST_F(ManualRun, SecondStartRestartsTheEndlessCountdown) {
    custom("0", "2", "0");
    w.frm.selectOption(Ctl::optLoop);
    auto& times = clickTimes();
    w.frm.cmdStart_Click();
    w.clock.advanceBy(1500);
    w.frm.cmdStart_Click();
    w.clock.advanceBy(4000);
    EXPECT_EQ(times, (std::vector<long>{3500, 5500}));
}

TEST_F(ManualRun, CountedAndEndlessRunsTickSideBySideUntilStop) {
    custom("0", "2", "0");
    w.frm.selectOption(Ctl::optLoop);
    w.frm.cmdStart_Click();
    w.frm.selectOption(Ctl::optCount);
    w.type(Ctl::txtCount, "2");
    w.type(Ctl::txtSeconds, "3");
    w.frm.cmdStart_Click();
    w.clock.advanceBy(6000);  // loop at 2, 4, 6 s; count at 3, 6 s
    EXPECT_EQ(w.clicks(), 5u);
    w.frm.cmdStop_Click();
    w.clock.advanceBy(6000);
    EXPECT_EQ(w.clicks(), 5u);
}

TEST_F(ManualRun, IntervalErrorSilencesAnArmedEndlessRunUntilTheNextStart) {
    custom("0", "1", "0");
    w.frm.selectOption(Ctl::optLoop);
    w.frm.cmdStart_Click();
    w.clock.advanceBy(1000);
    EXPECT_EQ(w.clicks(), 1u);
    w.type(Ctl::txtMinutes, "1");
    w.type(Ctl::txtSeconds, "6");
    w.frm.cmdStart_Click();
    EXPECT_EQ(w.dialogs.messages, std::vector<std::string>{msg::kMaxMinute});
    w.clock.advanceBy(3000);
    EXPECT_EQ(w.clicks(), 1u);
}

TEST_F(ManualRun, RandomIntervalIsFloorOfToTimesUPlusFromInMilliseconds) {
    w.frm.selectOption(Ctl::optRandom);
    w.type(Ctl::txtFromSec, "2");
    w.type(Ctl::txtToSec, "5");
    w.type(Ctl::txtCount, "3");
    for (double u : {0.0, 0.999999}) w.random.values.push(u);
    w.frm.cmdStart_Click();
    EXPECT_EQ(w.clock.interval(TimerId::tmrCount), 2);
    w.clock.advanceBy(6);
    EXPECT_EQ(w.clicks(), 3u) << "a counted run keeps the interval drawn at Start";
    w.frm.cmdStart_Click();
    EXPECT_EQ(w.clock.interval(TimerId::tmrCount), 6);
}

TEST_F(ManualRun, RandomEndlessRunDrawsANewIntervalAfterEveryClick) {
    w.frm.selectOption(Ctl::optRandom);
    w.frm.selectOption(Ctl::optLoop);
    w.type(Ctl::txtFromSec, "100");
    w.type(Ctl::txtToSec, "1000");
    for (double u : {0.5, 0.1, 0.2}) w.random.values.push(u);
    auto& times = clickTimes();
    w.frm.cmdStart_Click();
    w.clock.advanceBy(1000);
    EXPECT_EQ(times, (std::vector<long>{600, 800}));
    EXPECT_EQ(w.clock.interval(TimerId::tmrLoop), 300);
}

TEST_F(ManualRun, RandomRedrawBeyondTheTimerLimitUsesTheLongestInterval) {
    w.frm.selectOption(Ctl::optRandom);
    w.frm.selectOption(Ctl::optLoop);
    w.type(Ctl::txtFromSec, "10");
    w.type(Ctl::txtToSec, "100000");
    for (double u : {0.0, 0.9}) w.random.values.push(u);
    w.frm.cmdStart_Click();
    w.clock.advanceBy(10);
    EXPECT_EQ(w.clock.interval(TimerId::tmrLoop), 65535);
}

TEST_F(ManualRun, BadFieldsStartNothing) {
    w.type(Ctl::txtX, "");
    w.frm.cmdStart_Click();
    EXPECT_EQ(w.dialogs.messages, std::vector<std::string>{msg::kErrorInInput});
    EXPECT_TRUE(w.clock.intervals.empty());
}

TEST(SeededRandom, GivesTheSameSequenceInTheUnitIntervalAtEveryStart) {
    SeededRandom first, second;
    for (int i = 0; i < 10'000; ++i) {
        double u = first.next();
        ASSERT_EQ(u, second.next());
        ASSERT_GE(u, 0.0);
        ASSERT_LT(u, 1.0);
    }
}

TEST(SeededRandom, RandomRunIntervalsRepeatAcrossProgramStarts) {
    auto intervals = [] {
        FakeDesktop desktop;
        FakeScreen screen;
        VirtualClock clock;
        FakeDialogs dialogs;
        SeededRandom random;
        FrmMain frm{Ports{desktop, screen, clock, clock, dialogs, random}};
        clock.onTick = [&](TimerId id) {
            if (id == TimerId::tmrLoop) frm.tmrLoop_Timer();
        };
        frm.Form_Load(1);
        frm.setText(Ctl::txtX, "1");
        frm.setText(Ctl::txtY, "1");
        frm.selectOption(Ctl::optApplication);
        frm.selectOption(Ctl::optRandom);
        frm.selectOption(Ctl::optLoop);
        frm.setText(Ctl::txtFromSec, "1");
        frm.setText(Ctl::txtToSec, "50");
        frm.cmdStart_Click();
        clock.advanceBy(500);
        return clock.intervals;
    };
    auto first = intervals();
    EXPECT_GT(first.size(), 10u);
    EXPECT_EQ(first, intervals());
}

}  // namespace
}  // namespace quorlin::testing
