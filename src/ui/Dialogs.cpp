#include "ui/Dialogs.h"

namespace tavvel {

ConfirmAction Dialogs::confirmTransaction(ConfirmForm& /*form*/) { return ConfirmAction::ok; }

NewInstructionAction Dialogs::newInstruction(NewInstructionForm& /*form*/) {
    return NewInstructionAction::useAsRead;
}

} // namespace tavvel
