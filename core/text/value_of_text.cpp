#include "text/value_of_text.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace quorlin {

namespace {

bool isPassedOver(char c) { return c == ' ' || c == '\t' || c == '\n'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

int digitValue(char c) {
    if (isDigit(c)) return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return 99;
}

// Reads the characters of a text one by one, skipping those that do not count.
class Cursor {
public:
    Cursor(std::string_view text, bool skipBlanks) : text_(text), skip_(skipBlanks) {}
    char peek() {
        if (skip_)
            while (pos_ < text_.size() && isPassedOver(text_[pos_])) ++pos_;
        return pos_ < text_.size() ? text_[pos_] : '\0';
    }
    void advance() { ++pos_; }
    bool atEnd() { return peek() == '\0' && pos_ >= text_.size(); }
    std::size_t position() const { return pos_; }

private:
    std::string_view text_;
    bool skip_;
    std::size_t pos_ = 0;
};

// Whole numbers written "&H..." or "&O...": up to 16 bits they wrap like a 16-bit
// integer (&HFFFF is -1), up to 32 bits like a 32-bit one; longer ones overflow.
double radixNumber(Cursor& in, int radix) {
    std::uint64_t value = 0;
    int digits = 0;
    while (digitValue(in.peek()) < radix) {
        value = value * static_cast<std::uint64_t>(radix) + static_cast<std::uint64_t>(digitValue(in.peek()));
        in.advance();
        if (++digits > 22) return std::numeric_limits<double>::infinity();
    }
    if (value <= 0xFFFF) return static_cast<std::int16_t>(static_cast<std::uint16_t>(value));
    if (value <= 0xFFFFFFFF) return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
    return std::numeric_limits<double>::infinity();
}

// Collects "[sign]digits[.digits][e[sign]digits]" in the plain form from_chars reads.
// The decimal point may be any of the given separators.
struct DecimalScan {
    std::string plain;
    bool anyDigit = false;
};

bool takeSeparator(Cursor& in, std::string_view text, std::string_view separator) {
    if (separator.empty()) return false;
    std::size_t at = in.position();
    if (text.substr(at, separator.size()) != separator) return false;
    for (std::size_t i = 0; i < separator.size(); ++i) in.advance();
    return true;
}

DecimalScan scanDecimal(Cursor& in, std::string_view text, std::string_view localeSeparator) {
    DecimalScan scan;
    if (in.peek() == '+' || in.peek() == '-') {
        if (in.peek() == '-') scan.plain += '-';
        in.advance();
    }
    auto digits = [&] {
        while (isDigit(in.peek())) {
            scan.plain += in.peek();
            scan.anyDigit = true;
            in.advance();
        }
    };
    // The digits' last look ahead has passed over the blanks before the separator.
    digits();
    if (takeSeparator(in, text, ".") || takeSeparator(in, text, localeSeparator)) {
        scan.plain += '.';
        digits();
    }
    char e = in.peek();
    if (scan.anyDigit && (e == 'e' || e == 'E' || e == 'd' || e == 'D')) {
        const Cursor beforeExponent = in;
        in.advance();
        std::string exponent = "e";
        if (in.peek() == '+' || in.peek() == '-') {
            if (in.peek() == '-') exponent += '-';
            in.advance();
        }
        bool exponentDigits = false;
        while (isDigit(in.peek())) {
            exponent += in.peek();
            exponentDigits = true;
            in.advance();
        }
        if (exponentDigits) scan.plain += exponent;
        else in = beforeExponent;
    }
    return scan;
}

double parsePlain(const std::string& plain) {
    double value = 0;
    auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (error == std::errc::result_out_of_range)
        return plain.find("e-") != std::string::npos ? 0.0 : std::numeric_limits<double>::infinity();
    return end == plain.data() ? 0.0 : value;
}

// "&H"/"&O" prefix: the radix, or 0 when the text does not start with one.
int radixPrefix(Cursor& in, std::string_view text) {
    if (in.peek() != '&') return 0;
    std::size_t at = in.position();
    if (at + 1 >= text.size()) return 0;
    char kind = text[at + 1];
    if (kind == 'H' || kind == 'h') return 16;
    if (kind == 'O' || kind == 'o') return 8;
    return 0;
}

}  // namespace

double leadingNumber(std::string_view text) {
    Cursor in(text, true);
    if (int radix = radixPrefix(in, text)) {
        in.advance();
        in.advance();
        return radixNumber(in, radix);
    }
    DecimalScan scan = scanDecimal(in, text, ".");
    return scan.anyDigit ? parsePlain(scan.plain) : 0.0;
}

std::optional<double> wholeNumber(std::string_view text, const NumberLocale& locale) {
    auto blank = [](char c) { return c == ' ' || c == '\t'; };
    while (!text.empty() && blank(text.front())) text.remove_prefix(1);
    while (!text.empty() && blank(text.back())) text.remove_suffix(1);
    if (text.empty()) return std::nullopt;

    Cursor in(text, false);
    double value = 0;
    if (int radix = radixPrefix(in, text)) {
        in.advance();
        in.advance();
        if (digitValue(in.peek()) >= radix) return std::nullopt;
        value = radixNumber(in, radix);
    } else {
        DecimalScan scan = scanDecimal(in, text, locale.decimalSeparator);
        if (!scan.anyDigit) return std::nullopt;
        value = parsePlain(scan.plain);
    }
    if (!in.atEnd() || !std::isfinite(value)) return std::nullopt;
    return value;
}

double roundHalfEven(double value) {
    double below = std::floor(value);
    double fraction = value - below;
    if (fraction > 0.5) return below + 1;
    if (fraction < 0.5) return below;
    return std::fmod(below, 2.0) == 0.0 ? below : below + 1;
}

namespace {
template <typename Int>
std::optional<Int> toInt(double value) {
    if (!std::isfinite(value)) return std::nullopt;
    double rounded = roundHalfEven(value);
    if (rounded < static_cast<double>(std::numeric_limits<Int>::min()) ||
        rounded > static_cast<double>(std::numeric_limits<Int>::max()))
        return std::nullopt;
    return static_cast<Int>(rounded);
}
}  // namespace

std::optional<std::int16_t> toInt16(double value) { return toInt<std::int16_t>(value); }
std::optional<std::int32_t> toInt32(double value) { return toInt<std::int32_t>(value); }

std::int32_t clampToInt32(double value) {
    if (auto whole = toInt32(value)) return *whole;
    return value < 0 ? std::numeric_limits<std::int32_t>::min() : std::numeric_limits<std::int32_t>::max();
}

}  // namespace quorlin
