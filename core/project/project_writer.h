#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include "model/window_model.h"
#include "project/text_pipeline.h"

namespace quorlin {

// Writes the whole setup in the project file's line format: one value a line, CR LF
// after every line, texts in Windows-1252. A line break inside a text is written as a
// lone LF, so that a reader splitting lines at CR LF still takes the text as one value.
class ProjectWriter {
public:
    explicit ProjectWriter(std::ostream& out);

    // False when the stream failed or a stored index lies beyond the stores.
    // Moves the grid's current cell to column 9 of the last data row, as it writes.
    bool write(WindowModel& m);

private:
    bool imageSettings(const WindowModel& m);
    bool picture(const ReferencePicture& picture);
    void runSettings(const EntryForm& form);
    bool records(WindowModel& m);
    bool rowPicture(const RowStores& rows, int r);

    void text(std::string_view value);
    void option(bool selected) { line(selected ? "True" : "False"); }
    void check(int value) { integer(value); }
    void integer(std::int32_t value);
    bool pixels(int columns, std::size_t height, const TextPipeline::ColumnSource& source);
    void line(std::string_view ascii);
    bool flush();

    // The lines since the last picture or record: they go to the file together.
    std::string buffer_;
    TextPipeline text_;
};

}  // namespace quorlin
