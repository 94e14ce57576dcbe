#include <gtest/gtest.h>

#include <algorithm>

#include "run/window_messages.h"
#include "x11/x11_desktop.h"
#include "x11_fixtures.h"

namespace quorlin::testing {
namespace {

using std::chrono::milliseconds;

bool becomesAbove(Display* d, Window w, bool above) {
    const Atom aboveState = XInternAtom(d, "_NET_WM_STATE_ABOVE", False);
    return eventually([&] {
        XSync(d, False);
        const auto state = windowProperty(d, w, "_NET_WM_STATE");
        return (std::find(state.begin(), state.end(), aboveState) != state.end()) == above;
    }, milliseconds(3000));
}

// Hands the recording window to the window manager, which frames it with a title bar;
// returns the frame's left, right, top and bottom widths. A manager still starting up
// can miss a mapping, so the window is mapped again until it is framed.
std::vector<unsigned long> frameAround(RecordingWindow& w) {
    Display* d = w.display();
    XStoreName(d, w.id(), "target");
    XSetWindowAttributes managed{};
    XChangeWindowAttributes(d, w.id(), CWOverrideRedirect, &managed);
    std::vector<unsigned long> frame;
    // The extents are set before the frame is mapped: wait for the frame to show too.
    const auto framed = [&] {
        frame = windowProperty(d, w.id(), "_NET_FRAME_EXTENTS");
        XWindowAttributes parent{};
        Window root = None, up = None, *children = nullptr;
        unsigned int count = 0;
        if (!XQueryTree(d, w.id(), &root, &up, &children, &count)) return false;
        if (children) XFree(children);
        return frame.size() == 4 && frame[2] > 0 && up != root && XGetWindowAttributes(d, up, &parent) &&
               parent.map_state == IsViewable;
    };
    for (int attempt = 0; attempt < 10; ++attempt) {
        XUnmapWindow(d, w.id());
        XMapWindow(d, w.id());
        XSync(d, False);
        if (eventually(framed, milliseconds(300))) return frame;
    }
    return {};
}

// On a display of the test's own under openbox; the desktop's private input devices are
// there before the manager starts, as when the program runs already.
TEST(WindowManager, KeepsTheWindowAboveOrLetsItGoAndFramesStandForTheClientTheyDecorate) {
    PrivateDisplay server;
    x11::X11Connection connection;
    x11::X11Desktop desktop{connection};
    ASSERT_TRUE(server.startWindowManager()) << "openbox did not start";
    Display* d = connection.display();  // the property and the mapping in one stream of requests
    Window window = XCreateSimpleWindow(d, DefaultRootWindow(d), 10, 10, 100, 100, 0, 0, 0);
    desktop.setTopMost(window, true);  // before it is mapped, as when the window loads
    XMapWindow(d, window);
    EXPECT_TRUE(becomesAbove(d, window, true));
    for (const bool above : {false, true}) {
        desktop.setTopMost(window, above);
        EXPECT_TRUE(becomesAbove(d, window, above)) << above;
    }
    XDestroyWindow(d, window);

    // Points on the title bar and the border count as the client's, in its coordinates.
    RecordingWindow client(300, 200, 200, 150);
    const std::vector<unsigned long> frame = frameAround(client);
    ASSERT_EQ(frame.size(), 4u) << "openbox did not frame the window";
    const int title = -static_cast<int>(frame[2]) / 2;
    int x = 0, y = 0;
    Window child = None;
    XTranslateCoordinates(d, client.id(), DefaultRootWindow(d), 0, 0, &x, &y, &child);
    for (const ScreenPoint inClient : {ScreenPoint{100, title}, ScreenPoint{-static_cast<int>(frame[0]), 50}}) {
        const ScreenPoint at{x + inClient.x, y + inClient.y};
        EXPECT_EQ(desktop.windowFromPoint(at), client.id()) << inClient.x << "," << inClient.y;
        EXPECT_EQ(desktop.screenToClient(client.id(), at), inClient);
    }

    // Above the client area a right click is only a release; it goes to the client: the
    // window manager never sees it, so no menu of its own opens and grabs the pointer.
    desktop.postMessage(client.id(), wm::WM_RBUTTONUP, 0, wm::mouseLParam(100, title));
    EXPECT_EQ(client.buttons(2, 300), (Buttons{{ButtonRelease, 3, 100, title}}));
    EXPECT_EQ(XGrabPointer(d, DefaultRootWindow(d), False, 0, GrabModeAsync, GrabModeAsync, None, None, CurrentTime),
              GrabSuccess);
    XUngrabPointer(d, CurrentTime);
}

}  // namespace
}  // namespace quorlin::testing
