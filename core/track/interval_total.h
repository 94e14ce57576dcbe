#pragma once

#include "ports/random_source.h"
#include "form/entry_form.h"

namespace quorlin {

enum class TotalCheck {
    Fits,
    // Longer than a step's 65535 ms.
    TooLong,
    // The total cannot even be held in 32 bits.
    Overflow,
};

// The total an added step is checked with; the minutes text "0" skips the check.
TotalCheck checkAddingTotal(const EntryForm& form);
// The total an updated step is checked with; a random interval draws its total.
TotalCheck checkUpdatingTotal(const EntryForm& form, RandomSource& random);

}  // namespace quorlin
