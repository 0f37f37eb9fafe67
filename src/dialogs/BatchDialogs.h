#pragma once
// The front end of a run without a person: nothing is ever asked. A question takes its first
// (affirmative, default) button, the forms are accepted as shown, error records are skipped,
// Cancel stops at once, and the save and append panels answer with the output path given, if
// any. What the run told is kept, and handed to a listener as it comes, for whoever shows or
// checks it.

#include "dialogs/Dialogs.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tavvel {

// One message or question of the run.
struct BatchMessage {
    std::string title;
    std::string text;
    std::vector<std::string> buttons; // those of a question; the first was taken
    bool question = false;
};

class BatchDialogs : public Dialogs {
public:
    using Listener = std::function<void(const BatchMessage&)>;

    explicit BatchDialogs(std::optional<std::string> outputPath = std::nullopt,
                          Listener listener = {})
        : outputPath_(std::move(outputPath)), listener_(std::move(listener)) {}

    void alert(const std::string& title, const std::string& text) override;
    std::size_t ask(const std::string& title, const std::string& text,
                    const std::vector<std::string>& buttons) override;
    ErrorWarningAnswer errorWarning(const std::string& message, const std::string& text,
                                    const std::string& buttonTitle, bool offerDontWarn) override;
    CancelAnswer cancelQuestion() override;
    bool acceptsFormsAsShown() const override { return true; }
    std::optional<std::string> chooseFileToOpen(const FileChoice& choice) override;
    std::optional<std::string> chooseFileToSave(const FileChoice& choice) override;
    std::optional<std::string> chooseFileToAppendTo(const FileChoice& choice) override;

    // The alerts and questions so far, in order.
    const std::vector<BatchMessage>& messages() const { return messages_; }
    std::size_t questionsAsked() const;
    // How many error records were skipped.
    std::size_t skippedErrors() const { return skippedErrors_; }
    // How many file panels were opened, of any kind.
    std::size_t filePanelsOpened() const { return filePanelsOpened_; }
    void forgetMessages() { messages_.clear(); }

private:
    void keep(BatchMessage message);
    std::optional<std::string> panel(std::optional<std::string> answer);

    std::optional<std::string> outputPath_;
    Listener listener_;
    std::vector<BatchMessage> messages_;
    std::size_t skippedErrors_ = 0;
    std::size_t filePanelsOpened_ = 0;
};

} // namespace tavvel
