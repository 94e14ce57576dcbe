#include "track/interval_total.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

#include "text/value_of_text.h"

namespace quorlin {

namespace {

using C = Ctl;

constexpr double kLongestInterval = 65535;

bool isZeroText(const EntryForm& form, Ctl field) { return form.text(field) == "0"; }

double valueOf(const EntryForm& form, Ctl field) { return leadingNumber(form.text(field)); }

bool fitsInt32(double total) {
    return std::isfinite(total) && total >= std::numeric_limits<std::int32_t>::min() &&
           total <= std::numeric_limits<std::int32_t>::max();
}

TotalCheck judge(double total) {
    if (!fitsInt32(total)) return TotalCheck::Overflow;
    return total > kLongestInterval ? TotalCheck::TooLong : TotalCheck::Fits;
}

// A 32-bit running total to which each part is added as a rounded whole number.
class WholeTotal {
public:
    void add(double part) {
        const std::optional<std::int32_t> whole = toInt32(part);
        if (!whole) ok_ = false;
        if (!ok_) return;
        sum_ += *whole;
        ok_ = fitsInt32(static_cast<double>(sum_));
    }
    TotalCheck result() const { return ok_ ? judge(static_cast<double>(sum_)) : TotalCheck::Overflow; }

private:
    std::int64_t sum_ = 0;
    bool ok_ = true;
};

}  // namespace

// The seconds and milliseconds count even for a random interval, with whatever they hold.
TotalCheck checkAddingTotal(const EntryForm& form) {
    if (isZeroText(form, C::txtMinutes)) return TotalCheck::Fits;
    WholeTotal total;
    if (!form.selected(C::optRandom)) total.add(valueOf(form, C::txtMinutes) * 60 * 1000);
    if (!isZeroText(form, C::txtSeconds)) total.add(valueOf(form, C::txtSeconds) * 1000);
    if (!isZeroText(form, C::txtMiliseconds)) total.add(valueOf(form, C::txtMiliseconds));
    return total.result();
}

// The random bounds enter as seconds would be typed, unconverted; the custom parts stay real.
TotalCheck checkUpdatingTotal(const EntryForm& form, RandomSource& random) {
    if (form.selected(C::optRandom))
        return judge(std::floor(valueOf(form, C::txtToSec) * random.next() + valueOf(form, C::txtFromSec)));
    double total = 0;
    if (!isZeroText(form, C::txtMinutes)) total += valueOf(form, C::txtMinutes) * 60 * 1000;
    if (!isZeroText(form, C::txtSeconds)) total += valueOf(form, C::txtSeconds) * 1000;
    if (!isZeroText(form, C::txtMiliseconds)) total += valueOf(form, C::txtMiliseconds);
    return judge(total);
}

}  // namespace quorlin
