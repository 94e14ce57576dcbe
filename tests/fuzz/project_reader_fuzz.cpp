// Any bytes at all, read as a project file, must neither crash nor hang the window.
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

#include "support/test_window.h"
#include "project/project_reader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static quorlin::testing::TestWindow window;
    std::istringstream file(std::string(reinterpret_cast<const char*>(data), size));
    quorlin::TrackList list(window.model());
    window.model().fgResult.blankAll();
    list.fColInit();
    quorlin::ProjectReader(file, window.model(), list).read();
    return 0;
}
