// `quorlin FILE.tpl` started for real on the test display: the project's picture
// shows in the window, and the window carries the class its desktop entry names.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "x11/x11_fixtures.h"
#include "x11/x11_screen_reader.h"

namespace {

// A project with no track list and a 16 x 16 reference picture of RGB (0x12, 0x34, 0x56),
// a colour nothing else on the test screen has.
std::string projectWithPicture() {
    std::string file = "True\r\nFalse\r\n0\r\n0\r\n15\r\n15\r\n1\r\n15\r\n15\r\n";
    for (int i = 0; i < 16 * 16; ++i) file += "5649426\r\n";
    for (const char* line : {"False", "True", "False", "0", "", "True", "False", "False", "True", "1", "True", "False",
                             "True", "False", "False", "5", "200", "150", "0", "3", "0", "1", "5"})
        file += std::string(line) + "\r\n";
    return file;
}

// The top-level window that shows a whole row of the picture in its colour (0x00BBGGRR), or None.
Window windowWithPicture(quorlin::x11::X11Connection& x) {
    const int width = DisplayWidth(x.display(), DefaultScreen(x.display()));
    const int height = DisplayHeight(x.display(), DefaultScreen(x.display()));
    std::vector<quorlin::Colour> pixels(static_cast<std::size_t>(width) * height);
    quorlin::x11::X11ScreenReader(x).readRect({0, 0, width - 1, height - 1}, pixels);
    const auto at = static_cast<int>(std::search_n(pixels.begin(), pixels.end(), 16, 0x563412) - pixels.begin());
    int left = 0, top = 0;
    Window shown = None;
    if (at < width * height)
        XTranslateCoordinates(x.display(), x.root(), x.root(), at % width, at / width, &left, &top, &shown);
    return shown;
}

TEST(FileArgument, StartsWithTheProjectLoadedInAWindowOfClassQuorlin) {
    const auto project = std::filesystem::temp_directory_path() / ("quorlin-file-" + std::to_string(getpid()) + ".tpl");
    std::ofstream(project, std::ios::binary) << projectWithPicture();
    quorlin::x11::X11Connection x;
    ASSERT_EQ(windowWithPicture(x), 0u);

    quorlin::testing::ChildProcess quorlin({QUORLIN_BINARY, project.string()});
    Window shown = None;
    EXPECT_TRUE(
        quorlin::testing::eventually([&] { return (shown = windowWithPicture(x)) != None; }, std::chrono::seconds(20)));
    std::filesystem::remove(project);
    EXPECT_EQ(quorlin::testing::windowProperty<std::string>(x.display(), shown, "WM_CLASS"),
              std::string("quorlin\0quorlin\0", 16));
}

}  // namespace
