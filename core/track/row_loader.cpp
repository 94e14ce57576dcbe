#include "track/row_loader.h"

#include <string>

#include "text/colon_split.h"
#include "text/value_of_text.h"

namespace quorlin {

using C = Ctl;

void RowLoader::loadCurrentRow() {
    m_.form.setText(C::txtX, cell(colX));
    m_.form.setText(C::txtY, cell(colY));
    if (!SplitInterval()) return;
    loadClickKind();
    m_.form.setText(C::txtCount, cell(colRep));
    loadTyping();
    loadImage();
}

bool RowLoader::SplitInterval() {
    const auto first = splitAtColon(cell(colInterval));
    if (!first) return false;
    if (m_.form.selected(C::optRandom)) {
        m_.form.setText(C::txtFromSec, std::string(first->first));
        m_.form.setText(C::txtToSec, std::string(first->second));
        return true;
    }
    const auto rest = splitAtColon(first->second);
    if (!rest) return false;
    m_.form.setText(C::txtMinutes, std::string(first->first));
    m_.form.setText(C::txtSeconds, std::string(rest->first));
    m_.form.setText(C::txtMiliseconds, std::string(rest->second));
    return true;
}

// Anything but the two exact names is a right click, "click" included.
void RowLoader::loadClickKind() {
    const std::string& type = cell(colType);
    if (type == kClick) m_.form.selectOption(C::optClick);
    else if (type == kDBClick) m_.form.selectOption(C::optDbClick);
    else m_.form.selectOption(C::optRightClick);
}

// The typing switch is set here too: the check box reacts only when its value changes.
void RowLoader::loadTyping() {
    const bool fill = cell(colFill) == "Yes";
    m_.form.setCheck(C::chkText, fill ? 1 : 0);
    m_.step.bTypeText = fill;
    m_.form.setText(C::txtText, fill ? cell(colText) : std::string());
}

void RowLoader::loadImage() {
    if (cell(colImage) != "Yes") return dropImage();
    const auto r = static_cast<std::size_t>(m_.fgResult.row());
    m_.form.setCheck(C::chkRecImage, 1);
    loadEntryPicture(r);
    m_.form.selectOption(m_.rows.lRowInclude[r] == -1 ? C::optImageInclude : C::optImageNotInclude);
    const auto& rect = m_.rows.lRowRect[r];
    for (std::size_t i = 0; i < rect.size(); ++i) m_.form.setText(kRectangleFields[i], std::to_string(rect[i]));
    // A corner beyond 16 bits, as only a file edited by hand can hold, is no picture
    // corner: the row's loading ends there rather than wrap it to another place.
    ReferencePicture& picture = m_.picture;
    std::int16_t* const corners[] = {&picture.iTopX, &picture.iTopY, &picture.iBottomX, &picture.iBottomY};
    for (std::size_t i = 0; i < rect.size(); ++i) {
        const auto corner = toInt16(rect[i]);
        if (!corner) return;
        *corners[i] = *corner;
    }
}

// Painted over what the box shows: the box is not cleared first.
void RowLoader::loadEntryPicture(std::size_t r) {
    const RowPicture& entry = m_.rows.lRowPixels[r];
    ReferencePicture& picture = m_.picture;
    picture.iPicMaxX = static_cast<std::int16_t>(entry.lastX);
    picture.iPicMaxY = static_cast<std::int16_t>(entry.lastY);
    for (int x = 0; x <= entry.lastX; ++x)
        for (int y = 0; y <= entry.lastY; ++y)
            if (ReferencePicture::inStore(x, y)) picture.pixel(x, y) = entry.at(x, y);
    if (entry.pixels.empty()) return;
    m_.pictureBox.draw(picture, entry.lastY + 1, entry.pixels.size());
}

// The reference pixels stay: only the rectangle is forgotten.
void RowLoader::dropImage() {
    m_.pictureBox.clear();
    ReferencePicture& picture = m_.picture;
    picture.iTopX = picture.iBottomX = picture.iTopY = picture.iBottomY = 0;
    for (Ctl field : kRectangleFields) m_.form.setText(field, "");
    m_.form.setCheck(C::chkRecImage, 0);
}

}  // namespace quorlin
