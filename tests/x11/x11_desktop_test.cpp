#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <X11/extensions/XInput2.h>
#include <X11/extensions/Xrandr.h>
#include <sys/wait.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "x11/x11_private_master.h"
#include "x11/x11_screen_reader.h"
#include "x11_fixtures.h"

namespace quorlin::testing {
namespace {

using namespace wm;
using namespace ::testing;
using x11::X11Connection;

std::vector<Colour> read(x11::X11ScreenReader& reader, ScreenRect rect) {
    std::vector<Colour> out(static_cast<std::size_t>(rect.width() * rect.height()));
    reader.readRect(rect, out);
    return out;
}

struct X11DesktopTest : Test {
    X11Connection connection;
    x11::X11Desktop desktop{connection};
    x11::X11ScreenReader reader{connection};
};

TEST_F(X11DesktopTest, AfterAVanishedTargetPostsArriveOnceAtTheInnermostWindowWithCoordinatesThatNeverWrap) {
    const WindowHandle stale = RecordingWindow(10, 10, 20, 20).id();
    desktop.postMessage(stale, WM_LBUTTONDOWN, MK_LBUTTON, 0);
    desktop.postMessage(stale, WM_CHAR, 'a', kKeyLParam);
    (void)desktop.screenToClient(stale, {1, 1});
    XSync(connection.display(), False);
    EXPECT_GT(X11Connection::errorCount(), 0u);
    RecordingWindow outer(200, 150, 200, 200);
    RecordingWindow target(20, 10, 120, 80, outer.id());
    const ScreenPoint noWindow[] = {{1270, 1010}, {210 + 65536, 155}, {210 - 65536, 155}, {210, 155 + 65536}, {-1, 155},
                                    {1280, 155}, {210, 1024}, {2147483647, -2147483647 - 1}};
    for (ScreenPoint p : noWindow) EXPECT_EQ(desktop.windowFromPoint(p), 0u) << p.x << "," << p.y;
    const WindowHandle w = target.id();
    EXPECT_EQ(desktop.screenToClient(w, {66386, 200}), (ScreenPoint{66166, 40}));
    EXPECT_EQ(desktop.screenToClient(w, {-2147483647 - 1, 2147483647}), (ScreenPoint{-2147483647 - 1, 2147483487}));
    // A window that takes no input leaves buttons and keys to the nearest ancestor that does, as with a real click.
    const Window pane = XCreateSimpleWindow(target.display(), target.id(), 60, 40, 20, 20, 0, 0, 0);
    XMapWindow(target.display(), pane);
    XSync(target.display(), False);

    post(desktop, {250, 180}, Action::DBClick);
    desktop.postMessage(w, WM_RBUTTONDOWN, MK_RBUTTON, mouseLParam(-5, 10));
    desktop.postMessage(w, WM_RBUTTONUP, 0, mouseLParam(-5, 10));
    post(desktop, {210, 155}, Action::Click);  // a visit of its own to another window
    // On the pane, in Windows-1252 codes as the click step sends them.
    post(desktop, {285, 205}, Action::Click, "aZ1 !\xE9\r\nx\ty");
    ASSERT_EQ(target.buttons(28), (Buttons{{ButtonPress, 1, 30, 20}, {ButtonRelease, 1, 30, 20},
                                          {ButtonPress, 1, 30, 20}, {ButtonRelease, 1, 30, 20},
                                          {ButtonPress, 3, -5, 10}, {ButtonRelease, 3, -5, 10},
                                          {ButtonPress, 1, 65, 45}, {ButtonRelease, 1, 65, 45}}));
    const auto& e = target.receive(28);
    EXPECT_EQ(std::tuple(e[0].xbutton.subwindow, e[6].xbutton.subwindow, e[0].xbutton.x_root, e[0].xbutton.y_root,
                         e[4].xbutton.x_root), std::tuple(Window{None}, pane, 250, 180, 215));
    std::string keys;  // each press as the text the window's own lookup reads, each release as a dot
    for (XEvent k : e) {
        char c[8];
        if (k.type == KeyPress) keys.append(c, XLookupString(&k.xkey, c, sizeof c, nullptr, nullptr));
        if (k.type == KeyRelease) keys += '.';
    }
    EXPECT_EQ(keys, "a.Z.1. .!.\xE9.\r.x.\t.y.");
    EXPECT_EQ(e.size(), 28u);
    EXPECT_EQ(outer.buttons(2), (Buttons{{ButtonPress, 1, 10, 5}, {ButtonRelease, 1, 10, 5}}));
}

TEST_F(X11DesktopTest, LinksGoToTheDesktopsOpenCommand) {
    char name[] = "/tmp/quorlin-opener-XXXXXX";
    const std::filesystem::path dir = mkdtemp(name);
    std::ofstream(dir / "xdg-open") << "#!/bin/sh\nprintf '%s' \"$1\" > \"${0%/*}/opened\"\n";
    std::filesystem::permissions(dir / "xdg-open", std::filesystem::perms::owner_all);
    setenv("PATH", (dir.string() + ":" + std::getenv("PATH")).c_str(), 1);
    desktop.openLink("mailto:someone@example.org?Subject=Feedback");
    std::string opened;
    EXPECT_TRUE(eventually([&] { return !std::getline(std::ifstream(dir / "opened"), opened).fail(); },
                           std::chrono::seconds(5)));
    EXPECT_EQ(opened, "mailto:someone@example.org?Subject=Feedback");
    std::filesystem::remove_all(dir);
}

// A one-pixel read of the root, converted the plain way, to hold the bulk read against.
Colour singlePixel(Display* d, int x, int y) {
    XImage* image = XGetImage(d, DefaultRootWindow(d), x, y, 1, 1, AllPlanes, ZPixmap);
    const unsigned long p = XGetPixel(image, 0, 0);
    XDestroyImage(image);
    return static_cast<Colour>(((p >> 16) & 0xFF) | (p & 0xFF00) | ((p & 0xFF) << 16));
}

TEST_F(X11DesktopTest, TheBulkReadEqualsOnePixelReadsWithRedInTheLowByteAndOffScreenAsMinusOne) {
    RecordingWindow canvas{600, 400, 40, 10};
    Display* d = canvas.display();
    const unsigned long colours[] = {0xFF0000, 0x00FF00, 0x0000FF, 0x123456};  // 0x00RRGGBB on the server
    for (int i = 0; i < 4; ++i) XCreateSimpleWindow(d, canvas.id(), i * 10, 0, 10, 10, 0, 0, colours[i]);
    XMapSubwindows(d, canvas.id());
    XSync(d, False);

    const ScreenRect rect{595, 398, 645, 412};
    auto pixels = read(reader, rect);
    EXPECT_EQ(pixels[2 * rect.width() + 40], 0x563412);  // 0x123456 on the server
    std::size_t i = 0;
    for (int y = rect.top; y <= rect.bottom; ++y)
        for (int x = rect.left; x <= rect.right; ++x) ASSERT_EQ(pixels[i++], singlePixel(d, x, y));

    const unsigned long errors = X11Connection::errorCount();
    EXPECT_EQ(read(reader, {-2, -1, 1, 0}),
              (std::vector<Colour>{-1, -1, -1, -1, -1, -1, singlePixel(d, 0, 0), singlePixel(d, 1, 0)}));
    EXPECT_EQ(X11Connection::errorCount(), errors);
}

// Reshapes the test's own screen: with the output switched off, the screen takes any size.
void resizeScreen(Display* d, int width, int height) {
    const Window root = DefaultRootWindow(d);
    XRRScreenResources* resources = XRRGetScreenResources(d, root);
    XRRSetCrtcConfig(d, resources, resources->crtcs[0], CurrentTime, 0, 0, None, RR_Rotate_0, nullptr, 0);
    XRRFreeScreenResources(resources);
    XRRSetScreenSize(d, root, width, height, 300, 240);
    XSync(d, False);
}

TEST(ScreenGeometry, ReadsLookUpsAndTheReadoutFollowTheScreenSizeAndStartAtThePrimaryMonitor) {
    PrivateDisplay server;
    Display* d = server.d;
    resizeScreen(d, 1000, 800);  // smaller than the screen will grow to, before the reader starts
    X11Connection connection;
    x11::X11Desktop desktop(connection);
    x11::X11ScreenReader reader(connection);
    RecordingWindow window(900, 700, 300, 200);
    for (const auto& [width, off] : {std::pair{1280, 0xFFFFFF}, {1000, -1}, {1280, 0xFFFFFF}}) {
        const bool across = width == 1280;  // only the wide screen shows the window beyond x = 1000
        resizeScreen(d, width, across ? 1024 : 800);
        EXPECT_EQ(read(reader, {999, 799, 1000, 800}), (std::vector<Colour>{0xFFFFFF, off, off, off})) << width;
        EXPECT_EQ(desktop.windowFromPoint({1100, 750}), across ? window.id() : 0u) << width;
    }

    // The pointer stays at (100, 50) on the root while the monitors change around it;
    // the point the readout shows is the point that clicks and reads there.
    RecordingWindow target(50, 40, 100, 100);
    const Window root = DefaultRootWindow(d);
    XWarpPointer(d, None, root, 0, 0, 0, 0, 100, 50);
    const Atom left = XInternAtom(d, "left", False), right = XInternAtom(d, "right", False);
    const std::pair<std::vector<XRRMonitorInfo>, ScreenPoint> cases[] = {
        {{{left, False, False, 0, 0, 0, 400, 1024, 0, 0, nullptr},
          {right, True, False, 0, 400, 0, 880, 1024, 0, 0, nullptr}}, {-300, 50}},
        {{{right, True, False, 0, 200, 70, 1080, 954, 0, 0, nullptr}}, {-100, -20}},
        {{}, {100, 50}}};
    for (auto [monitors, cursor] : cases) {
        SCOPED_TRACE(::testing::Message() << monitors.size() << " monitors");
        for (const Atom name : {left, right}) XRRDeleteMonitor(d, root, name);
        for (XRRMonitorInfo& m : monitors) XRRSetMonitor(d, root, &m);
        XSync(d, False);
        EXPECT_EQ(desktop.cursorPos(), cursor);
        EXPECT_EQ(desktop.windowFromPoint(cursor), target.id());
        EXPECT_EQ(desktop.screenToClient(target.id(), cursor), (ScreenPoint{50, 10}));
        EXPECT_EQ(read(reader, {cursor.x, cursor.y, cursor.x, cursor.y}), std::vector<Colour>{0xFFFFFF});
    }
}

// On a display of the test's own under openbox, which starts after the desktop, as when
// the program runs already.
TEST(WindowManager, KeepsTheWindowAboveOrLetsItGoAndFramesStandForTheClientTheyDecorate) {
    PrivateDisplay server;
    X11Connection connection;
    x11::X11Desktop desktop{connection};
    // A window there before the manager starts is framed as the manager starts.
    RecordingWindow client(300, 200, 200, 150, None, true);
    ASSERT_TRUE(server.startWindowManager()) << "openbox did not start";
    Display* d = connection.display();  // the property and the mapping in one stream of requests
    Window window = XCreateSimpleWindow(d, DefaultRootWindow(d), 10, 10, 100, 100, 0, 0, 0);
    const Atom aboveState = XInternAtom(d, "_NET_WM_STATE_ABOVE", False);
    for (const bool above : {true, false, true}) {
        desktop.setTopMost(window, above);  // at first before it is mapped, as when the window loads
        XMapWindow(d, window);
        EXPECT_TRUE(eventually([&] {
            return std::ranges::count(windowProperty(d, window, "_NET_WM_STATE"), aboveState) == above;
        }, std::chrono::seconds(3))) << above;
    }

    // Points on the title bar and the border count as the client's, in its coordinates.
    // The manager lists the client only once it shows in its frame.
    ASSERT_TRUE(eventually([&] {
        return std::ranges::count(windowProperty(d, DefaultRootWindow(d), "_NET_CLIENT_LIST"), client.id()) == 1;
    }, std::chrono::seconds(5))) << "openbox did not frame the window";
    const auto frame = windowProperty(d, client.id(), "_NET_FRAME_EXTENTS");
    ASSERT_EQ(frame.size(), 4u);
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
    desktop.postMessage(client.id(), WM_RBUTTONUP, 0, mouseLParam(100, title));
    EXPECT_EQ(client.buttons(2, 300), (Buttons{{ButtonRelease, 3, 100, title}}));
    EXPECT_EQ(XGrabPointer(d, DefaultRootWindow(d), False, 0, GrabModeAsync, GrabModeAsync, None, None, CurrentTime),
              GrabSuccess);
}

std::vector<std::string> masters(Display* d) {
    int count = 0;
    XIDeviceInfo* devices = XIQueryDevice(d, XIAllMasterDevices, &count);
    std::vector<std::string> names(count);
    std::ranges::transform(devices, devices + count, names.begin(), &XIDeviceInfo::name);
    XIFreeDeviceInfo(devices);
    return names;
}

// A pair left by a process that has ended goes at the next start; a running
// instance's pair stays; the program's own pair goes with it.
TEST(PrivateMaster, LeftoversOfEndedProcessesGoAtStartAndTheOwnPairAtTheEnd) {
    PrivateDisplay server;
    Display* d = server.d;
    const pid_t ended = fork();
    if (ended == 0) _exit(0);
    waitpid(ended, nullptr, 0);
    const std::string left = "Quorlin " + std::to_string(ended);
    const std::string running = "Quorlin " + std::to_string(getppid());
    const std::string own = "Quorlin " + std::to_string(getpid());
    for (std::string name : {left, running}) {
        XIAddMasterInfo add{XIAddMaster, name.data(), False, True};
        XIChangeHierarchy(d, reinterpret_cast<XIAnyHierarchyChangeInfo*>(&add), 1);
    }
    XSync(d, False);
    {
        x11::PrivateMaster master(DisplayString(d));
        ASSERT_TRUE(master.ready());
        EXPECT_THAT(masters(d), IsSupersetOf({running + " pointer", own + " pointer", own + " keyboard"}));
        EXPECT_THAT(masters(d), Not(Contains(left + " pointer")));
    }
    EXPECT_THAT(masters(d), Each(Not(StartsWith(own + " "))));
}

}  // namespace
}  // namespace quorlin::testing
