#include "project/project_writer.h"

#include "project/project_layout.h"
#include "text/number_line.h"
#include "text/windows1252.h"

namespace quorlin {

using C = Ctl;

ProjectWriter::ProjectWriter(std::ostream& out)
    : text_([&out](std::span<const char> text) {
          return static_cast<bool>(out.write(text.data(), static_cast<std::streamsize>(text.size())));
      }) {}

bool ProjectWriter::write(WindowModel& m) {
    if (!imageSettings(m)) return false;
    runSettings(m.form);
    return records(m) && flush() && text_.finish();
}

bool ProjectWriter::imageSettings(const WindowModel& m) {
    option(m.form.selected(C::optImageInclude));
    option(m.form.selected(C::optImageNotInclude));
    for (Ctl field : kRectangleFields) text(m.form.text(field));
    check(m.form.value(C::chkRecImage));
    return m.form.value(C::chkRecImage) != 1 || picture(m.picture);
}

// A picture beyond the store cannot be written: the save fails as a whole.
bool ProjectWriter::picture(const ReferencePicture& picture) {
    integer(picture.iPicMaxX);
    integer(picture.iPicMaxY);
    if (picture.iPicMaxX < 0 || picture.iPicMaxY < 0) return true;
    if (!ReferencePicture::inStore(picture.iPicMaxX, picture.iPicMaxY)) return false;
    return pixels(picture.iPicMaxX + 1, static_cast<std::size_t>(picture.iPicMaxY) + 1,
                  [&picture](int x, std::span<Colour> column) {
                      for (std::size_t y = 0; y < column.size(); ++y) column[y] = picture.pixel(x, static_cast<int>(y));
                      return std::span<const Colour>(column);
                  });
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
    if (picture.lastX >= 0 && picture.lastY >= 0) {
        if (!ReferencePicture::inStore(picture.lastX, picture.lastY)) return false;
        const auto height = static_cast<std::size_t>(picture.lastY) + 1;
        const bool written = pixels(picture.lastX + 1, height, [&picture, height](int x, std::span<Colour>) {
            return std::span<const Colour>(picture.pixels).subspan(static_cast<std::size_t>(x) * height, height);
        });
        if (!written) return false;
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

void ProjectWriter::integer(std::int32_t value) {
    char digits[kLongestNumberLine];
    buffer_.append(digits, numberLine(digits, value));
}

bool ProjectWriter::pixels(int columns, std::size_t height, const TextPipeline::ColumnSource& source) {
    return flush() && text_.addPixels(columns, height, source);
}

void ProjectWriter::line(std::string_view bytes) { buffer_.append(bytes).append("\r\n"); }

bool ProjectWriter::flush() {
    const bool written = text_.add(buffer_);
    buffer_.clear();
    return written;
}

}  // namespace quorlin
