#pragma once

#include <chrono>
#include <optional>

namespace quorlin::x11 {

// Keeps the presses of separate clicks far enough apart in time that no toolkit
// counts them as one double click (GTK, Qt and Firefox wait 400 ms at most by
// default, Tk and Chromium 500 ms), while the second press of a double click follows
// at once. A press that must wait never waits behind one that is still waiting, so a
// fast run is delayed by one spacing at most.
class ClickSpacing {
public:
    static constexpr std::chrono::milliseconds kApart{600};

    // How long the press should wait before it lands.
    std::chrono::milliseconds waitBefore(bool ofItsOwn);

private:
    std::optional<std::chrono::steady_clock::time_point> last_;
};

}  // namespace quorlin::x11
