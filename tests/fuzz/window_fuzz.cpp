// Any bytes at all, loaded as a project, must leave a window that can be clicked row by
// row, run, captured and saved without harm, and that loads its own saved file back.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "support/test_window.h"

namespace {

using quorlin::Ctl;
using quorlin::testing::TestWindow;
namespace fs = std::filesystem;

// Loads the file through its dialog, then tries each row as the user would: a click on
// the row, then one manual step of it.
void loadAndTryEveryRow(TestWindow& w, const fs::path& file) {
    w.dialogs.answers.push(file.string());
    w.frm.buttonClicked(Ctl::cmdLoad);
    w.frm.selectOption(Ctl::optManual);
    for (int r = 1; r < w.model().fgResult.rowCount(); ++r) {
        w.frm.fgResult_Click(r, 0);
        w.frm.selectOption(Ctl::optApplication);
        w.frm.selectOption(Ctl::optCount);
        w.frm.cmdStart_Click();
        w.clock.advanceBy(70'000);
        w.frm.cmdStop_Click();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fs::path folder = fs::temp_directory_path() / ("quorlin-window-fuzz-" + std::to_string(::getpid()));
    fs::create_directories(folder);
    const fs::path input = folder / "input.tpl";
    const fs::path saved = folder / "saved.tpl";
    std::ofstream(input, std::ios::binary) << std::string_view(reinterpret_cast<const char*>(data), size);

    TestWindow w;
    w.screen.pixelAt = [](int x, int y) { return (x * 31 + y) & 0xFFFFFF; };
    loadAndTryEveryRow(w, input);
    w.frm.cmdGetPic_Click();
    w.frm.Form_Paint();
    w.dialogs.answers.push(saved.string());
    w.frm.buttonClicked(Ctl::cmdSave);

    TestWindow again;
    loadAndTryEveryRow(again, saved);
    return 0;
}
