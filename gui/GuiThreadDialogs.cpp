#include "GuiThreadDialogs.h"

namespace tavvel::gui {

void GuiThreadDialogs::alert(const std::string& title, const std::string& text) {
    onWindowThread([&] { dialogs_.alert(title, text); });
}

std::size_t GuiThreadDialogs::ask(const std::string& title, const std::string& text,
                                  const std::vector<std::string>& buttons) {
    return onWindowThread([&] { return dialogs_.ask(title, text, buttons); });
}

ErrorWarningAnswer GuiThreadDialogs::errorWarning(const std::string& message,
                                                  const std::string& text,
                                                  const std::string& buttonTitle,
                                                  bool offerDontWarn) {
    return onWindowThread(
        [&] { return dialogs_.errorWarning(message, text, buttonTitle, offerDontWarn); });
}

CancelAnswer GuiThreadDialogs::cancelQuestion() {
    return onWindowThread([&] { return dialogs_.cancelQuestion(); });
}

ConfirmAction GuiThreadDialogs::confirmTransaction(ConfirmForm& form) {
    return onWindowThread([&] { return dialogs_.confirmTransaction(form); });
}

NewInstructionAction GuiThreadDialogs::newInstruction(NewInstructionForm& form) {
    return onWindowThread([&] { return dialogs_.newInstruction(form); });
}

LearnAction GuiThreadDialogs::learnDate(LearnDateForm& form) {
    return onWindowThread([&] { return dialogs_.learnDate(form); });
}

LearnAction GuiThreadDialogs::learnLayout(LearnLayoutForm& form) {
    return onWindowThread([&] { return dialogs_.learnLayout(form); });
}

LearnAction GuiThreadDialogs::learnQuestion(LearnQuestionForm& form) {
    return onWindowThread([&] { return dialogs_.learnQuestion(form); });
}

std::optional<std::string> GuiThreadDialogs::chooseFileToOpen(const FileChoice& choice) {
    return onWindowThread([&] { return dialogs_.chooseFileToOpen(choice); });
}

std::optional<std::string> GuiThreadDialogs::chooseFileToSave(const FileChoice& choice) {
    return onWindowThread([&] { return dialogs_.chooseFileToSave(choice); });
}

std::optional<std::string> GuiThreadDialogs::chooseFileToAppendTo(const FileChoice& choice) {
    return onWindowThread([&] { return dialogs_.chooseFileToAppendTo(choice); });
}

} // namespace tavvel::gui
