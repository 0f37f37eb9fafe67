#include "forms/TableEditor.h"

#include <algorithm>
#include <functional>

namespace tavvel {

TableEditor::TableEditor(Array rows, std::vector<std::string> columns, Check check)
    : rows_(std::move(rows)), columns_(std::move(columns)), check_(std::move(check)) {}

void TableEditor::shapeColumn(std::string_view column, Shape shape) {
    shapes_.emplace_back(std::string(column), std::move(shape));
}

std::string TableEditor::headingOf(std::string_view column) const {
    for (const auto& [key, shape] : shapes_)
        if (key == column)
            return shape.heading;
    return std::string(column);
}

const std::vector<std::string>& TableEditor::choicesOf(std::string_view column) const {
    static const std::vector<std::string> none;
    for (const auto& [key, shape] : shapes_)
        if (key == column)
            return shape.choices;
    return none;
}

Value TableEditor::cell(std::size_t row, std::string_view column) const {
    if (row >= rows_.size())
        return {};
    const Value& entry = rows_[row];
    if (!entry.isDictionary())
        return entry;
    const Value* value = find(entry.dictionary(), column);
    return value ? *value : Value();
}

std::string TableEditor::cellText(std::size_t row, std::string_view column) const {
    return cell(row, column).text();
}

bool TableEditor::passes(const Value& row) {
    message_.clear();
    if (!check_)
        return true;
    if (auto refusal = check_(row)) {
        message_ = *refusal;
        return false;
    }
    return true;
}

bool TableEditor::addRow(Value row) {
    if (onlyRemoval_ || !passes(row))
        return false;
    rows_.push_back(std::move(row));
    return true;
}

bool TableEditor::addEmptyRow() {
    if (columns_.empty())
        return addRow(Value(""));
    Dictionary record;
    for (const std::string& column : columns_)
        record.emplace(column, Value(""));
    return addRow(Value(std::move(record)));
}

bool TableEditor::setCell(std::size_t row, std::string_view column, Value value) {
    message_.clear();
    if (onlyRemoval_ || row >= rows_.size())
        return false;
    Value changed = rows_[row];
    if (Dictionary* record = changed.get<Dictionary>())
        record->insert_or_assign(std::string(column), std::move(value));
    else
        changed = std::move(value);
    if (changed == rows_[row])
        return true;
    if (!passes(changed))
        return false;
    rows_[row] = std::move(changed);
    return true;
}

void TableEditor::removeRows(std::vector<std::size_t> rows) {
    std::sort(rows.begin(), rows.end(), std::greater<>());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    for (std::size_t row : rows)
        if (row < rows_.size())
            rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row));
}

} // namespace tavvel
