#pragma once
// Saving the new-instruction form (saveNewInstruction:): the categories of the splits, the
// instruction with its amount instruction, the category and description registrations, the
// question before replacing an instruction, and storing. Every change is on disk when the
// call returns. After `stored` the walk clears its check number and cancelReturnsToConfirm
// and runs the step again for the same transaction, which now finds the instruction.

#include "prefs/Value.h"

namespace tavvel {

class Dialogs;
class NewInstructionForm;
class TvPrefs;

enum class SaveOutcome {
    stored,
    keptOpen, // a category was refused, or the user chose not to replace an instruction
};

SaveOutcome saveNewInstruction(NewInstructionForm& form, TvPrefs& prefs, Dialogs& dialogs);

// The instruction the form describes: the working instruction with the form's match text,
// texts, switches and splits, and its amount instruction while the amount switch is on.
Dictionary instructionFromForm(const NewInstructionForm& form);

} // namespace tavvel
