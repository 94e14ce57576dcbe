#include "picture/picture_capture.h"

#include <algorithm>
#include <optional>

#include "window/messages.h"

namespace quorlin {

using C = Ctl;

namespace {

constexpr Ctl kRectFields[] = {C::txtTopX, C::txtTopY, C::txtBottomX, C::txtBottomY};

// Pixels read in one direction: from the near edge up to the far one, none when reversed.
int span(std::int16_t nearEdge, std::int16_t farEdge) { return farEdge < nearEdge ? 0 : farEdge - nearEdge + 1; }

}  // namespace

bool PictureCapture::ValidatePictureRect() const {
    return std::all_of(std::begin(kRectFields), std::end(kRectFields),
                       [&](Ctl field) { return isNumber(m_.form.text(field), m_.locale); });
}

// The corners the fields give, each a 16-bit whole number, in the order they are set;
// nothing when one does not fit or the rectangle is larger than the picture store.
std::optional<ScreenRect> PictureCapture::requestedRect() const {
    auto corner = [&](Ctl field) { return toInt16(m_.valueOf(field)); };
    const auto left = corner(C::txtTopX);
    const auto right = corner(C::txtBottomX);
    const auto top = corner(C::txtTopY);
    const auto bottom = corner(C::txtBottomY);
    if (!left || !right || !top || !bottom) return std::nullopt;
    if (span(*left, *right) > kPictureSide || span(*top, *bottom) > kPictureSide) return std::nullopt;
    return ScreenRect{*left, *top, *right, *bottom};
}

void PictureCapture::cmdGetPic_Click() {
    if (!ValidatePictureRect()) {
        p_.dialogs.messageBox(msg::kFieldsIncorrect);
        return;
    }
    const auto rect = requestedRect();
    if (!rect) {
        p_.dialogs.messageBox(msg::kPictureRectOutOfLimits);
        return;
    }
    ReferencePicture& picture = m_.picture;
    picture.iTopX = static_cast<std::int16_t>(rect->left);
    picture.iBottomX = static_cast<std::int16_t>(rect->right);
    picture.iTopY = static_cast<std::int16_t>(rect->top);
    picture.iBottomY = static_cast<std::int16_t>(rect->bottom);

    m_.pictureBox.clear();
    const int columns = rect->width();
    const int rows = rect->height();
    if (columns > 0 && rows > 0) store(*rect);
    // A reversed direction reads no column at all, and with no column no row either.
    picture.iPicMaxX = static_cast<std::int16_t>(columns - 1);
    picture.iPicMaxY = static_cast<std::int16_t>(columns > 0 ? rows - 1 : -1);
    m_.form.observer().pictureBoxChanged();
}

// One read of the whole rectangle, stored column by column and shown as far as the box reaches.
void PictureCapture::store(const ScreenRect& rect) {
    const int columns = rect.width();
    const int rows = rect.height();
    buffer_.resize(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows));
    p_.screen.readRect(rect, buffer_);
    for (int dy = 0; dy < rows; ++dy) {
        const Colour* row = buffer_.data() + static_cast<std::size_t>(dy) * columns;
        std::copy(row, row + columns, m_.picture.row(dy));
    }
    drawPicture(columns - 1, rows - 1);
}

void PictureCapture::drawPicture(int lastX, int lastY) {
    const int width = std::min(lastX + 1, m_.pictureBox.width());
    const int height = std::min(lastY + 1, m_.pictureBox.height());
    for (int dx = 0; dx < width; ++dx)
        for (int dy = 0; dy < height; ++dy) m_.pictureBox.setPixel(dx, dy, m_.picture.pixel(dx, dy));
}

void PictureCapture::Form_Paint() {
    drawPicture(m_.picture.iPicMaxX, m_.picture.iPicMaxY);
    m_.form.observer().pictureBoxChanged();
}

}  // namespace quorlin
