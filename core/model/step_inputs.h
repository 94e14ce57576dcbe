#pragma once

#include <string>

namespace quorlin {

inline constexpr const char* kClick = "Click";
inline constexpr const char* kDBClick = "DBClick";
inline constexpr const char* kRightClick = "RightClick";

// What the click step reads besides the point and the target mode.
struct StepInputs {
    std::string ClickKind = kClick;
    bool bTypeText = false;
    std::string sTypeText;
};

}  // namespace quorlin
