#pragma once
// The new-instruction form in the terminal: printed as text (the transaction, the
// instruction part and the amount part) and answered with typed commands (save, cancel,
// as-read, match, desc, memo, category, confirm, number, splits, split, and the amount-
// commands of the amount part).

#include "dialogs/Dialogs.h"
#include "forms/NewInstructionForm.h"

#include <istream>
#include <ostream>

namespace tavvel {

// With its heading (title and prompt) when it opens; after an edit, the fields alone.
void printNewInstructionForm(const NewInstructionForm& form, std::ostream& out,
                             bool heading = true);

// End of input answers Cancel.
NewInstructionAction answerNewInstructionForm(NewInstructionForm& form, std::istream& in,
                                              std::ostream& out);

} // namespace tavvel
