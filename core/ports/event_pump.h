#pragma once

namespace quorlin {

class EventPump {
public:
    virtual ~EventPump() = default;
    // One pass: handles whatever events are pending and returns at once.
    virtual void pumpOnce() = 0;
    // Sleeps until at least one event has arrived, then handles the pending events.
    virtual void waitForEvents() = 0;
};

}  // namespace quorlin
