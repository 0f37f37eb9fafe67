#include "TerminalSplits.h"

#include "TerminalDialogs.h"

namespace tavvel {

namespace {

std::optional<SplitColumn> columnNamed(std::string_view name) {
    if (name == "category")
        return SplitColumn::category;
    if (name == "memo")
        return SplitColumn::memo;
    if (name == "amount")
        return SplitColumn::amount;
    return std::nullopt;
}

CommandReply addSplit(const SplitEditing& e, const std::vector<std::string>& words) {
    if (words.size() < 3 || words.size() > 4)
        return CommandReply::refused("A split needs a category and an amount.");
    e.addRow();
    std::size_t row = e.rows() - 1;
    e.setCell(row, SplitColumn::category, words[1]);
    if (words.size() == 4)
        e.setCell(row, SplitColumn::memo, words[3]);
    e.setCell(row, SplitColumn::amount, words[2]);
    return CommandReply::shown();
}

CommandReply setSplit(const SplitEditing& e, const std::vector<std::string>& words) {
    if (words.size() != 4)
        return CommandReply::refused("Name a row, a column and its text.");
    auto row = rowNumber(words[1], e.rows());
    auto column = columnNamed(words[2]);
    if (!row)
        return CommandReply::refused("There is no split " + words[1] + ".");
    if (!column)
        return CommandReply::refused("A split has no column \"" + words[2] + "\".");
    e.setCell(*row, *column, words[3]);
    return CommandReply::shown();
}

CommandReply removeSplit(const SplitEditing& e, const std::vector<std::string>& words) {
    auto row = words.size() == 2 ? rowNumber(words[1], e.rows()) : std::nullopt;
    if (!row)
        return CommandReply::refused("Name the split to remove by its number.");
    e.removeRow(*row);
    return CommandReply::shown();
}

} // namespace

void printSplits(std::ostream& out, const SplitTable& table,
                 const std::function<std::string(std::size_t row)>& warning) {
    for (std::size_t row = 0; row < table.numberOfRows(); ++row) {
        out << "    " << (row + 1) << ") "
            << terminalText(table.cellText(row, SplitColumn::category)) << " | "
            << terminalText(table.cellText(row, SplitColumn::memo)) << " | "
            << terminalText(table.cellText(row, SplitColumn::amount)) << "\n";
        if (std::string note = warning(row); !note.empty())
            out << "       " << note << "\n";
    }
}

FormCommand splitCommand(SplitEditing editing, std::string help) {
    std::string name = editing.name;
    std::string arguments =
        "add CATEGORY AMOUNT [MEMO] | set N category|memo|amount TEXT | remove N";
    auto run = [e = std::move(editing)](const std::string& rest) {
        std::vector<std::string> words = commandWords(rest);
        std::string verb = words.empty() ? "" : words.front();
        if (verb == "add")
            return addSplit(e, words);
        if (verb == "set")
            return setSplit(e, words);
        if (verb == "remove")
            return removeSplit(e, words);
        return CommandReply::refused("Add, set or remove a split.");
    };
    return {std::move(name), std::move(arguments), std::move(help), std::move(run)};
}

} // namespace tavvel
