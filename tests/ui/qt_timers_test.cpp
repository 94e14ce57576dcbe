#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <chrono>
#include <thread>
#include <vector>

#include "qt_ports.h"

namespace quorlin::testing {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

// The armed timer's ticks, in ms after arming, for up to a second. The loop sleeps between
// events as the program's does: one that polls would be preempted on a busy machine.
struct TickLog {
    std::vector<double> at;
    TimerId armed = TimerId::tmrCount;
    std::function<void(std::size_t)> onTick = [](std::size_t) {};
    Clock::time_point start;
    std::size_t wanted = 0;
    QEventLoop loop;
    qt::QtTimers timers{[this](TimerId id) {
        EXPECT_EQ(id, armed);
        at.push_back(std::chrono::duration<double, std::milli>(Clock::now() - start).count());
        onTick(at.size());
        if (at.size() == wanted) loop.quit();
    }};

    void run(std::int32_t intervalMs, std::size_t count) {
        wanted = count;
        QTimer::singleShot(1000, &loop, &QEventLoop::quit);
        start = Clock::now();
        timers.setInterval(armed, intervalMs);
        loop.exec();
        timers.setInterval(armed, 0);
    }
};

// Late ticks would add up to a run 15 % slower. A busy machine makes a tick miss its
// deadline now and then, so the best of up to eight runs counts.
TEST(QtTimers, TwoHundredTicksAtOneMillisecondTakeTwoHundredMilliseconds) {
    double best = 1e9;
    for (int attempt = 0; attempt < 8 && best > 202; ++attempt) {
        TickLog log;
        log.run(1, 200);
        ASSERT_EQ(log.at.size(), 200u);
        best = std::min(best, log.at.back());
    }
    EXPECT_TRUE(best >= 199.9 && best <= 215.0) << best << " ms";
}

bool keepsTo(const std::vector<double>& ticks, const std::vector<double>& due) {
    for (std::size_t i = 0; i < due.size(); ++i)
        if (ticks.size() <= i + 1 || ticks[i + 1] < due[i] - 0.1 || ticks[i + 1] > due[i] + 6) return false;
    return true;
}

// Ticks at 20 ms; the first one's handler returns late. The tick missed meanwhile comes
// at once, and the ticks after it keep to the deadlines they had from the start (one
// try in three may be late on a busy machine).
TEST(QtTimers, ALateTickComesAtOnceAndTheNextKeepToTheirDeadlines) {
    const struct {
        int blockMs;             // how long the first tick's handler keeps the thread
        std::vector<double> at;  // when the next ticks are due, in ms after arming
    } cases[] = {{30, {50, 60, 80}}, {72, {92, 100, 120}}};  // past one deadline, past three
    for (const auto& c : cases) {
        std::vector<double> ticks;
        for (int attempt = 0; attempt < 3 && (attempt == 0 || !keepsTo(ticks, c.at)); ++attempt) {
            TickLog log;
            log.onTick = [&](std::size_t n) {
                if (n == 1) std::this_thread::sleep_for(milliseconds(c.blockMs));
            };
            log.run(20, 4);
            ticks = log.at;
        }
        EXPECT_TRUE(keepsTo(ticks, c.at)) << c.blockMs << " ms late: ticks at " << ::testing::PrintToString(ticks);
    }
}

// A step pumps events: a tick of the same arming never starts inside it, one of a
// timer armed anew there does. Each timer ticks as itself.
TEST(QtTimers, ATickStartsInsideAnotherOnlyWhenItsTimerWasArmedAnew) {
    const std::pair<TimerId, bool> cases[] = {
        {TimerId::tmrCount, false}, {TimerId::tmrLoop, true}, {TimerId::timer, false}};
    for (auto [id, armAnew] : cases) {
        SCOPED_TRACE(::testing::Message() << "timer " << static_cast<int>(id) << (armAnew ? " armed anew" : ""));
        TickLog log;
        log.armed = id;
        int depth = 0, deepest = 0;
        log.onTick = [&](std::size_t n) {
            deepest = std::max(deepest, ++depth);
            if (n == 1) {
                if (armAnew) log.timers.setInterval(id, 2);
                const auto until = Clock::now() + milliseconds(30);
                while (Clock::now() < until) QCoreApplication::processEvents();
            }
            --depth;
        };
        log.run(2, 3);
        EXPECT_GE(log.at.size(), 3u);
        EXPECT_EQ(deepest, armAnew ? 2 : 1);
    }
}

}  // namespace
}  // namespace quorlin::testing
