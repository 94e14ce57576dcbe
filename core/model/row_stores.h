#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "ports/screen_reader.h"
#include "model/track_grid.h"

namespace quorlin {

// The picture a track entry owns: only the pixels it captured, column by column. It
// always holds exactly the pixels its last indices name; an entry without a captured
// picture holds the one black pixel the window's fixed stores always had.
struct RowPicture {
    std::int32_t lastX = 0;
    std::int32_t lastY = 0;
    std::vector<Colour> pixels = std::vector<Colour>(1, 0);

    static std::size_t countFor(std::int32_t lastX, std::int32_t lastY) {
        return lastX < 0 || lastY < 0 ? 0 : static_cast<std::size_t>(lastX + 1) * static_cast<std::size_t>(lastY + 1);
    }
    void resize(std::int32_t newLastX, std::int32_t newLastY) {
        lastX = newLastX;
        lastY = newLastY;
        pixels.assign(countFor(lastX, lastY), 0);
    }
    Colour& at(int x, int y) { return pixels[static_cast<std::size_t>(x) * static_cast<std::size_t>(lastY + 1) + y]; }
    Colour at(int x, int y) const { return pixels[static_cast<std::size_t>(x) * static_cast<std::size_t>(lastY + 1) + y]; }
};

// What the grid cannot show, kept per grid row (slot 0 belongs to the header and is unused).
struct RowStores {
    std::array<TrackGrid::Row, kMaxGridRows> sRowCells{};
    std::array<bool, kMaxGridRows> bRowImage{};
    std::array<std::int32_t, kMaxGridRows> lRowInclude{};
    // TopX, TopY, BottomX, BottomY
    std::array<std::array<std::int32_t, 4>, kMaxGridRows> lRowRect{};
    // lRowPicSize and lRowPixels together
    std::array<RowPicture, kMaxGridRows> lRowPixels{};
};

}  // namespace quorlin
