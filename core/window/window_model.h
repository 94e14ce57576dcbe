#pragma once

#include <string>

#include "picture/picture_box.h"
#include "picture/reference_picture.h"
#include "ports/desktop.h"
#include "run/run_state.h"
#include "run/step_inputs.h"
#include "text/value_of_text.h"
#include "track/row_stores.h"
#include "track/track_grid.h"
#include "window/entry_form.h"

namespace quorlin {

// The image condition of one click step.
struct StepCondition {
    bool hasImage = false;
    ScreenRect rect;
};

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
    // A click step is running; ticks that fall due meanwhile start no second one.
    bool clickInProgress = false;
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

    // The value of a field's text as a number (the number it begins with).
    double valueOf(Ctl field) const { return leadingNumber(form.text(field)); }
};

}  // namespace quorlin
