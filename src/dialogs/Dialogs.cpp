#include "dialogs/Dialogs.h"

namespace tavvel {

ConfirmAction Dialogs::confirmTransaction(ConfirmForm& /*form*/) {
    return ConfirmAction::ok;
}

NewInstructionAction Dialogs::newInstruction(NewInstructionForm& /*form*/) {
    return NewInstructionAction::useAsRead;
}

LearnAction Dialogs::learnDate(LearnDateForm& /*form*/) {
    return LearnAction::cancel;
}

LearnAction Dialogs::learnLayout(LearnLayoutForm& /*form*/) {
    return LearnAction::cancel;
}

LearnAction Dialogs::learnQuestion(LearnQuestionForm& /*form*/) {
    return LearnAction::cancel;
}

} // namespace tavvel
