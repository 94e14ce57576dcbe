#pragma once

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "support/test_window.h"
#include "window/messages.h"

namespace quorlin::testing {

using Cells = std::array<std::string, kGridColumns>;

// A loaded window with a valid click point, ready to take track entries.
class TrackFixture : public ::testing::Test {
public:
    TestWindow w;

    void SetUp() override {
        w.type(Ctl::txtX, "10");
        w.type(Ctl::txtY, "20");
    }

    WindowModel& m() { return w.model(); }
    const std::vector<std::string>& messages() const { return w.dialogs.messages; }

    // A captured reference picture whose pixel (dx, dy) is seed + dx * 1000 + dy.
    void capture(int topX, int topY, int bottomX, int bottomY, Colour seed) {
        ReferencePicture& p = m().picture;
        p.iTopX = static_cast<std::int16_t>(topX);
        p.iTopY = static_cast<std::int16_t>(topY);
        p.iBottomX = static_cast<std::int16_t>(bottomX);
        p.iBottomY = static_cast<std::int16_t>(bottomY);
        p.iPicMaxX = static_cast<std::int16_t>(bottomX - topX);
        p.iPicMaxY = static_cast<std::int16_t>(bottomY - topY);
        for (int dx = 0; dx <= p.iPicMaxX; ++dx)
            for (int dy = 0; dy <= p.iPicMaxY; ++dy) p.pixel(dx, dy) = seed + dx * 1000 + dy;
    }

    // Adds an entry at x with an image whose pixels start from seed.
    void addWithImage(const std::string& x, Colour seed, int size = 3) {
        capture(100, 200, 100 + size - 1, 200 + size - 1, seed);
        w.frm.setCheck(Ctl::chkRecImage, 1);
        addAt(x);
        w.frm.setCheck(Ctl::chkRecImage, 0);
    }
    void addAt(const std::string& x) {
        w.type(Ctl::txtX, x);
        w.frm.cmdAddtoList_Click();
    }

    int entries() { return m().vFirstRowUsed ? m().fgResult.rowCount() - 1 : 0; }
    Cells gridRow(int r) {
        Cells cells;
        for (int c = 0; c < kGridColumns; ++c) cells[static_cast<std::size_t>(c)] = m().fgResult.cell(r, c);
        return cells;
    }
    const Cells& storedRow(int r) { return m().rows.sRowCells[static_cast<std::size_t>(r)]; }
    const RowPicture& rowPicture(int r) { return m().rows.lRowPixels[static_cast<std::size_t>(r)]; }
    bool rowImage(int r) { return m().rows.bRowImage[static_cast<std::size_t>(r)]; }
};

}  // namespace quorlin::testing
