#pragma once
// The confirmation form in the terminal: printed as text and answered with typed commands
// (ok, skip, skip-rest, back, cancel, swap, date, desc, memo, category, splits, split,
// add-instruction, add-amount-instruction).

#include "dialogs/Dialogs.h"
#include "forms/ConfirmForm.h"

#include <istream>
#include <ostream>

namespace tavvel {

// With its heading (title and prompt) when it opens; after an edit, the fields alone.
void printConfirmForm(const ConfirmForm& form, std::ostream& out, bool heading = true);

// End of input answers Cancel.
ConfirmAction answerConfirmForm(ConfirmForm& form, std::istream& in, std::ostream& out);

} // namespace tavvel
