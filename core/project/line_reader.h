#pragma once

#include <cstdint>
#include <istream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorlin {

// Reads a project file line by line in large chunks. A file whose first line ends in
// CR LF is split at CR LF only, so a lone LF inside a value stays part of it; a file
// whose first line ends in a lone LF (edited on Linux) is split at LF.
class LineReader {
public:
    explicit LineReader(std::istream& in) : in_(in), buffer_(1 << 20) {}

    // The next line without its line end; false when the file has no bytes left.
    bool next(std::string_view& line);
    bool atEnd();
    // The next line when it is a plain integer ("-" and up to ten digits, fitting 32 bits),
    // read in one pass; nothing, and the line left unread, otherwise.
    std::optional<std::int32_t> nextPlainInteger();

private:
    bool fill();
    bool findLineEnd(std::size_t from, std::size_t& end, std::size_t& next) const;

    std::istream& in_;
    std::vector<char> buffer_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    bool eof_ = false;
    int mode_ = 0;  // 0: not known yet, 1: CR LF, 2: LF
    std::string spanning_;
};

}  // namespace quorlin
