#pragma once

#include <cstdint>

namespace quorlin::wm {

inline constexpr std::uint32_t WM_KEYDOWN = 0x0100;
inline constexpr std::uint32_t WM_KEYUP = 0x0101;
inline constexpr std::uint32_t WM_CHAR = 0x0102;
inline constexpr std::uint32_t WM_LBUTTONDOWN = 0x0201;
inline constexpr std::uint32_t WM_LBUTTONUP = 0x0202;
inline constexpr std::uint32_t WM_LBUTTONDBLCLK = 0x0203;
inline constexpr std::uint32_t WM_RBUTTONDOWN = 0x0204;
inline constexpr std::uint32_t WM_RBUTTONUP = 0x0205;

inline constexpr std::uint32_t MK_LBUTTON = 0x0001;
inline constexpr std::uint32_t MK_RBUTTON = 0x0002;

// Repeat count 1, scan code 0x10, previous-key-state and transition-state bits set.
inline constexpr std::uint32_t kKeyLParam = 0xC0100001;

// x in the low 16 bits, y in the high 16 bits, each cut to its low 16 bits.
inline constexpr std::uint32_t mouseLParam(std::int32_t x, std::int32_t y) {
    return (static_cast<std::uint32_t>(x) & 0xFFFF) | ((static_cast<std::uint32_t>(y) & 0xFFFF) << 16);
}

// The client coordinates a mouse lParam carries, sign-extended from 16 bits.
inline constexpr std::int32_t lParamX(std::uint32_t lParam) { return static_cast<std::int16_t>(lParam & 0xFFFF); }
inline constexpr std::int32_t lParamY(std::uint32_t lParam) { return static_cast<std::int16_t>(lParam >> 16); }

}  // namespace quorlin::wm
