#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "form/entry_form.h"
#include "model/picture_box.h"
#include "model/reference_picture.h"
#include "model/row_stores.h"
#include "model/run_state.h"
#include "model/step_condition.h"
#include "model/step_inputs.h"
#include "model/track_grid.h"
#include "ports/desktop.h"
#include "text/value_of_text.h"

namespace quorlin {

// All state of the main window; it lives as long as the window.
struct WindowModel {
    EntryForm form;
    StepInputs step;
    RunState run;
    ReferencePicture picture;
    PictureBox pictureBox;
    TrackGrid fgResult;
    RowStores rows;
    bool vFirstRowUsed = false;

    // The manual run's image condition, taken from the window when the run starts.
    StepCondition manualCondition;
    // A track-list run is playing; its ticks of tmrCount click the grid's current row.
    bool trackRunActive = false;
    // Every run that arms tmrCount takes a new number, so that the ticks of a run started
    // inside another run's step are told apart from those of the run they interrupted.
    std::uint32_t countRun = 0;
    // The counted run whose click step is in progress; its ticks meanwhile start no second step.
    std::optional<std::uint32_t> countRunClicking;
    // The endless run's click step is in progress.
    bool loopClicking = false;
    // The window is closing: every run ends at its next chance.
    bool closing = false;

    NumberLocale locale;
    WindowHandle hWnd = 0;
    // The file name the project dialog offers next.
    std::string projectFileName;

    // The image condition of the track entry at the grid's current row.
    StepCondition trackCondition() const {
        const int r = fgResult.row();
        if (r < 1 || r >= kMaxGridRows) return {};
        const auto& rect = rows.lRowRect[static_cast<std::size_t>(r)];
        return {rows.bRowImage[static_cast<std::size_t>(r)], {rect[0], rect[1], rect[2], rect[3]}};
    }

    // One observer is told of every change of the controls, the grid and the picture box.
    void setObserver(FormObserver* observer) {
        form.setObserver(observer);
        fgResult.setObserver(observer);
        pictureBox.setObserver(observer);
    }

    // Writes the ten cells of entry r into the grid and into the entry's own store.
    void setEntryCells(int r, const TrackGrid::Row& cells) {
        fgResult.setCells(r, cells);
        rows.sRowCells[static_cast<std::size_t>(r)] = cells;
    }
};

}  // namespace quorlin
