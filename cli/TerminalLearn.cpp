// What the terminal's learning forms share: reading commands, the buttons, the preview table,
// and the dispatch from the terminal front end.

#include "TerminalLearn.h"

#include "ShownText.h"
#include "TerminalDialogs.h"

#include <algorithm>
#include <cctype>

namespace tavvel {

namespace {

constexpr std::size_t kCellWidth = 24;
constexpr std::size_t kShownRows = 30;

std::string trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t\r");
    if (first == std::string::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

std::string fitted(const std::string& cell, std::size_t width) {
    return fittedText(terminalText(cell), width);
}

// The widest cell of each column, in the characters shown.
std::vector<std::size_t> shownWidths(const PreviewTable& table) {
    std::vector<std::size_t> widths(table.columns, 0);
    for (const auto& row : table.rows)
        for (std::size_t c = 0; c < row.size() && c < widths.size(); ++c)
            widths[c] = std::max(widths[c], shownWidth(terminalText(row[c])));
    return widths;
}

} // namespace

std::optional<bool> switchWord(const std::string& word) {
    if (word == "yes" || word == "on")
        return true;
    if (word == "no" || word == "off")
        return false;
    return std::nullopt;
}

std::optional<std::size_t> numberWord(const std::string& text, std::string* rest) {
    std::size_t digits = 0;
    while (digits < text.size() && digits < 9 &&
           std::isdigit(static_cast<unsigned char>(text[digits])))
        ++digits;
    if (digits == 0 || (digits < text.size() && text[digits] != ' '))
        return std::nullopt;
    const std::size_t number = std::stoul(text.substr(0, digits));
    if (number == 0)
        return std::nullopt;
    if (rest)
        *rest = digits < text.size() ? text.substr(digits + 1) : std::string();
    return number - 1;
}

std::optional<TerminalLearn::Command> TerminalLearn::read(const std::string& commands) {
    while (true) {
        out_ << "learn> " << std::flush;
        std::string line;
        if (!std::getline(in_, line))
            return std::nullopt;
        line = trimmed(line);
        if (line.empty() || line.front() == '#')
            continue;
        const std::size_t space = line.find(' ');
        Command command{line.substr(0, space),
                        space == std::string::npos ? "" : trimmed(line.substr(space + 1))};
        if (command.word == "help" || command.word == "?") {
            out_ << commands << "\n";
            continue;
        }
        return command;
    }
}

std::optional<LearnAction> TerminalLearn::button(const Command& command, bool backAllowed) const {
    if (command.word == "ok")
        return LearnAction::ok;
    if (command.word == "cancel")
        return LearnAction::cancel;
    if (command.word == "back" && backAllowed)
        return LearnAction::back;
    return std::nullopt;
}

std::optional<std::string> TerminalLearn::name() {
    out_ << "\nNo stored input format fits this text.  Type a name to learn a new input format "
            "from it (Return: stop): "
         << std::flush;
    std::string line;
    if (!std::getline(in_, line))
        return std::nullopt;
    line = trimmed(line);
    return line.empty() ? std::nullopt : std::optional<std::string>(line);
}

void printPreview(std::ostream& out, const PreviewTable& table,
                  const std::vector<std::string>& titles) {
    std::vector<std::size_t> widths = shownWidths(table);
    for (std::size_t c = 0; c < widths.size(); ++c) {
        const std::size_t title = c < titles.size() ? shownWidth(terminalText(titles[c])) : 0;
        widths[c] = std::clamp<std::size_t>(std::max(widths[c], title), 3, kCellWidth);
    }
    out << "      ";
    for (std::size_t c = 0; c < widths.size(); ++c)
        out << "| " << fitted(std::to_string(c + 1), widths[c]) << " ";
    out << "\n";
    if (std::any_of(titles.begin(), titles.end(), [](const auto& t) { return !t.empty(); })) {
        out << "      ";
        for (std::size_t c = 0; c < widths.size(); ++c)
            out << "| " << fitted(c < titles.size() ? titles[c] : "", widths[c]) << " ";
        out << "\n";
    }
    const std::size_t shown = std::min(table.rows.size(), kShownRows);
    for (std::size_t r = 0; r < shown; ++r) {
        std::string number = std::to_string(r + 1);
        out << std::string(number.size() < 5 ? 5 - number.size() : 0, ' ') << number << " ";
        for (std::size_t c = 0; c < widths.size(); ++c)
            out << "| " << fitted(table.cell(r, c), widths[c]) << " ";
        out << "\n";
    }
    if (shown < table.rows.size())
        out << "      (" << table.rows.size() - shown << " more rows)\n";
}

LearnAction TerminalDialogs::learnDate(LearnDateForm& form) {
    if (batch_)
        return batch_->learnDate(form);
    return TerminalLearn(in_, out_).date(form);
}

LearnAction TerminalDialogs::learnLayout(LearnLayoutForm& form) {
    if (batch_)
        return batch_->learnLayout(form);
    return TerminalLearn(in_, out_).layout(form);
}

LearnAction TerminalDialogs::learnQuestion(LearnQuestionForm& form) {
    if (batch_)
        return batch_->learnQuestion(form);
    return TerminalLearn(in_, out_).question(form);
}

std::optional<std::string> TerminalDialogs::nameForNewFormat() {
    if (batch_)
        return std::nullopt;
    return TerminalLearn(in_, out_).name();
}

} // namespace tavvel
