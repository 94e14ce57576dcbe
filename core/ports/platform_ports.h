#pragma once

#include "ports/desktop.h"
#include "ports/dialogs.h"
#include "ports/durable_files.h"
#include "ports/event_pump.h"
#include "ports/random_source.h"
#include "ports/screen_reader.h"
#include "ports/timers.h"

namespace quorlin {

// Everything the window reaches outside itself.
struct Ports {
    Desktop& desktop;
    ScreenReader& screen;
    Timers& timers;
    EventPump& pump;
    Dialogs& dialogs;
    RandomSource& random;
    // Without it a save still replaces the file whole, but does not wait for the disk.
    DurableFiles* files = nullptr;
};

}  // namespace quorlin
