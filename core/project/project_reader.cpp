#include "project/project_reader.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

#include "project/project_layout.h"
#include "text/plain_integer.h"
#include "text/value_of_text.h"
#include "text/windows1252.h"

namespace quorlin {

using C = Ctl;

// Each part stops the reading at its first failure; what was read stays.
void ProjectReader::read() {
    if (imageSettings() && runSettings())
        while (!lines_.atEnd() && record()) {
        }
    applyOverlays();
}

std::optional<std::string_view> ProjectReader::line() {
    std::string_view text;
    if (!lines_.next(text)) return std::nullopt;
    return text;
}

// A text value: Windows-1252 on disk; a lone LF inside it is a line break of the text.
std::optional<std::string> ProjectReader::textLine() {
    std::string_view raw;
    if (!lines_.nextText(raw)) return std::nullopt;
    const std::string utf8 = windows1252ToUtf8(raw);
    std::string text;
    text.reserve(utf8.size());
    for (char c : utf8) {
        if (c == '\n') text += '\r';
        text += c;
    }
    return text;
}

std::optional<bool> ProjectReader::optionLine() {
    auto raw = line();
    if (!raw) return std::nullopt;
    return *raw == "True";
}

std::optional<int> ProjectReader::checkLine() {
    auto raw = line();
    if (!raw) return std::nullopt;
    if (raw->empty()) return 0;
    auto value = wholeNumber(*raw, m_.locale);
    if (!value) return std::nullopt;
    return *value == 1 ? 1 : 0;
}

std::optional<std::int32_t> ProjectReader::includeLine() {
    auto raw = line();
    if (!raw) return std::nullopt;
    if (raw->empty()) return 0;
    auto value = wholeNumber(*raw, m_.locale);
    if (!value) return std::nullopt;
    return *value == -1 ? -1 : 0;
}

std::optional<std::int16_t> ProjectReader::leading16() {
    auto raw = line();
    if (!raw) return std::nullopt;
    return toInt16(leadingNumber(*raw));
}

std::optional<std::int32_t> ProjectReader::leading32() {
    auto raw = line();
    if (!raw) return std::nullopt;
    if (auto plain = parsePlainInteger(*raw)) return plain;
    return toInt32(leadingNumber(*raw));
}

std::optional<std::int32_t> ProjectReader::strict32() {
    auto raw = line();
    if (!raw) return std::nullopt;
    if (raw->empty()) return 0;
    if (auto plain = parsePlainInteger(*raw)) return plain;
    auto value = wholeNumber(*raw, m_.locale);
    if (!value) return std::nullopt;
    return toInt32(*value);
}

// Selected or not, as the line says.
bool ProjectReader::setOption(Ctl option) {
    auto selected = optionLine();
    if (!selected) return false;
    if (*selected) m_.form.selectOption(option);
    else m_.form.deselectOption(option);
    return true;
}

bool ProjectReader::textField(Ctl field) {
    auto text = textLine();
    if (!text) return false;
    m_.form.setText(field, std::move(*text));
    return true;
}

bool ProjectReader::imageSettings() {
    if (!setOption(C::optImageInclude) || !setOption(C::optImageNotInclude)) return false;
    std::int16_t* corners[] = {&m_.picture.iTopX, &m_.picture.iTopY, &m_.picture.iBottomX, &m_.picture.iBottomY};
    for (int i = 0; i < 4; ++i) {
        if (!textField(kRectangleFields[i])) return false;
        auto corner = toInt16(m_.form.valueOf(kRectangleFields[i]));
        if (!corner) return false;
        *corners[i] = *corner;
    }
    auto check = checkLine();
    if (!check) return false;
    m_.form.setCheck(C::chkRecImage, *check);
    return *check != 1 || picture();
}

bool ProjectReader::picture() {
    ReferencePicture& picture = m_.picture;
    auto lastX = leading16();
    if (!lastX) return false;
    picture.iPicMaxX = *lastX;
    auto lastY = leading16();
    if (!lastY) return false;
    picture.iPicMaxY = *lastY;
    m_.form.setEnabled(C::picScreen, true);
    std::size_t read = 0;
    const bool complete = pictureBlock(read);
    m_.pictureBox.draw(picture, picture.iPicMaxY + 1, read);
    return complete;
}

// The reference picture's pixels, column by column; `read` counts those that arrived.
bool ProjectReader::pictureBlock(std::size_t& read) {
    ReferencePicture& picture = m_.picture;
    std::array<Colour, kPictureSide> column{};
    const int height = std::min<int>(picture.iPicMaxY, kPictureSide - 1) + 1;
    for (int x = 0; x <= picture.iPicMaxX && picture.iPicMaxY >= 0; ++x) {
        if (!ReferencePicture::inStore(x, 0)) return false;
        const std::size_t got = pixelRun(std::span(column.data(), static_cast<std::size_t>(height)), false);
        for (std::size_t y = 0; y < got; ++y) picture.pixel(x, static_cast<int>(y)) = column[y];
        read += got;
        if (got < static_cast<std::size_t>(height) || height <= picture.iPicMaxY) return false;
    }
    return true;
}

// Fills `out` with pixel lines: plain integers in one pass, any other form by the
// picture's own rule; answers how many arrived before a line that is no pixel.
std::size_t ProjectReader::pixelRun(std::span<Colour> out, bool strict) {
    std::size_t got = lines_.nextPlainIntegers(out);
    while (got < out.size()) {
        auto colour = strict ? strict32() : leading32();
        if (!colour) break;
        out[got++] = *colour;
        got += lines_.nextPlainIntegers(out.subspan(got));
    }
    return got;
}

bool ProjectReader::runSettings() {
    for (Ctl interval : {C::optRandom, C::optCustom}) {
        auto selected = optionLine();
        if (!selected) return false;
        if (*selected) m_.form.selectOption(interval);
    }
    auto web = optionLine();
    if (!web) return false;
    m_.form.selectOption(*web ? C::optWeb : C::optApplication);
    auto typing = checkLine();
    if (!typing) return false;
    m_.form.setCheck(C::chkText, *typing);
    if (!textField(C::txtText)) return false;
    for (Ctl o : {C::optManual, C::optFromTrack, C::optLooptrack, C::optRepeatTrack})
        if (!setOption(o)) return false;
    if (!textField(C::txtTrackNum)) return false;

    auto count = optionLine();
    if (!count || !optionLine()) return false;
    m_.form.selectOption(*count ? C::optCount : C::optLoop);
    auto click = optionLine();
    auto dbClick = optionLine();
    if (!click || !dbClick || !optionLine()) return false;
    m_.form.selectOption(*click ? C::optClick : *dbClick ? C::optDbClick : C::optRightClick);
    for (Ctl field : project::kStepFields)
        if (!textField(field)) return false;
    return true;
}

bool ProjectReader::record() {
    if (list_.entryCount() >= kMaxEntries) return false;
    const int r = list_.growForNewEntry();
    TrackGrid::Row cells;
    int c = 0;
    for (; c < kGridColumns; ++c) {
        auto cell = textLine();
        if (!cell) break;
        cells[static_cast<std::size_t>(c)] = std::move(*cell);
    }
    // The grid's current cell ends where the reading did, as it moves along the record.
    m_.setEntryCells(r, cells);
    m_.fgResult.setRow(r);
    m_.fgResult.setCol(std::min(c, kGridColumns - 1));
    if (c < kGridColumns || !line() || !line()) return false;
    if (cells[colImage] == "Yes") {
        if (!rowPicture(r)) return false;
        m_.rows.bRowImage[static_cast<std::size_t>(r)] = true;
    } else {
        m_.rows.bRowImage[static_cast<std::size_t>(r)] = false;
    }
    m_.vFirstRowUsed = true;
    return true;
}

// Reads the row's pixels column by column; `read` counts those that arrived.
bool ProjectReader::readPixels(RowPicture& picture, std::int32_t lastX, std::int32_t lastY, std::size_t& read) {
    const auto height = static_cast<std::size_t>(picture.lastY) + 1;
    for (std::int32_t x = 0; x <= lastX && lastY >= 0; ++x) {
        if (!ReferencePicture::inStore(x, 0)) return false;
        const std::size_t got = pixelRun(std::span(&picture.at(x, 0), height), true);
        read += got;
        if (got < height || lastY > picture.lastY) return false;
    }
    return true;
}

// The row pictures, as far as they were read, lie over the window's current picture in
// file order. They are laid from the last one back: in every column each covers a top
// part, so a pixel that a later picture covers is never written twice. None reaches past
// the store: its reading stopped at the store's last column.
void ProjectReader::applyOverlays() {
    std::vector<int> covered(kPictureSide, 0);
    for (auto overlay = overlays_.rbegin(); overlay != overlays_.rend(); ++overlay) {
        const RowPicture& picture = m_.rows.lRowPixels[static_cast<std::size_t>(overlay->row)];
        const std::size_t height = overlay->height;
        for (int x = 0; static_cast<std::size_t>(x) * height < overlay->pixels; ++x) {
            const auto rows = static_cast<int>(std::min(height, overlay->pixels - static_cast<std::size_t>(x) * height));
            auto& done = covered[static_cast<std::size_t>(x)];
            for (int y = done; y < rows; ++y) m_.picture.pixel(x, y) = picture.at(x, y);
            done = std::max(done, rows);
        }
    }
}

// A size beyond the store ends the load at its first pixel past index 1000; the row
// keeps only what fits, so nothing is ever stored outside its picture.
bool ProjectReader::rowPicture(int r) {
    auto lastX = leading32();
    auto lastY = lastX ? leading32() : std::nullopt;
    if (!lastY) return false;
    RowPicture& picture = m_.rows.lRowPixels[static_cast<std::size_t>(r)];
    picture.resize(std::min(*lastX, kPictureSide - 1), std::min(*lastY, kPictureSide - 1));
    std::size_t read = 0;
    const bool complete = readPixels(picture, *lastX, *lastY, read);
    if (read > 0) overlays_.push_back({r, static_cast<std::size_t>(picture.lastY) + 1, read});
    if (!complete) return false;
    auto include = includeLine();
    if (!include) return false;
    m_.rows.lRowInclude[static_cast<std::size_t>(r)] = *include;
    for (std::int32_t& corner : m_.rows.lRowRect[static_cast<std::size_t>(r)]) {
        auto value = leading32();
        if (!value) return false;
        corner = *value;
    }
    return true;
}

}  // namespace quorlin
