#pragma once
// The generic editable table of the list editors: a working copy of one list whose rows are
// texts (one column) or records (named columns). The desktop front end shows it as a table;
// the rules of what may be entered come from the editor that opened it.

#include "prefs/Value.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tavvel {

class TableEditor {
public:
    // A row refused gets a message; nothing means the row is fine.
    using Check = std::function<std::optional<std::string>(const Value& row)>;

    // No columns: every row is one text.
    TableEditor(Array rows, std::vector<std::string> columns = {}, Check check = {});

    // How a column is shown: its heading, and for a value that is a choice, the titles it is
    // chosen from (the cell holds the index of the title).
    struct Shape {
        std::string heading;
        std::vector<std::string> choices;
    };
    void shapeColumn(std::string_view column, Shape shape);
    // The column's heading (its key when not given).
    std::string headingOf(std::string_view column) const;
    // The titles of a choice column; empty for a column of free text.
    const std::vector<std::string>& choicesOf(std::string_view column) const;

    // A list the user may only take entries out of: rows are neither added nor changed.
    void allowOnlyRemoval() { onlyRemoval_ = true; }
    bool onlyRemoval() const { return onlyRemoval_; }

    const Array& rows() const { return rows_; }
    std::size_t numberOfRows() const { return rows_.size(); }
    const std::vector<std::string>& columns() const { return columns_; }
    // The text of a cell ("" for a cell that is not text); the column is ignored for text
    // rows.
    std::string cellText(std::size_t row, std::string_view column = {}) const;
    Value cell(std::size_t row, std::string_view column = {}) const;

    // A new row at the end (a text, or a record): false, with message() telling why, when
    // the check refuses it.
    bool addRow(Value row);
    // A new empty row at the end: "" or a record with an empty text per column.
    bool addEmptyRow();
    // Changes one cell; a changed row is checked as a new one would be.
    bool setCell(std::size_t row, std::string_view column, Value value);
    void removeRows(std::vector<std::size_t> rows);

    // Why the last change was refused; empty after one that was not.
    const std::string& message() const { return message_; }

private:
    bool passes(const Value& row);

    Array rows_;
    std::vector<std::string> columns_;
    Check check_;
    std::vector<std::pair<std::string, Shape>> shapes_;
    bool onlyRemoval_ = false;
    std::string message_;
};

} // namespace tavvel
