#pragma once
// Split tables in the terminal: the rows printed with their category warnings, and one
// `split` command (add, set, remove) forwarding to whichever form holds the table.

#include "FormCommands.h"
#include "forms/SplitTable.h"

#include <functional>
#include <ostream>
#include <string>

namespace tavvel {

// How a form edits one of its split tables.
struct SplitEditing {
    std::string name; // the command: "split", "amount-split"
    std::function<std::size_t()> rows;
    std::function<void()> addRow; // a blank row at the end
    std::function<void(std::size_t row, SplitColumn column, std::string text)> setCell;
    std::function<void(std::size_t row)> removeRow;
};

// The rows, numbered from 1, each with the warning under its category ("" for none).
void printSplits(std::ostream& out, const SplitTable& table,
                 const std::function<std::string(std::size_t row)>& warning);

// split add CATEGORY AMOUNT [MEMO] | set N category|memo|amount TEXT | remove N. A row is
// added blank and then filled cell by cell, amount last, as typing into the table would.
FormCommand splitCommand(SplitEditing editing, std::string help);

} // namespace tavvel
