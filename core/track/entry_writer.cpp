#include "track/entry_writer.h"

#include <string>

namespace quorlin {

namespace {

using C = Ctl;

std::string intervalText(const EntryForm& form) {
    if (form.selected(C::optRandom)) return form.text(C::txtFromSec) + ":" + form.text(C::txtToSec);
    return form.text(C::txtMinutes) + ":" + form.text(C::txtSeconds) + ":" + form.text(C::txtMiliseconds);
}

const char* clickKindText(const EntryForm& form) {
    if (form.selected(C::optClick)) return kClick;
    if (form.selected(C::optDbClick)) return kDBClick;
    return kRightClick;
}

TrackGrid::Row entryCells(const EntryForm& form, int r) {
    const bool fill = form.value(C::chkText) == 1;
    return {std::to_string(r),
            form.text(C::txtX),
            form.text(C::txtY),
            form.selected(C::optRandom) ? "Random" : "Custom",
            intervalText(form),
            clickKindText(form),
            form.text(C::txtCount),
            fill ? "Yes" : "No",
            fill ? form.text(C::txtText) : std::string(),
            form.value(C::chkRecImage) == 1 ? "Yes" : "No"};
}

// Only the captured part of the reference picture is copied; the entry keeps its own pixels.
void copyPicture(const ReferencePicture& picture, RowPicture& target) {
    target.resize(picture.iBottomX - picture.iTopX, picture.iBottomY - picture.iTopY);
    for (int dx = 0; dx <= target.lastX; ++dx)
        for (int dy = 0; dy <= target.lastY; ++dy) target.at(dx, dy) = picture.pixel(dx, dy);
}

void writeImageFields(WindowModel& m, std::size_t r) {
    const ReferencePicture& picture = m.picture;
    copyPicture(picture, m.rows.lRowPixels[r]);
    m.rows.lRowInclude[r] = m.form.selected(C::optImageInclude) ? -1 : 0;
    m.rows.lRowRect[r] = {picture.iTopX, picture.iTopY, picture.iBottomX, picture.iBottomY};
    m.rows.bRowImage[r] = true;
}

}  // namespace

bool pictureCopyable(const ReferencePicture& picture) {
    const int lastX = picture.iBottomX - picture.iTopX;
    const int lastY = picture.iBottomY - picture.iTopY;
    return lastX < kPictureSide && lastY < kPictureSide;
}

void writeEntry(WindowModel& m, int r) {
    const auto slot = static_cast<std::size_t>(r);
    m.setEntryCells(r, entryCells(m.form, r));
    if (m.form.value(C::chkRecImage) == 1) writeImageFields(m, slot);
    else m.rows.bRowImage[slot] = false;
    m.vFirstRowUsed = true;
}

}  // namespace quorlin
