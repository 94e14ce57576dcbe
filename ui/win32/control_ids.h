#pragma once

#include <optional>

#include "form/controls.h"

namespace quorlin::win32 {

// Each control's child-window id is fixed by its place among the window's controls,
// so that the window and anything that drives it from outside agree.
inline constexpr int kFirstControlId = 1000;
inline constexpr int controlId(Ctl c) { return kFirstControlId + static_cast<int>(indexOf(c)); }

inline constexpr std::optional<Ctl> controlOfId(int id) {
    if (id < kFirstControlId || id >= kFirstControlId + static_cast<int>(kControlCount)) return std::nullopt;
    return static_cast<Ctl>(id - kFirstControlId);
}

inline constexpr int kMenuGoToWebsite = 900;
inline constexpr int kMenuFeedback = 901;

}  // namespace quorlin::win32
