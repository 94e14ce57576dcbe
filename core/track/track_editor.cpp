#include "track/track_editor.h"

#include "track/entry_removal.h"
#include "track/entry_writer.h"
#include "track/interval_total.h"
#include "track/row_loader.h"
#include "form/entry_validation.h"
#include "form/message_texts.h"

namespace quorlin {

using C = Ctl;

namespace {

// Shows the refusal or failure of a total, if any; answers whether the total may be used.
bool totalAccepted(TotalCheck check, Dialogs& dialogs) {
    if (check == TotalCheck::TooLong) dialogs.messageBox(msg::kMaxMinute);
    if (check == TotalCheck::Overflow) dialogs.messageBox(msg::kIntervalOverflow);
    return check == TotalCheck::Fits;
}

}  // namespace

void TrackEditor::cmdAddtoList_Click() {
    if (!countSelected()) return;
    if (!totalAccepted(checkAddingTotal(m_.form), p_.dialogs)) return;
    if (m_.form.value(C::chkRecImage) == 1 && m_.picture.iPicMaxX == 0 && m_.picture.iPicMaxY == 0) {
        p_.dialogs.messageBox(msg::kSelectPicture);
        return;
    }
    if (m_.fgResult.rowCount() > kMaxEntries) {
        p_.dialogs.messageBox(msg::kMaxRows);
        return;
    }
    if (!ValidateInput(m_.form, m_.locale, p_.dialogs) || !pictureFits()) return;
    const int r = list_.growForNewEntry();
    m_.fgResult.setRow(r);
    writeEntry(m_, r);
}

// Everything is checked before the entry is touched, so it is never left half written.
void TrackEditor::cmdUpdate_Click() {
    const int r = m_.fgResult.row();
    if (r < 1 || r >= m_.fgResult.rowCount()) return;
    if (!countSelected() || !ValidateInput(m_.form, m_.locale, p_.dialogs)) return;
    if (!totalAccepted(checkUpdatingTotal(m_.form, p_.random), p_.dialogs) || !pictureFits()) return;
    writeEntry(m_, r);
}

void TrackEditor::cmdRemove_Click() {
    const int r = m_.fgResult.row();
    if (r < 1 || r >= m_.fgResult.rowCount()) return;
    removeEntry(m_, r);
}

void TrackEditor::cmdClearTrackList_Click() { list_.clear(); }

// A click on the header row selects no entry and loads nothing.
void TrackEditor::fgResult_Click(int row, int col) {
    if (row < 1 || row >= m_.fgResult.rowCount()) return;
    m_.fgResult.setRow(row);
    m_.fgResult.setCol(col);
    RowLoader(m_).loadCurrentRow();
}

void TrackEditor::fgResult_RowColChange(int row, int col) {
    if (row < 1 || row >= m_.fgResult.rowCount()) return;
    m_.fgResult.setRow(row);
    m_.fgResult.setCol(col);
}

bool TrackEditor::SplitInterval() { return RowLoader(m_).SplitInterval(); }

bool TrackEditor::countSelected() {
    if (m_.form.selected(C::optCount)) return true;
    p_.dialogs.messageBox(msg::kSwitchOnCount);
    return false;
}

// Only a picture whose rectangle lies within the reference store can be copied.
bool TrackEditor::pictureFits() {
    if (m_.form.value(C::chkRecImage) != 1 || pictureCopyable(m_.picture)) return true;
    p_.dialogs.messageBox(msg::kPictureTooLarge);
    return false;
}

}  // namespace quorlin
