#include <gtest/gtest.h>

#include <X11/Xutil.h>

#include <vector>

#include "recording_window.h"
#include "x11/x11_screen_reader.h"

namespace quorlin::testing {
namespace {

// A one-pixel read of the root, converted the plain way, to hold the bulk read against.
Colour singlePixel(Display* d, int x, int y) {
    XImage* image = XGetImage(d, DefaultRootWindow(d), x, y, 1, 1, AllPlanes, ZPixmap);
    const unsigned long p = XGetPixel(image, 0, 0);
    XDestroyImage(image);
    return static_cast<Colour>(((p >> 16) & 0xFF) | (p & 0xFF00) | ((p & 0xFF) << 16));
}

class ScreenReaderTest : public ::testing::Test {
protected:
    x11::X11Connection connection;
    x11::X11ScreenReader reader{connection};
    RecordingWindow canvas{600, 400, 40, 10};

    void SetUp() override {
        Display* d = canvas.display();
        GC gc = XCreateGC(d, canvas.id(), 0, nullptr);
        const unsigned long colours[] = {0xFF0000, 0x00FF00, 0x0000FF, 0x123456};  // 0x00RRGGBB on the server
        for (int i = 0; i < 4; ++i) {
            XSetForeground(d, gc, colours[i]);
            XFillRectangle(d, canvas.id(), gc, i * 10, 0, 10, 10);
        }
        XFreeGC(d, gc);
        XSync(d, False);
    }
    std::vector<Colour> read(ScreenRect rect) {
        std::vector<Colour> out(static_cast<std::size_t>(rect.width()) * rect.height());
        reader.readRect(rect, out);
        return out;
    }
};

TEST_F(ScreenReaderTest, ColoursComeAsBlueGreenRedWithRedInTheLowByte) {
    auto pixels = read({605, 405, 635, 405});
    EXPECT_EQ(pixels[0], 0x0000FF);    // red
    EXPECT_EQ(pixels[10], 0x00FF00);   // green
    EXPECT_EQ(pixels[20], 0xFF0000);   // blue
    EXPECT_EQ(pixels[30], 0x563412);
}

TEST_F(ScreenReaderTest, PixelsOffTheScreenReadAsMinusOneWithoutAnError) {
    const unsigned long errors = x11::X11Connection::errorCount();
    auto pixels = read({-2, -1, 1, 0});
    EXPECT_EQ(pixels, (std::vector<Colour>{-1, -1, -1, -1, -1, -1, singlePixel(connection.display(), 0, 0),
                                           singlePixel(connection.display(), 1, 0)}));
    auto beyond = read({1279, 1023, 1281, 1023});
    EXPECT_EQ(beyond[1], kOffScreen);
    EXPECT_EQ(beyond[2], kOffScreen);
    EXPECT_EQ(x11::X11Connection::errorCount(), errors);
}

TEST_F(ScreenReaderTest, TheBulkReadEqualsOnePixelReads) {
    const ScreenRect rect{595, 398, 645, 412};
    auto pixels = read(rect);
    std::size_t i = 0;
    for (int y = rect.top; y <= rect.bottom; ++y)
        for (int x = rect.left; x <= rect.right; ++x) ASSERT_EQ(pixels[i++], singlePixel(connection.display(), x, y));
}

}  // namespace
}  // namespace quorlin::testing
