// The date form in a terminal: the statement with numbered lines; the user names the line and
// the date as it stands there, the statement type and the text that identifies the bank.

#include "TerminalDialogs.h"
#include "TerminalLearn.h"

namespace tavvel {

namespace {

constexpr const char* kDateCommands =
    "Commands: date LINE TEXT (the date that starts a transaction, as it stands on that line; "
    "not the first one shown) | match TEXT (a text found in every statement of this bank) | "
    "type 1-3 | dayfirst yes|no | firstline yes|no (the text starts with a transaction) | ok | "
    "cancel";

// The number of lines of the whole text before the first line of the date view.
std::size_t linesBeforeDates(const LearnDateForm& form) {
    const std::size_t all = lineStarts(form.matchView).size();
    const std::size_t dates = form.dateView.empty() ? 0 : lineStarts(form.dateView).size();
    return all > dates ? all - dates : 0;
}

const char* word(bool on) {
    return on ? "yes" : "no";
}

} // namespace

void TerminalLearn::printDate(const LearnDateForm& form) {
    out_ << "\n== " << terminalText(form.title) << " ==\n";
    const std::size_t count = lineStarts(form.matchView).size();
    for (std::size_t line = 0; line < count; ++line)
        out_ << (line + 1 < 10     ? "   "
                 : line + 1 < 100  ? "  "
                 : line + 1 < 1000 ? " "
                                   : "")
             << line + 1 << "  " << terminalText(std::string(lineAt(form.matchView, line))) << "\n";
    out_ << "Statement type:";
    const auto& types = LearnDateForm::statementTypes();
    for (std::size_t i = 0; i < types.size(); ++i)
        out_ << "  " << (i == form.typeIndex ? "*" : "") << i + 1 << ") " << types[i].title;
    out_ << "\nDay before month: " << word(form.dayBeforeMonth)
         << "   First line starts with a transaction date: "
         << word(form.firstLineStartsWithTransactionDate) << "\nMatch: "
         << (form.matchSelection ? "\"" + terminalText(std::string(form.selectedMatch())) + "\""
                                 : "(none)")
         << "\nDate: "
         << (form.dateSelection ? "\"" + terminalText(std::string(form.selectedDate())) + "\""
                                : "(none)")
         << "\n"
         << kDateCommands << "\n";
}

LearnAction TerminalLearn::date(LearnDateForm& form) {
    printDate(form);
    while (true) {
        std::optional<Command> command = read(kDateCommands);
        if (!command)
            return LearnAction::cancel;
        if (auto pressed = button(*command, false))
            return *pressed;
        if (!dateCommand(form, *command))
            out_ << kDateCommands << "\n";
    }
}

bool TerminalLearn::dateCommand(LearnDateForm& form, const Command& command) {
    if (command.word == "date") {
        std::string text;
        const std::optional<std::size_t> line = numberWord(command.rest, &text);
        const std::size_t before = linesBeforeDates(form);
        if (!line || text.empty())
            return false;
        if (*line < before || !form.selectDateOnLine(*line - before, text))
            out_ << "Line " << *line + 1 << " does not hold \"" << terminalText(text)
                 << "\"; the dates start at line " << before + 1 << ".\n";
        return true;
    }
    if (command.word == "match") {
        if (!form.selectMatchText(command.rest))
            out_ << "The statement does not hold \"" << terminalText(command.rest) << "\".\n";
        return true;
    }
    if (command.word == "type") {
        const std::optional<std::size_t> index = numberWord(command.rest);
        return index && form.chooseType(*index);
    }
    const std::optional<bool> on = switchWord(command.rest);
    if (command.word == "dayfirst" && on)
        form.dayBeforeMonth = *on;
    else if (command.word == "firstline" && on)
        form.firstLineStartsWithTransactionDate = *on;
    else
        return false;
    return true;
}

} // namespace tavvel
