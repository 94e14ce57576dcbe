#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>
#include <QWidget>
#include <cstdint>
#include <functional>

#include "ports/dialogs.h"
#include "ports/event_pump.h"
#include "ports/timers.h"
#include "text/value_of_text.h"

namespace quorlin::qt {

// How often the mouse-position readout ticks. The window's 1 ms would wake the program
// a thousand times a second; 20 readings a second look just as live.
inline constexpr int kReadoutIntervalMs = 50;

// A run timer whose ticks keep to the deadlines start + k x interval: a late tick comes
// at once and the next one still falls on its deadline, so lateness never adds up over a
// run. When several deadlines have passed (a long step, a busy machine), one tick stands
// for them all. The kernel keeps the deadlines (a timerfd), so waking up costs no polling
// and is not rounded to whole milliseconds as Qt's timers are.
class ScheduledTimer {
public:
    explicit ScheduledTimer(std::function<void()> onTick);
    ~ScheduledTimer();
    ScheduledTimer(const ScheduledTimer&) = delete;
    ScheduledTimer& operator=(const ScheduledTimer&) = delete;

    // Restarts the deadlines from now; 0 stops the timer.
    void setInterval(std::int32_t milliseconds);

private:
    void expired();

    int fd_;
    QSocketNotifier notifier_;
    std::function<void()> onTick_;
    std::uint64_t arming_ = 0;
    bool armed_ = false;
};

// The window's three timers: the run timers on an absolute schedule, the readout on a
// plain Qt timer. Each tick goes to the handler.
class QtTimers : public Timers {
public:
    using TickHandler = std::function<void(TimerId)>;
    explicit QtTimers(TickHandler onTick);

    void setInterval(TimerId timer, std::int32_t milliseconds) override;
    void startReadout() { setInterval(TimerId::timer, kReadoutIntervalMs); }

private:
    ScheduledTimer count_;
    ScheduledTimer loop_;
    QTimer readout_;
};

class QtEventPump : public EventPump {
public:
    void pumpOnce() override;
    void waitForEvents() override;
};

class QtDialogs : public Dialogs {
public:
    void setParent(QWidget* parent) { parent_ = parent; }

    void messageBox(const std::string& text) override;
    std::optional<std::string> openFile(const FileDialogSettings& settings) override;
    std::optional<std::string> saveFile(const FileDialogSettings& settings) override;

private:
    QWidget* parent_ = nullptr;
};

// The decimal separator of the user's locale.
NumberLocale systemNumberLocale();

}  // namespace quorlin::qt
