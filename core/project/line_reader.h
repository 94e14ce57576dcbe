#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <span>
#include <string_view>
#include <vector>

namespace quorlin {

// Reads a project file line by line in large chunks, in memory bounded by the longest
// line it accepts. Each line ends at its own CR LF or lone LF, so a file whose lines
// changed their ending part-way (an edit on another system) reads whole. A lone LF
// inside a text that the window wrote between CR LF lines stays part of the text.
// A byte-order mark at the start is passed over.
class LineReader {
public:
    // Lines beyond this length end the reading, as the end of the file would.
    static constexpr std::size_t kLongestLine = std::size_t{16} << 20;

    explicit LineReader(std::istream& in) : in_(in), buffer_(kChunk) {}

    // The next value line without its line end; false when no line is left.
    bool next(std::string_view& line) { return take(line, false); }
    // The next text value: between CR LF lines, it runs on over lone LFs to its CR LF.
    bool nextText(std::string_view& line) { return take(line, true); }
    bool atEnd();
    // Reads lines that are plain integers into `out`, in one pass over the buffer, until
    // `out` is full or a line of another form comes, which is left unread. Answers how
    // many were read: pictures are millions of such lines.
    std::size_t nextPlainIntegers(std::span<std::int32_t> out);

private:
    static constexpr std::size_t kChunk = std::size_t{1} << 20;

    bool take(std::string_view& line, bool text);
    bool fill();
    bool crLfAhead(std::size_t from);
    void endLineAt(std::size_t lf, std::string_view& line);

    std::istream& in_;
    std::vector<char> buffer_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    bool eof_ = false;
    bool started_ = false;
    bool tooLong_ = false;
    // The last line ended in CR LF: its neighbours were written by the window.
    bool crLfLines_ = false;
};

}  // namespace quorlin
