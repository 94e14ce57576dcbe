#pragma once

#include "ports/dialogs.h"
#include "text/value_of_text.h"
#include "form/entry_form.h"

namespace quorlin {

// Checks the step fields before they become a track entry or start a manual run.
// Shows the first problem found and answers false; changes nothing.
bool ValidateInput(const EntryForm& form, const NumberLocale& locale, Dialogs& dialogs);

}  // namespace quorlin
