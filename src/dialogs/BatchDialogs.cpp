#include "dialogs/BatchDialogs.h"

#include <algorithm>

namespace tavvel {

void BatchDialogs::keep(BatchMessage message) {
    messages_.push_back(std::move(message));
    if (listener_)
        listener_(messages_.back());
}

void BatchDialogs::alert(const std::string& title, const std::string& text) {
    keep({title, text, {}, false});
}

std::size_t BatchDialogs::ask(const std::string& title, const std::string& text,
                              const std::vector<std::string>& buttons) {
    keep({title, text, buttons, true});
    return 0;
}

std::size_t BatchDialogs::questionsAsked() const {
    return static_cast<std::size_t>(std::count_if(
        messages_.begin(), messages_.end(), [](const BatchMessage& m) { return m.question; }));
}

ErrorWarningAnswer BatchDialogs::errorWarning(const std::string&, const std::string&,
                                              const std::string&, bool) {
    ++skippedErrors_;
    return {true, false};
}

CancelAnswer BatchDialogs::cancelQuestion() {
    return {CancelChoice::stopNow, false};
}

std::optional<std::string> BatchDialogs::panel(std::optional<std::string> answer) {
    ++filePanelsOpened_;
    return answer;
}

std::optional<std::string> BatchDialogs::chooseFileToOpen(const FileChoice&) {
    return panel(std::nullopt);
}

std::optional<std::string> BatchDialogs::chooseFileToSave(const FileChoice&) {
    return panel(outputPath_);
}

std::optional<std::string> BatchDialogs::chooseFileToAppendTo(const FileChoice&) {
    return panel(outputPath_);
}

} // namespace tavvel
