#pragma once

#include <span>

#include "form/controls.h"

namespace quorlin {

// Positions in twips (1/1440 inch) inside the parent's inner top-left corner.
struct TwipsRect {
    int left;
    int top;
    int width;
    int height;
};

inline constexpr int kTwipsPerPixel = 15;

enum class FontRole : std::uint8_t {
    Default,        // "MS Sans Serif" 8.25 pt
    BoldTahoma,     // "Tahoma" 8.25 pt bold
    BoldSansSerif,  // "MS Sans Serif" 8.25 pt bold
};

enum class ColourRole : std::uint8_t {
    Platform,
    YellowOnRed,       // text (255, 255, 192) on (255, 0, 0)
    YellowBackground,  // background (255, 255, 192)
    WindowBackground,  // picture boxes: window background and text colours
};

struct ControlLayout {
    Ctl id;
    const char* name;
    ControlKind kind;
    Ctl parent;  // Ctl::frmMain: the window itself
    const char* caption;
    TwipsRect rect;
    FontRole font = FontRole::Default;
    ColourRole colours = ColourRole::Platform;
};

inline constexpr const char* kWindowTitle = "Quorlin";
inline constexpr int kClientWidthTwips = 6825;
inline constexpr int kClientHeightTwips = 9345;

// Every control in the order of the window's areas, from top to bottom.
std::span<const ControlLayout> windowLayout();

}  // namespace quorlin
