#include "TerminalDialogs.h"

#include "TerminalConfirmForm.h"
#include "TerminalInstructionForm.h"
#include "app/AppTexts.h"
#include "dialogs/DialogTexts.h"
#include "dialogs/DisplayText.h"

#include <filesystem>
#include <string>

namespace tavvel {

std::string terminalText(const std::string& text) {
    std::string out = displayText(text);
    for (char& c : out)
        if (c == '\r')
            c = '\n';
    return out;
}

void TerminalDialogs::printMessage(const std::string& title, const std::string& text) {
    out_ << "\n== " << terminalText(title) << " ==\n" << terminalText(text) << "\n";
}

void TerminalDialogs::alert(const std::string& title, const std::string& text) {
    printMessage(title, text);
    out_.flush();
}

void TerminalDialogs::printChoices(const std::vector<std::string>& choices) {
    for (std::size_t i = 0; i < choices.size(); ++i)
        out_ << "  " << (i + 1) << ") " << terminalText(choices[i]) << "\n";
}

std::size_t TerminalDialogs::ask(const std::string& title, const std::string& text,
                                 const std::vector<std::string>& buttons) {
    printMessage(title, text);
    printChoices(buttons);
    if (batch_ || buttons.size() < 2) {
        std::size_t pick = batch_ ? batch_->ask(title, text, buttons) : 0;
        if (pick < buttons.size())
            out_ << "-> " << terminalText(buttons[pick]) << "\n";
        return pick;
    }
    return readChoice(buttons.size());
}

std::size_t TerminalDialogs::readChoice(std::size_t count) {
    while (true) {
        out_ << "Choose 1-" << count << " [1]: " << std::flush;
        std::string line;
        // End of input answers with the default, as pressing Return would.
        if (!std::getline(in_, line) || line.empty())
            return 0;
        try {
            std::size_t pick = std::stoul(line);
            if (pick >= 1 && pick <= count)
                return pick - 1;
        } catch (const std::exception&) {
        }
        out_ << "Please type a number from 1 to " << count << ".\n";
    }
}

std::vector<std::string> TerminalDialogs::printError(const std::string& message,
                                                     const std::string& text,
                                                     const std::string& buttonTitle,
                                                     bool offerDontWarn) {
    printMessage("Error", message + text);
    std::vector<std::string> choices{buttonTitle, "Cancel"};
    if (offerDontWarn)
        choices.push_back(buttonTitle + ", and do not warn again for this input format");
    printChoices(choices);
    return choices;
}

ErrorWarningAnswer TerminalDialogs::errorWarning(const std::string& message,
                                                 const std::string& text,
                                                 const std::string& buttonTitle,
                                                 bool offerDontWarn) {
    if (batch_) {
        // A batch run over a badly damaged file would print every record; the first ones
        // show what is wrong, and the count at the end says how many there were.
        if (batch_->skippedErrors() < kErrorsShownInBatch) {
            printError(message, text, buttonTitle, offerDontWarn);
            out_ << "-> " << terminalText(buttonTitle) << "\n";
        }
        return batch_->errorWarning(message, text, buttonTitle, offerDontWarn);
    }
    std::size_t pick = readChoice(printError(message, text, buttonTitle, offerDontWarn).size());
    if (pick != 1)
        ++skippedErrors_;
    return {pick != 1, pick == 2};
}

CancelAnswer TerminalDialogs::cancelQuestion() {
    printMessage(std::string(text::cancelQuestionTitle), std::string(text::cancelQuestion));
    const char* choices[] = {"Stop now (nothing is written)",
                             "Finish later (save a continuation file)", "Go on", "Always stop now",
                             "Always finish later"};
    for (std::size_t i = 0; i < std::size(choices); ++i)
        out_ << "  " << (i + 1) << ") " << choices[i] << "\n";
    if (batch_)
        return batch_->cancelQuestion();
    switch (readChoice(std::size(choices))) {
    case 0:
        return {CancelChoice::stopNow, false};
    case 1:
        return {CancelChoice::finishLater, false};
    case 3:
        return {CancelChoice::stopNow, true};
    case 4:
        return {CancelChoice::finishLater, true};
    default:
        return {CancelChoice::goOn, false};
    }
}

} // namespace tavvel

namespace tavvel {

// A path typed at the prompt; Return takes the fallback, end of input cancels.
std::optional<std::string> TerminalDialogs::readPath(const std::string& prompt,
                                                     const std::string& fallback) {
    out_ << prompt;
    if (!fallback.empty())
        out_ << " [" << terminalText(fallback) << "]";
    out_ << ": " << std::flush;
    std::string line;
    if (!std::getline(in_, line))
        return std::nullopt;
    if (line.empty())
        return fallback.empty() ? std::nullopt : std::optional<std::string>(fallback);
    return line;
}

std::optional<std::string> TerminalDialogs::chooseFileToOpen(const FileChoice& choice) {
    if (batch_)
        return batch_->chooseFileToOpen(choice);
    return readPath(choice.prompt.empty() ? "Open file" : choice.prompt, "");
}

std::optional<std::string> TerminalDialogs::chooseFileToSave(const FileChoice& choice) {
    // -o names the output only: a continuation file saved there would take its place.
    bool continuation = choice.extensions == std::vector<std::string>{"tvcn"};
    if (outputPath_ && !continuation)
        return outputPath_;
    // The command line is where an output file is named; without one, the name a save panel
    // would suggest, in the folder the command runs in.
    return (std::filesystem::current_path() / choice.suggestedName).string();
}

std::optional<std::string> TerminalDialogs::chooseFileToAppendTo(const FileChoice& choice) {
    if (outputPath_)
        return outputPath_;
    if (batch_)
        return batch_->chooseFileToAppendTo(choice);
    return readPath(choice.prompt.empty() ? std::string(text::appendTo) : choice.prompt, "");
}

ConfirmAction TerminalDialogs::confirmTransaction(ConfirmForm& form) {
    if (batch_)
        return batch_->confirmTransaction(form);
    return answerConfirmForm(form, in_, out_);
}

NewInstructionAction TerminalDialogs::newInstruction(NewInstructionForm& form) {
    if (batch_)
        return batch_->newInstruction(form);
    return answerNewInstructionForm(form, in_, out_);
}

bool TerminalDialogs::renameFormat(RenameFormatForm& form) {
    printMessage(std::string(RenameFormatForm::prompt()), form.name());
    auto noteDuplicate = [&] {
        if (form.duplicateNoteShown())
            out_ << terminalText(std::string(RenameFormatForm::duplicateNote())) << "\n";
    };
    noteDuplicate();
    if (batch_)
        return form.okEnabled();
    out_ << "Name [" << terminalText(form.name()) << "] (\".\" cancels): " << std::flush;
    std::string line;
    if (!std::getline(in_, line) || line.empty())
        return form.okEnabled();
    if (line == ".")
        return false;
    form.nameChanged(line);
    noteDuplicate();
    return form.okEnabled();
}

} // namespace tavvel
