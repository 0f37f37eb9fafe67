#pragma once
// The forms in a terminal: each is printed and answered with a short typed reply. Under
// --batch nothing is read: the messages are printed as they come, and the batch front end
// answers (every question takes its first, affirmative button).

#include "dialogs/BatchDialogs.h"
#include "knowledge/RenameFormatForm.h"

#include <istream>
#include <optional>
#include <ostream>

namespace tavvel {

class TerminalDialogs : public Dialogs {
public:
    // Under --batch only the first error records are printed; the rest are counted.
    static constexpr std::size_t kErrorsShownInBatch = 10;

    TerminalDialogs(std::istream& in, std::ostream& out, bool batch) : in_(in), out_(out) {
        if (batch)
            batch_.emplace();
    }

    // The file the command line named for the output (-o); file panels answer with it.
    // Without one, a save panel answers with its suggested name in the current folder.
    void setOutputPath(std::optional<std::string> path) { outputPath_ = std::move(path); }

    // How many error records were skipped (under --batch: every one, without asking).
    std::size_t skippedErrors() const { return batch_ ? batch_->skippedErrors() : skippedErrors_; }

    void alert(const std::string& title, const std::string& text) override;
    std::size_t ask(const std::string& title, const std::string& text,
                    const std::vector<std::string>& buttons) override;
    ErrorWarningAnswer errorWarning(const std::string& message, const std::string& text,
                                    const std::string& buttonTitle, bool offerDontWarn) override;
    CancelAnswer cancelQuestion() override;
    // Printed and answered with typed commands; under --batch accepted as shown (the
    // confirmation form) or output as read (the new-instruction form), without a word.
    ConfirmAction confirmTransaction(ConfirmForm& form) override;
    NewInstructionAction newInstruction(NewInstructionForm& form) override;
    bool acceptsFormsAsShown() const override { return batch_.has_value(); }
    std::optional<std::string> chooseFileToOpen(const FileChoice& choice) override;
    std::optional<std::string> chooseFileToSave(const FileChoice& choice) override;
    std::optional<std::string> chooseFileToAppendTo(const FileChoice& choice) override;

    // The forms of the dialogue that learns an input format, and the name asked for a new
    // format when no stored one fits (TerminalLearn*.cpp).
    LearnAction learnDate(LearnDateForm& form) override;
    LearnAction learnLayout(LearnLayoutForm& form) override;
    LearnAction learnQuestion(LearnQuestionForm& form) override;
    std::optional<std::string> nameForNewFormat();

    // The rename form of an imported input format: Return keeps the name, "." cancels; under
    // --batch the name is kept. True when the form was confirmed.
    bool renameFormat(RenameFormatForm& form);

private:
    void printMessage(const std::string& title, const std::string& text);
    void printChoices(const std::vector<std::string>& choices);
    // The error message and its choices, printed.
    std::vector<std::string> printError(const std::string& message, const std::string& text,
                                        const std::string& buttonTitle, bool offerDontWarn);
    // The number typed for one of `count` choices (0-based); Return or end of input: 0.
    std::size_t readChoice(std::size_t count);
    std::optional<std::string> readPath(const std::string& prompt, const std::string& fallback);

    std::istream& in_;
    std::ostream& out_;
    std::optional<BatchDialogs> batch_; // under --batch: what answers
    std::optional<std::string> outputPath_;
    std::size_t skippedErrors_ = 0;
};

// Text for the terminal: decoded for display, and "\r" (the program's line break) as "\n".
std::string terminalText(const std::string& text);

} // namespace tavvel
