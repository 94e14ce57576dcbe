#include <gtest/gtest.h>

#include <vector>

#include "test_windows.h"
#include "win32/win32_screen_reader.h"

namespace quorlin::testing {
namespace {

using win32::Win32ScreenReader;

std::vector<Colour> bulkRead(const ScreenRect& r) {
    Win32ScreenReader reader;
    std::vector<Colour> out(static_cast<std::size_t>(r.width()) * r.height(), 0);
    reader.readRect(r, out);
    return out;
}

// The same rectangle read the classic way, one GetPixel per pixel on the desktop's context.
std::vector<Colour> pixelByPixel(const ScreenRect& r) {
    HWND desktop = GetDesktopWindow();
    HDC dc = GetWindowDC(desktop);
    std::vector<Colour> out;
    for (int y = r.top; y <= r.bottom; ++y)
        for (int x = r.left; x <= r.right; ++x) out.push_back(static_cast<Colour>(GetPixel(dc, x, y)));
    ReleaseDC(desktop, dc);
    return out;
}

// GetPixel gives 0x00BBGGRR, and -1 off the screen.
TEST(Win32ScreenReader, GivesWhatGetPixelGivesAlsoOffTheScreen) {
    RecordingWindow corner({0, 0, 8, 8}, nullptr, WS_POPUP, [](int x, int y) { return RGB(x * 30, 255, y * 30); });
    RecordingWindow shades({300, 200, 316, 208}, nullptr, WS_POPUP,
                           [](int x, int y) { return RGB(x * 16, y * 32, 0x80); });
    for (HWND painted : {corner.hwnd(), shades.hwnd()})
        SetWindowPos(painted, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    pumpMessages(300);
    const int right = GetSystemMetrics(SM_CXVIRTUALSCREEN) - 1;
    const int bottom = GetSystemMetrics(SM_CYVIRTUALSCREEN) - 1;
    const ScreenRect cases[] = {
        {-3, -2, 4, 3},                                  // across the top-left corner
        {right - 2, bottom - 1, right + 3, bottom + 2},  // across the bottom-right corner
        {-60, 10, -50, 12},                              // wholly left of the screen
        {2, 2, 6, 5},                                    // wholly on it
        {300, 200, 315, 207},                            // a window of shades
    };
    for (const ScreenRect& r : cases) {
        const std::vector<Colour> bulk = bulkRead(r);
        EXPECT_EQ(bulk, pixelByPixel(r)) << r.left << "," << r.top << " - " << r.right << "," << r.bottom;
    }
    EXPECT_EQ(bulkRead({-3, -2, 4, 3})[0], -1);
    EXPECT_EQ(bulkRead({-3, -2, 4, 3})[2 * 8 + 3], 0x0000FF00);
    EXPECT_EQ(bulkRead({300, 200, 315, 207})[1], 0x00800010);
}

}  // namespace
}  // namespace quorlin::testing
