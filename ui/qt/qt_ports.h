#pragma once

#include <QObject>
#include <QTimer>
#include <QWidget>
#include <functional>

#include "ports/dialogs.h"
#include "ports/event_pump.h"
#include "ports/timers.h"
#include "text/value_of_text.h"

namespace quorlin::qt {

// How often the mouse-position readout ticks. The window's 1 ms would wake the program
// a thousand times a second; 20 readings a second look just as live.
inline constexpr int kReadoutIntervalMs = 50;

// The window's three timers as precise Qt timers; each tick goes to the handler.
class QtTimers : public Timers {
public:
    using TickHandler = std::function<void(TimerId)>;
    explicit QtTimers(TickHandler onTick);

    void setInterval(TimerId timer, std::int32_t milliseconds) override;
    void startReadout() { setInterval(TimerId::timer, kReadoutIntervalMs); }

private:
    QTimer& timerFor(TimerId id);

    QTimer count_;
    QTimer loop_;
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
