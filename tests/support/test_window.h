#pragma once

#include <string>

#include "support/fake_platform.h"
#include "window/frm_main.h"

namespace quorlin::testing {

using Cells = TrackGrid::Row;

// The main window over the in-memory desktop and the virtual clock, loaded and ready.
struct TestWindow {
    FakeDesktop desktop;
    FakeScreen screen;
    VirtualClock clock;
    FakeDialogs dialogs;
    ScriptedRandom random;
    FrmMain frm{Ports{desktop, screen, clock, clock, dialogs, random}};

    TestWindow() {
        desktop.pumpPasses = &clock.passes;
        clock.onTick = [this](TimerId id) { frm.timerTick(id); };
        frm.Form_Load(0x1000);
    }

    const EntryForm& form() const { return frm.form(); }
    WindowModel& model() { return frm.model(); }
    const std::string& text(Ctl field) const { return frm.form().text(field); }
    std::vector<std::string> texts(std::initializer_list<Ctl> fields) const {
        std::vector<std::string> out;
        for (Ctl field : fields) out.push_back(text(field));
        return out;
    }
    void type(Ctl field, const std::string& text) { frm.setText(field, text); }
    void typeAll(std::initializer_list<std::pair<Ctl, const char*>> fields) {
        for (auto [field, text] : fields) frm.setText(field, text);
    }
    const std::vector<std::string>& messages() const { return dialogs.messages; }
    // Selects "Random" between the two texts; the draws are the random numbers to come.
    void randomInterval(const char* from, const char* to, std::initializer_list<double> draws = {}) {
        frm.selectOption(Ctl::optRandom);
        typeAll({{Ctl::txtFromSec, from}, {Ctl::txtToSec, to}});
        for (double u : draws) random.values.push(u);
    }

    // Left-button-down messages posted so far.
    std::size_t clicks() const {
        std::size_t n = 0;
        for (const auto& m : desktop.posted) n += m.code == 0x0201;
        return n;
    }
    std::vector<int> clickedXs() const {
        std::vector<int> xs;
        for (ScreenPoint p : desktop.lookedUp) xs.push_back(p.x);
        return xs;
    }

    // Writes an entry straight into row r, as a loaded project may hold it.
    void putRow(int r, const Cells& cells) {
        WindowModel& m = model();
        if (m.fgResult.rowCount() <= r) m.fgResult.setRowCount(r + 1);
        m.setEntryCells(r, cells);
        m.rows.bRowImage[static_cast<std::size_t>(r)] = cells[colImage] == "Yes";
        m.vFirstRowUsed = true;
    }
    // A reference picture of the rectangle whose pixel (dx, dy) is seed + dx * 1000 + dy.
    void setPicture(int topX, int topY, int bottomX, int bottomY, Colour seed) {
        ReferencePicture& p = model().picture;
        p.iTopX = static_cast<std::int16_t>(topX);
        p.iTopY = static_cast<std::int16_t>(topY);
        p.iBottomX = static_cast<std::int16_t>(bottomX);
        p.iBottomY = static_cast<std::int16_t>(bottomY);
        p.iPicMaxX = static_cast<std::int16_t>(bottomX - topX);
        p.iPicMaxY = static_cast<std::int16_t>(bottomY - topY);
        for (int dx = 0; dx <= p.iPicMaxX; ++dx)
            for (int dy = 0; dy <= p.iPicMaxY; ++dy) p.pixel(dx, dy) = seed + dx * 1000 + dy;
    }
    // Adds an entry at x through "Add to track list"; with a seed, with a size x size picture.
    void addAt(const std::string& x, std::optional<Colour> seed = std::nullopt, int size = 3) {
        type(Ctl::txtX, x);
        if (seed) setPicture(100, 200, 100 + size - 1, 200 + size - 1, *seed);
        frm.setCheck(Ctl::chkRecImage, seed ? 1 : 0);
        frm.cmdAddtoList_Click();
    }
    Cells gridRow(int r) { return model().fgResult.cells(r); }
    const RowPicture& rowPicture(int r) { return model().rows.lRowPixels[static_cast<std::size_t>(r)]; }
};

}  // namespace quorlin::testing
