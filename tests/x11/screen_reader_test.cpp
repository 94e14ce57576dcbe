#include <gtest/gtest.h>

#include <X11/Xutil.h>
#include <X11/extensions/Xrandr.h>

#include <algorithm>

#include "x11/x11_desktop.h"
#include "x11/x11_screen_reader.h"
#include "x11_fixtures.h"

namespace quorlin::testing {
namespace {

constexpr Colour kWhite = 0xFFFFFF;

std::vector<Colour> read(x11::X11ScreenReader& reader, ScreenRect rect) {
    std::vector<Colour> out(static_cast<std::size_t>(rect.width()) * rect.height());
    reader.readRect(rect, out);
    return out;
}

// A one-pixel read of the root, converted the plain way, to hold the bulk read against.
Colour singlePixel(Display* d, int x, int y) {
    XImage* image = XGetImage(d, DefaultRootWindow(d), x, y, 1, 1, AllPlanes, ZPixmap);
    const unsigned long p = XGetPixel(image, 0, 0);
    XDestroyImage(image);
    return static_cast<Colour>(((p >> 16) & 0xFF) | (p & 0xFF00) | ((p & 0xFF) << 16));
}

TEST(ScreenReader, TheBulkReadEqualsOnePixelReadsWithRedInTheLowByteAndOffScreenAsMinusOne) {
    x11::X11Connection connection;
    x11::X11ScreenReader reader{connection};
    RecordingWindow canvas{600, 400, 40, 10};
    Display* d = canvas.display();
    GC gc = XCreateGC(d, canvas.id(), 0, nullptr);
    const unsigned long colours[] = {0xFF0000, 0x00FF00, 0x0000FF, 0x123456};  // 0x00RRGGBB on the server
    for (int i = 0; i < 4; ++i) {
        XSetForeground(d, gc, colours[i]);
        XFillRectangle(d, canvas.id(), gc, i * 10, 0, 10, 10);
    }
    XFreeGC(d, gc);
    XSync(d, False);

    const ScreenRect rect{595, 398, 645, 412};
    auto pixels = read(reader, rect);
    EXPECT_EQ(pixels[2 * rect.width() + 40], 0x563412);  // 0x123456 on the server
    std::size_t i = 0;
    for (int y = rect.top; y <= rect.bottom; ++y)
        for (int x = rect.left; x <= rect.right; ++x) ASSERT_EQ(pixels[i++], singlePixel(d, x, y));

    const unsigned long errors = x11::X11Connection::errorCount();
    EXPECT_EQ(read(reader, {-2, -1, 1, 0}),
              (std::vector<Colour>{-1, -1, -1, -1, -1, -1, singlePixel(d, 0, 0), singlePixel(d, 1, 0)}));
    EXPECT_EQ(x11::X11Connection::errorCount(), errors);
}

// Reshapes the test's own screen the way xrandr does: the one output gets a mode of
// the new size and the screen follows it.
void resizeScreen(Display* d, int width, int height) {
    static int modesMade = 0;
    const Window root = DefaultRootWindow(d);
    XRRScreenResources* resources = XRRGetScreenResources(d, root);
    RROutput output = resources->outputs[0];
    std::string name = "quorlin-" + std::to_string(++modesMade);
    const auto w = static_cast<unsigned>(width), h = static_cast<unsigned>(height);
    XRRModeInfo info{0, w, h, 0, 0, 0, w, 0, 0, 0, h, name.data(), static_cast<unsigned>(name.size()), 0};
    const RRMode mode = XRRCreateMode(d, root, &info);
    XRRAddOutputMode(d, output, mode);
    XWindowAttributes now;
    XGetWindowAttributes(d, root, &now);
    if (width > now.width || height > now.height)
        XRRSetScreenSize(d, root, std::max(width, now.width), std::max(height, now.height), 300, 240);
    XRRSetCrtcConfig(d, resources, resources->crtcs[0], CurrentTime, 0, 0, mode, RR_Rotate_0, &output, 1);
    XRRSetScreenSize(d, root, width, height, 300, 240);
    XRRFreeScreenResources(resources);
    XSync(d, False);
}

struct Monitor {
    const char* name;
    bool primary;
    int x, y, width, height;
};

TEST(ScreenGeometry, ReadsLookUpsAndTheReadoutFollowTheScreenSizeAndStartAtThePrimaryMonitor) {
    PrivateDisplay server;
    Display* d = server.d;
    resizeScreen(d, 1000, 800);  // smaller than the screen will grow to, before the reader starts
    x11::X11Connection connection;
    x11::X11Desktop desktop(connection);
    x11::X11ScreenReader reader(connection);
    RecordingWindow window(900, 700, 300, 200);
    for (const int width : {1280, 1000, 1280}) {
        const bool across = width == 1280;  // only the wide screen shows the window beyond x = 1000
        resizeScreen(d, width, across ? 1024 : 800);
        std::vector<Colour> row(20, kWhite);
        if (!across) std::fill(row.begin() + 10, row.end(), kOffScreen);
        EXPECT_EQ(read(reader, {990, 750, 1009, 750}), row) << width;
        EXPECT_EQ(read(reader, {1100, 790, 1100, 790}), (std::vector<Colour>{across ? kWhite : kOffScreen})) << width;
        EXPECT_EQ(desktop.windowFromPoint({1100, 750}), across ? window.id() : 0u) << width;
    }

    // The pointer stays at (100, 50) on the root while the monitors change around it.
    RecordingWindow target(50, 40, 100, 100);
    const Window root = DefaultRootWindow(d);
    XWarpPointer(d, None, root, 0, 0, 0, 0, 100, 50);
    struct Case {
        std::vector<Monitor> monitors;
        ScreenPoint cursor;
    };
    const Case cases[] = {{{{"left", false, 0, 0, 400, 1024}, {"right", true, 400, 0, 880, 1024}}, {-300, 50}},
                          {{{"right", true, 200, 70, 1080, 954}}, {-100, -20}},
                          {{}, {100, 50}}};
    for (const Case& c : cases) {
        SCOPED_TRACE(::testing::Message() << c.monitors.size() << " monitors");
        for (const char* name : {"left", "right"}) XRRDeleteMonitor(d, root, XInternAtom(d, name, False));
        for (const Monitor& m : c.monitors) {
            XRRMonitorInfo info{XInternAtom(d, m.name, False), m.primary, False, 0, m.x, m.y, m.width, m.height,
                                m.width, m.height, nullptr};
            XRRSetMonitor(d, root, &info);
        }
        XSync(d, False);
        const ScreenPoint at = desktop.cursorPos();
        EXPECT_EQ(at, c.cursor);
        // The point the readout shows is the point that clicks and reads there.
        EXPECT_EQ(desktop.windowFromPoint(at), target.id());
        EXPECT_EQ(desktop.screenToClient(target.id(), at), (ScreenPoint{50, 10}));
        EXPECT_EQ(read(reader, {at.x, at.y, at.x, at.y}), std::vector<Colour>{kWhite});
        const ScreenPoint rootOrigin{at.x - 100, at.y - 50};
        EXPECT_EQ(read(reader, {rootOrigin.x - 1, rootOrigin.y, rootOrigin.x - 1, rootOrigin.y}),
                  std::vector<Colour>{kOffScreen});
        EXPECT_EQ(desktop.windowFromPoint({rootOrigin.x - 1, at.y}), 0u);
    }
}

}  // namespace
}  // namespace quorlin::testing
