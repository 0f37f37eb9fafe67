#pragma once
// The instruction and amount choosers' text field, which can only name existing entries.
// Every keystroke completes to the shortest entry that begins with the typed text (the
// completed part selected after the typed characters); an edit that no entry begins with is
// refused. Delete over a completed part that runs to the end widens the selection by one
// character to the left instead of completing again, so that deleting works; at the very
// start of the field it is refused.

#include "dialogs/Completion.h"
#include "dialogs/FieldEdit.h"

namespace tavvel {

FieldOutcome editExistingEntry(const FieldEdit& edit, const Completer& complete);

} // namespace tavvel
