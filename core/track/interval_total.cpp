#include "track/interval_total.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

#include "model/interval_rules.h"
#include "text/value_of_text.h"

namespace quorlin {

namespace {

using C = Ctl;

bool isZeroText(const EntryForm& form, Ctl field) { return form.text(field) == "0"; }

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
    if (!form.selected(C::optRandom)) total.add(form.valueOf(C::txtMinutes) * 60 * 1000);
    if (!isZeroText(form, C::txtSeconds)) total.add(form.valueOf(C::txtSeconds) * 1000);
    if (!isZeroText(form, C::txtMiliseconds)) total.add(form.valueOf(C::txtMiliseconds));
    return total.result();
}

// The random bounds enter as seconds would be typed, unconverted; the custom parts stay real.
TotalCheck checkUpdatingTotal(const EntryForm& form, RandomSource& random) {
    if (form.selected(C::optRandom))
        return judge(randomInterval(form.valueOf(C::txtFromSec), form.valueOf(C::txtToSec), random.next()));
    double total = 0;
    if (!isZeroText(form, C::txtMinutes)) total += form.valueOf(C::txtMinutes) * 60 * 1000;
    if (!isZeroText(form, C::txtSeconds)) total += form.valueOf(C::txtSeconds) * 1000;
    if (!isZeroText(form, C::txtMiliseconds)) total += form.valueOf(C::txtMiliseconds);
    return judge(total);
}

}  // namespace quorlin
