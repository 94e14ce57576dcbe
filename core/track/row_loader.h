#pragma once

#include "model/window_model.h"

namespace quorlin {

// Brings the entry of the grid's current row back into the step fields and makes
// its picture the current reference picture. Every field goes through the form's
// setters, so the controls react as they do to the user's changes.
class RowLoader {
public:
    explicit RowLoader(WindowModel& model) : m_(model) {}

    // Stops silently at the first failure; what was loaded until then stays.
    void loadCurrentRow();
    // Reads the "Interval" cell as the interval option selected now says.
    // Answers false, changing nothing, when the cell lacks the colons needed.
    bool SplitInterval();

private:
    const std::string& cell(int c) const { return m_.fgResult.cell(m_.fgResult.row(), c); }
    void loadClickKind();
    void loadTyping();
    void loadImage();
    void loadEntryPicture(std::size_t r);
    void dropImage();

    WindowModel& m_;
};

}  // namespace quorlin
