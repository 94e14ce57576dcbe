#include "form/entry_validation.h"

#include <optional>

#include "form/message_texts.h"

namespace quorlin {

namespace {

using C = Ctl;

struct Limit {
    Ctl field;
    double maximum;
    const char* message;
};

constexpr Limit kCustomLimits[] = {
    {C::txtMinutes, 1, msg::kMaxMinute},
    {C::txtSeconds, 60, msg::kMaxSeconds},
    {C::txtMiliseconds, 600, msg::kMaxMiliseconds},
};

// The first problem of the fields, or nothing when they may be used.
std::optional<const char*> firstProblem(const EntryForm& form, const NumberLocale& locale) {
    auto number = [&](Ctl field) { return wholeNumber(form.text(field), locale); };

    if (form.selected(C::optCount) && !number(C::txtCount)) return msg::kErrorInInput;
    if (!form.selected(C::optRandom)) {
        for (const Limit& limit : kCustomLimits) {
            auto value = number(limit.field);
            if (!value) return msg::kErrorInInput;
            if (*value > limit.maximum) return limit.message;
        }
    } else {
        if (!number(C::txtFromSec)) return msg::kFromSecDecimal;
        if (!number(C::txtToSec)) return msg::kToSecDecimal;
    }
    if (!number(C::txtX) || !number(C::txtY)) return msg::kErrorInInput;
    return std::nullopt;
}

}  // namespace

bool ValidateInput(const EntryForm& form, const NumberLocale& locale, Dialogs& dialogs) {
    auto problem = firstProblem(form, locale);
    if (problem) dialogs.messageBox(*problem);
    return !problem;
}

}  // namespace quorlin
