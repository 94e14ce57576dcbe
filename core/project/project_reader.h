#pragma once

#include <istream>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "project/line_reader.h"
#include "track/track_list.h"
#include "model/window_model.h"

namespace quorlin {

// Reads a project file back into the window, position by position, through the same
// control changes the user makes, so every reaction runs in file order. It stops at
// the first line that is missing or unreadable and keeps what it has set so far.
class ProjectReader {
public:
    ProjectReader(std::istream& in, WindowModel& model, TrackList& list) : lines_(in), m_(model), list_(list) {}

    // Stops silently where the file ends early or holds something unreadable.
    void read();

private:
    bool imageSettings();
    bool picture();
    bool pictureBlock(std::size_t& read);
    bool runSettings();
    bool record();
    bool rowPicture(int r);
    std::size_t pixelRun(std::span<Colour> out, bool strict);
    bool readPixels(RowPicture& picture, std::int32_t lastX, std::int32_t lastY, std::size_t& read);
    void applyOverlays();

    std::optional<std::string_view> line();
    std::optional<std::string> textLine();
    std::optional<bool> optionLine();
    std::optional<int> checkLine();
    std::optional<std::int32_t> includeLine();
    std::optional<std::int16_t> leading16();
    std::optional<std::int32_t> leading32();
    std::optional<std::int32_t> strict32();
    bool setOption(Ctl option);
    bool textField(Ctl field);

    LineReader lines_;
    WindowModel& m_;
    TrackList& list_;
    // Row pictures in file order, laid over the window's picture once the reading ends.
    struct Overlay {
        int row;
        std::size_t height;
        std::size_t pixels;
    };
    std::vector<Overlay> overlays_;
};

}  // namespace quorlin
