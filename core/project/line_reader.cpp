#include "project/line_reader.h"

#include <algorithm>
#include <cstring>

#include "text/eight_digits.h"
#include "text/plain_integer.h"

namespace quorlin {

namespace {
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
}  // namespace

// Moves what is left to the front and reads more behind it; grows for long lines, but
// never much beyond the longest line accepted.
bool LineReader::fill() {
    if (eof_) return false;
    std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
    end_ -= begin_;
    begin_ = 0;
    if (end_ == buffer_.size()) {
        if (buffer_.size() > kLongestLine) return false;
        buffer_.resize(std::min(buffer_.size() * 2, kLongestLine + kChunk));
    }
    in_.read(buffer_.data() + end_, static_cast<std::streamsize>(buffer_.size() - end_));
    const auto got = static_cast<std::size_t>(in_.gcount());
    end_ += got;
    eof_ = got == 0;
    if (!started_) {
        started_ = true;
        if (std::string_view(buffer_.data(), end_).starts_with(kByteOrderMark)) begin_ = kByteOrderMark.size();
    }
    return got > 0;
}

bool LineReader::atEnd() { return tooLong_ || (begin_ == end_ && !fill()); }

void LineReader::endLineAt(std::size_t lf, std::string_view& line) {
    const bool crLf = lf > begin_ && buffer_[lf - 1] == '\r';
    line = std::string_view(buffer_.data() + begin_, lf - begin_ - (crLf ? 1 : 0));
    begin_ = lf + 1;
    crLfLines_ = crLf;
}

// Whether a CR LF follows within the longest line from the current line's start;
// `from` counts from that start.
bool LineReader::crLfAhead(std::size_t from) {
    for (;;) {
        const char* start = buffer_.data() + begin_;
        const std::size_t limit = std::min(end_ - begin_, kLongestLine + 1);
        for (std::size_t at = from; at < limit; ++at) {
            const void* lf = std::memchr(start + at, '\n', limit - at);
            if (!lf) break;
            at = static_cast<std::size_t>(static_cast<const char*>(lf) - start);
            if (at > 0 && start[at - 1] == '\r') return true;
        }
        from = limit;
        if (limit > kLongestLine || !fill()) return false;
    }
}

bool LineReader::take(std::string_view& line, bool text) {
    if (atEnd()) return false;
    std::size_t searched = 0;
    for (;;) {
        const char* start = buffer_.data() + begin_;
        const std::size_t available = end_ - begin_;
        const void* found = std::memchr(start + searched, '\n', available - searched);
        if (found) {
            const auto at = static_cast<std::size_t>(static_cast<const char*>(found) - start);
            const bool crLf = at > 0 && start[at - 1] == '\r';
            if (text && !crLf && crLfLines_ && crLfAhead(at + 1)) {
                searched = at + 1;
                continue;
            }
            if (at > kLongestLine) break;
            endLineAt(begin_ + at, line);
            return true;
        }
        searched = available;
        if (available > kLongestLine || !fill()) break;
    }
    if (end_ - begin_ > kLongestLine || !eof_) {
        tooLong_ = true;
        return false;
    }
    // The last line of a file need not end with a line end.
    line = std::string_view(buffer_.data() + begin_, end_ - begin_);
    begin_ = end_;
    return true;
}

// Parses straight in the buffer, refilling only when the next line might run past it.
std::size_t LineReader::nextPlainIntegers(std::span<std::int32_t> out) {
    // "-2147483648\r\n", more than the nine bytes one read of digits looks at.
    constexpr std::size_t kLongestPlainLine = 13;
    std::size_t read = 0;
    while (!tooLong_) {
        if (end_ - begin_ <= kLongestPlainLine) fill();
        const char* at = buffer_.data() + begin_;
        const char* const end = buffer_.data() + end_;
        const char* const refill = eof_ ? end : end - static_cast<std::ptrdiff_t>(kLongestPlainLine);
        bool crLf = crLfLines_;
        while (read < out.size() && at < refill) {
            const char* next = at;
            // Near the end of the file, fewer bytes are left than a word of digits takes.
            auto value = end - at > 8 ? readEightDigits(next) : std::nullopt;
            if (!value) value = takePlainInteger(next, end);
            if (!value || next == end) break;
            const bool lineCrLf = *next == '\r';
            next += lineCrLf ? 1 : 0;
            if (next == end || *next != '\n') break;
            crLf = lineCrLf;
            out[read++] = *value;
            at = next + 1;
        }
        begin_ = static_cast<std::size_t>(at - buffer_.data());
        crLfLines_ = crLf;
        if (at < refill || eof_) break;
    }
    return read;
}

}  // namespace quorlin
