// The question form in a terminal: the prompt over the table of the sample's fields; a column
// is chosen by its number, a text inside a cell by its row, its column and the text.

#include "TerminalDialogs.h"
#include "TerminalLearn.h"

namespace tavvel {

namespace {

constexpr const char* kQuestionCommands =
    "Commands: column N | text ROW COLUMN TEXT (a text inside that cell) | none (select "
    "nothing) | security TEXT | ok (or yes | no) | back | cancel";

} // namespace

void TerminalLearn::printQuestion(const LearnQuestionForm& form) {
    out_ << "\n== " << terminalText(form.title) << " ==\n";
    printPreview(out_, form.table, form.columnTitles);
    if (!form.fieldMatchSummary.empty())
        out_ << terminalText(form.fieldMatchSummary) << "\n";
    out_ << terminalText(form.prompt) << "\n";
    if (form.securityVisible)
        out_ << "Type the security assumed when a transaction names none: security TEXT\n";
    out_ << (form.answersYesNo
                 ? "Answer: yes | no | back | cancel"
                 : "Answer: column N | text ROW COLUMN TEXT | none | ok | back | cancel")
         << "\n";
}

LearnAction TerminalLearn::question(LearnQuestionForm& form) {
    printQuestion(form);
    while (true) {
        std::optional<Command> command = read(kQuestionCommands);
        if (!command)
            return LearnAction::cancel;
        if (form.answersYesNo && (command->word == "yes" || command->word == "no"))
            return command->word == "yes" ? LearnAction::yes : LearnAction::no;
        if (auto pressed = button(*command, true)) {
            if (*pressed == LearnAction::ok && (form.answersYesNo || !form.okEnabled)) {
                out_ << (form.answersYesNo ? "Answer yes or no.\n" : "Type the security first.\n");
                continue;
            }
            return *pressed;
        }
        if (!questionCommand(form, *command))
            out_ << kQuestionCommands << "\n";
    }
}

bool TerminalLearn::questionCommand(LearnQuestionForm& form, const Command& command) {
    if (command.word == "column") {
        const std::optional<std::size_t> column = numberWord(command.rest);
        if (!column || !form.selectColumn(*column))
            out_ << "There is no column \"" << command.rest << "\".\n";
        return true;
    }
    if (command.word == "text") {
        std::string afterRow, text;
        const std::optional<std::size_t> row = numberWord(command.rest, &afterRow);
        const std::optional<std::size_t> column = row ? numberWord(afterRow, &text) : std::nullopt;
        if (!row || !column || text.empty())
            return false;
        if (!form.selectCellText(*row, *column, text))
            out_ << "Row " << *row + 1 << ", column " << *column + 1 << " does not hold \""
                 << terminalText(text) << "\".\n";
        return true;
    }
    if (command.word == "none") {
        form.clearSelection();
        return true;
    }
    if (command.word == "security" && form.securityVisible) {
        form.typeSecurity(command.rest);
        return true;
    }
    return false;
}

} // namespace tavvel
