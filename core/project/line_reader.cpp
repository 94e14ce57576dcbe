#include "project/line_reader.h"

#include <algorithm>
#include <cstring>

#include "text/plain_integer.h"

namespace quorlin {

namespace {
constexpr int kUnknown = 0;
constexpr int kCrLf = 1;
constexpr int kLf = 2;
}  // namespace

// Moves what is left to the front and reads more behind it; grows for very long lines.
bool LineReader::fill() {
    if (eof_) return false;
    if (begin_ > 0) {
        std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
        end_ -= begin_;
        begin_ = 0;
    }
    if (end_ == buffer_.size()) buffer_.resize(buffer_.size() * 2);
    in_.read(buffer_.data() + end_, static_cast<std::streamsize>(buffer_.size() - end_));
    const auto got = static_cast<std::size_t>(in_.gcount());
    end_ += got;
    if (got == 0) eof_ = true;
    return got > 0;
}

// Where the line starting at `from` ends and where the next one begins, within the buffer.
bool LineReader::findLineEnd(std::size_t from, std::size_t& end, std::size_t& next) const {
    const char* data = buffer_.data();
    for (std::size_t i = from; i < end_; ++i) {
        const void* lf = std::memchr(data + i, '\n', end_ - i);
        if (!lf) return false;
        i = static_cast<std::size_t>(static_cast<const char*>(lf) - data);
        if (mode_ == kCrLf && (i == begin_ || data[i - 1] != '\r')) continue;
        end = mode_ == kCrLf ? i - 1 : i;
        next = i + 1;
        return true;
    }
    return false;
}

std::optional<std::int32_t> LineReader::nextPlainInteger() {
    if (mode_ == kUnknown || (end_ - begin_ < 16 && !eof_ && (fill(), end_ - begin_ < 16))) return std::nullopt;
    // A plain integer line is at most 11 characters before its line end.
    const char* first = buffer_.data() + begin_;
    const std::size_t window = std::min<std::size_t>(end_ - begin_, 13);
    const char* lf = static_cast<const char*>(std::memchr(first, '\n', window));
    if (!lf) return std::nullopt;
    const char* valueEnd = lf;
    if (mode_ == kCrLf) {
        if (valueEnd == first || valueEnd[-1] != '\r') return std::nullopt;
        --valueEnd;
    }
    const auto value = parsePlainInteger(std::string_view(first, static_cast<std::size_t>(valueEnd - first)));
    if (value) begin_ = static_cast<std::size_t>(lf + 1 - buffer_.data());
    return value;
}

bool LineReader::atEnd() { return begin_ == end_ && !fill(); }

bool LineReader::next(std::string_view& line) {
    if (atEnd()) return false;
    std::size_t searchFrom = begin_;
    for (;;) {
        if (mode_ == kUnknown) {
            const char* lf = static_cast<const char*>(std::memchr(buffer_.data() + begin_, '\n', end_ - begin_));
            if (lf) mode_ = (lf > buffer_.data() + begin_ && lf[-1] == '\r') ? kCrLf : kLf;
        }
        std::size_t lineEnd = 0;
        std::size_t nextLine = 0;
        if (mode_ != kUnknown && findLineEnd(searchFrom, lineEnd, nextLine)) {
            line = std::string_view(buffer_.data() + begin_, lineEnd - begin_);
            begin_ = nextLine;
            return true;
        }
        searchFrom = end_;
        const std::size_t consumed = begin_;
        if (!fill()) break;
        searchFrom -= consumed;
        if (searchFrom > begin_) --searchFrom;  // a CR may have ended the previous chunk
    }
    // The last line of a file need not end with a line end.
    spanning_.assign(buffer_.data() + begin_, end_ - begin_);
    begin_ = end_;
    line = spanning_;
    return true;
}

}  // namespace quorlin
