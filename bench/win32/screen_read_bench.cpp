// Reads a 1001 x 1001 screen rectangle in one bulk transfer and pixel by pixel with
// GetPixel, side by side, and prints both times and their ratio.
#include <windows.h>

#include <chrono>
#include <cstdio>
#include <vector>

#include "win32/win32_screen_reader.h"

namespace {

using Clock = std::chrono::steady_clock;
constexpr quorlin::ScreenRect kRect{0, 0, 1000, 1000};

double seconds(Clock::duration d) { return std::chrono::duration<double>(d).count(); }

double bulk(std::vector<quorlin::Colour>& out) {
    quorlin::win32::Win32ScreenReader reader;
    const auto start = Clock::now();
    reader.readRect(kRect, out);
    return seconds(Clock::now() - start);
}

double perPixel(std::vector<quorlin::Colour>& out) {
    HWND desktop = GetDesktopWindow();
    HDC dc = GetWindowDC(desktop);
    const auto start = Clock::now();
    std::size_t i = 0;
    for (int y = kRect.top; y <= kRect.bottom; ++y)
        for (int x = kRect.left; x <= kRect.right; ++x) out[i++] = static_cast<quorlin::Colour>(GetPixel(dc, x, y));
    const double elapsed = seconds(Clock::now() - start);
    ReleaseDC(desktop, dc);
    return elapsed;
}

}  // namespace

int main() {
    std::vector<quorlin::Colour> a(1001 * 1001), b(1001 * 1001);
    const double bulkTime = bulk(a);
    const double pixelTime = perPixel(b);
    std::printf("1001 x 1001: bulk %.4f s, GetPixel per pixel %.2f s, ratio %.0f, same pixels: %s\n", bulkTime,
                pixelTime, pixelTime / bulkTime, a == b ? "yes" : "no");
    return 0;
}
