#pragma once

#include <cstdint>

#include "ports/screen_reader.h"

struct HBITMAP__;
struct HDC__;

namespace quorlin::win32 {

// Reads screen pixels as 0x00BBGGRR, one BitBlt per rectangle into a DIB section that
// is kept for the next reads.
class Win32ScreenReader : public ScreenReader {
public:
    Win32ScreenReader() = default;
    ~Win32ScreenReader() override;
    Win32ScreenReader(const Win32ScreenReader&) = delete;
    Win32ScreenReader& operator=(const Win32ScreenReader&) = delete;

    void readRect(const ScreenRect& rect, std::span<Colour> out) override;

private:
    bool reserve(int width, int height);
    void release();

    HDC__* memory_ = nullptr;
    HBITMAP__* bitmap_ = nullptr;
    HBITMAP__* original_ = nullptr;
    const std::uint32_t* bits_ = nullptr;
    int width_ = 0;
    int height_ = 0;
};

}  // namespace quorlin::win32
