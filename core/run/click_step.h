#pragma once

#include <cstdint>

#include "picture/image_condition.h"
#include "ports/desktop.h"
#include "ports/event_pump.h"
#include "model/window_model.h"

namespace quorlin {

// Pump passes between the posted groups of messages, so the target can handle each group.
inline constexpr int kLongPause = 100'000;
inline constexpr int kKeyPause = 10'000;

// One click step: finds the window under X, Y and posts it a click, a double click or
// a right click, optionally followed by typed text. Never moves the cursor or the focus.
class ClickStep {
public:
    ClickStep(WindowModel& model, Desktop& desktop, EventPump& pump, ImageCondition& image)
        : m_(model), desktop_(desktop), pump_(pump), image_(image) {}

    void SendClick(const StepCondition& condition);

private:
    void click(WindowHandle target, std::uint32_t lParam);
    void doubleClick(WindowHandle target, std::uint32_t lParam);
    void rightClick(WindowHandle target, ScreenPoint client, std::uint32_t lParam);
    void typeText(WindowHandle target);
    void pause(int passes);

    WindowModel& m_;
    Desktop& desktop_;
    EventPump& pump_;
    ImageCondition& image_;
};

}  // namespace quorlin
