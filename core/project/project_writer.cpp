#include "project/project_writer.h"

#include <algorithm>
#include <charconv>

#include "project/project_layout.h"
#include "text/windows1252.h"

namespace quorlin {

using C = Ctl;

bool ProjectWriter::write(WindowModel& m) {
    if (!imageSettings(m)) return false;
    runSettings(m.form);
    return records(m) && flush();
}

bool ProjectWriter::imageSettings(const WindowModel& m) {
    option(m.form.selected(C::optImageInclude));
    option(m.form.selected(C::optImageNotInclude));
    for (Ctl field : kRectangleFields) text(m.form.text(field));
    check(m.form.value(C::chkRecImage));
    return m.form.value(C::chkRecImage) != 1 || picture(m.picture);
}

bool ProjectWriter::picture(const ReferencePicture& picture) {
    integer(picture.iPicMaxX);
    integer(picture.iPicMaxY);
    for (int x = 0; x <= picture.iPicMaxX; ++x) {
        for (int y = 0; y <= picture.iPicMaxY; ++y) {
            if (!ReferencePicture::inStore(x, y)) return false;
            integer(picture.pixel(x, y));
        }
        if (used_ >= kFlushAt && !flush()) return false;
    }
    return true;
}

void ProjectWriter::runSettings(const EntryForm& form) {
    option(form.selected(C::optRandom));
    option(form.selected(C::optCustom));
    option(form.selected(C::optWeb));
    check(form.value(C::chkText));
    text(form.text(C::txtText));
    for (Ctl o : {C::optManual, C::optFromTrack, C::optLooptrack, C::optRepeatTrack}) option(form.selected(o));
    text(form.text(C::txtTrackNum));
    for (Ctl o : {C::optCount, C::optLoop, C::optClick, C::optDbClick, C::optRightClick}) option(form.selected(o));
    for (Ctl field : project::kStepFields) text(form.text(field));
}

bool ProjectWriter::records(WindowModel& m) {
    TrackGrid& grid = m.fgResult;
    const int rowCount = grid.rowCount();
    for (int r = 1; r < rowCount; ++r) {
        // The grid's current cell moves along as the record is written.
        grid.setRow(r);
        grid.setCol(kGridColumns - 1);
        for (const std::string& cell : grid.cells(r)) text(cell);
        if (r >= kMaxGridRows) return false;
        option(m.rows.bRowImage[static_cast<std::size_t>(r)]);
        text(m.rows.sRowCells[static_cast<std::size_t>(r)][colImage]);
        if (grid.cell(r, colImage) == "Yes" && !rowPicture(m.rows, r)) return false;
        if (!flush()) return false;
    }
    return true;
}

bool ProjectWriter::rowPicture(const RowStores& rows, int r) {
    const RowPicture& picture = rows.lRowPixels[static_cast<std::size_t>(r)];
    integer(picture.lastX);
    integer(picture.lastY);
    for (int x = 0; x <= picture.lastX && picture.lastY >= 0; ++x) {
        for (int y = 0; y <= picture.lastY; ++y) {
            if (!ReferencePicture::inStore(x, y)) return false;
            integer(picture.at(x, y));
        }
        if (used_ >= kFlushAt && !flush()) return false;
    }
    integer(rows.lRowInclude[static_cast<std::size_t>(r)]);
    for (std::int32_t corner : rows.lRowRect[static_cast<std::size_t>(r)]) integer(corner);
    return true;
}

void ProjectWriter::text(std::string_view value) {
    std::string bytes = utf8ToWindows1252(value);
    for (std::size_t at = bytes.find("\r\n"); at != std::string::npos; at = bytes.find("\r\n", at))
        bytes.erase(at, 1);
    line(bytes);
}

// Pixels make up nearly all of a large file: their digits go straight into the buffer.
void ProjectWriter::integer(long long value) {
    if (used_ + kLongestNumberLine > buffer_.size()) flush();
    char* at = buffer_.data() + used_;
    at = std::to_chars(at, at + kLongestNumberLine - 2, value).ptr;
    *at++ = '\r';
    *at++ = '\n';
    used_ = static_cast<std::size_t>(at - buffer_.data());
}

void ProjectWriter::line(std::string_view bytes) {
    if (used_ + bytes.size() + 2 > buffer_.size()) {
        flush();
        buffer_.resize(std::max(buffer_.size(), bytes.size() + 2));
    }
    std::copy(bytes.begin(), bytes.end(), buffer_.data() + used_);
    used_ += bytes.size();
    buffer_[used_++] = '\r';
    buffer_[used_++] = '\n';
}

bool ProjectWriter::flush() {
    out_.write(buffer_.data(), static_cast<std::streamsize>(used_));
    used_ = 0;
    return static_cast<bool>(out_);
}

}  // namespace quorlin
