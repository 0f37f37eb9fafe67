// The layout form in a terminal: the layouts by number, the two switches, and the preview of
// the sample cut with the layout chosen, printed again after every change.

#include "TerminalDialogs.h"
#include "TerminalLearn.h"

namespace tavvel {

namespace {

constexpr const char* kLayoutCommands =
    "Commands: layout 1-8 | oneline yes|no (one transaction a line) | nonus yes|no (bytes "
    "beyond ASCII are field characters) | ok (every field stands in its own column) | back | "
    "cancel";

} // namespace

void TerminalLearn::printLayout(const LearnLayoutForm& form) {
    out_ << "\n== " << terminalText(form.title) << " ==\nLayout:";
    const auto& titles = LearnLayoutForm::layoutTitles();
    for (std::size_t i = 0; i < titles.size(); ++i)
        out_ << (i % 4 == 0 ? "\n  " : "  ")
             << (static_cast<int>(i) == form.layout.choice ? "*" : " ") << i + 1 << ") "
             << titles[i];
    out_ << "\nOne transaction a line: " << (form.layout.oneTransactionPerLine ? "yes" : "no")
         << "   Bytes beyond ASCII in fields: " << (form.layout.nonUScharacters ? "yes" : "no")
         << "\n";
    printPreview(out_, form.preview, {});
    out_ << kLayoutCommands << "\n";
}

LearnAction TerminalLearn::layout(LearnLayoutForm& form) {
    printLayout(form);
    while (true) {
        std::optional<Command> command = read(kLayoutCommands);
        if (!command)
            return LearnAction::cancel;
        if (auto pressed = button(*command, true))
            return *pressed;
        if (layoutCommand(form, *command))
            printLayout(form);
        else
            out_ << kLayoutCommands << "\n";
    }
}

bool TerminalLearn::layoutCommand(LearnLayoutForm& form, const Command& command) {
    if (command.word == "layout") {
        const std::optional<std::size_t> choice = numberWord(command.rest);
        return choice && form.chooseLayout(static_cast<int>(*choice));
    }
    const std::optional<bool> on = switchWord(command.rest);
    if (command.word == "oneline" && on)
        form.setOneTransactionPerLine(*on);
    else if (command.word == "nonus" && on)
        form.setNonUScharacters(*on);
    else
        return false;
    return true;
}

} // namespace tavvel
