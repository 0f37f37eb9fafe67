#include "formats/LearnForms.h"

namespace tavvel {

const std::string& PreviewTable::cell(std::size_t row, std::size_t column) const {
    static const std::string none;
    if (row >= rows.size() || column >= rows[row].size())
        return none;
    return rows[row][column];
}

std::vector<std::size_t> lineStarts(std::string_view text) {
    std::vector<std::size_t> starts{0};
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n')
            ++i;
        if ((text[i] == '\n' || text[i] == '\r') && i + 1 < text.size())
            starts.push_back(i + 1);
    }
    return starts;
}

std::string_view lineAt(std::string_view text, std::size_t line) {
    const std::vector<std::size_t> starts = lineStarts(text);
    if (line >= starts.size())
        return {};
    std::string_view rest = text.substr(starts[line]);
    return rest.substr(0, rest.find_first_of("\r\n"));
}

const std::vector<LearnDateForm::StatementType>& LearnDateForm::statementTypes() {
    static const std::vector<StatementType> types{
        {"Bank", 1}, {"Credit Card", 2}, {"Investment", 0}};
    return types;
}

namespace {

// A selection inside the text, or none when it is empty or reaches past the end.
std::optional<TextSelection> within(TextSelection selection, std::string_view text) {
    if (selection.length == 0 || selection.end() > text.size())
        return std::nullopt;
    return selection;
}

} // namespace

void LearnDateForm::selectDate(TextSelection selection) {
    dateSelection = within(selection, dateView);
}

void LearnDateForm::selectMatch(TextSelection selection) {
    matchSelection = within(selection, matchView);
}

bool LearnDateForm::selectDateOnLine(std::size_t line, std::string_view text) {
    const std::vector<std::size_t> starts = lineStarts(dateView);
    if (text.empty() || line >= starts.size())
        return false;
    const std::size_t at = lineAt(dateView, line).find(text);
    if (at == std::string_view::npos)
        return false;
    dateSelection = TextSelection{starts[line] + at, text.size()};
    return true;
}

bool LearnDateForm::selectMatchText(std::string_view text) {
    const std::size_t at = text.empty() ? std::string::npos : matchView.find(text);
    if (at == std::string::npos)
        return false;
    matchSelection = TextSelection{at, text.size()};
    return true;
}

bool LearnDateForm::chooseType(std::size_t index) {
    if (index >= statementTypes().size())
        return false;
    typeIndex = index;
    return true;
}

std::string_view LearnDateForm::selectedDate() const {
    if (!dateSelection)
        return {};
    return std::string_view(dateView).substr(dateSelection->start, dateSelection->length);
}

std::string_view LearnDateForm::selectedMatch() const {
    if (!matchSelection)
        return {};
    return std::string_view(matchView).substr(matchSelection->start, matchSelection->length);
}

const std::vector<std::string_view>& LearnLayoutForm::layoutTitles() {
    static const std::vector<std::string_view> titles{"Fields after initial blanks",
                                                      "Columns (tabs or blanks)",
                                                      "Count of fields",
                                                      "Tabs only",
                                                      "Multiple blanks",
                                                      "Comma-separated (CSV)",
                                                      "Columns at the date's place",
                                                      "Semicolon-separated"};
    return titles;
}

bool LearnLayoutForm::chooseLayout(int choice) {
    if (choice < 0 || static_cast<std::size_t>(choice) >= layoutTitles().size())
        return false;
    layout.choice = choice;
    refresh();
    return true;
}

void LearnLayoutForm::setOneTransactionPerLine(bool on) {
    layout.oneTransactionPerLine = on;
    refresh();
}

void LearnLayoutForm::setNonUScharacters(bool on) {
    layout.nonUScharacters = on;
    refresh();
}

void LearnLayoutForm::refresh() {
    if (rebuild)
        preview = rebuild(layout);
}

bool LearnQuestionForm::selectColumn(std::size_t column) {
    if (column >= columnTitles.size())
        return false;
    selectedColumn = column;
    return true;
}

bool LearnQuestionForm::selectCellText(std::size_t row, std::size_t column, std::string_view text) {
    if (text.empty() || table.cell(row, column).find(text) == std::string::npos)
        return false;
    selectedRow = row;
    selectedText = CellText{row, column, std::string(text)};
    return true;
}

void LearnQuestionForm::typeSecurity(std::string text) {
    securityText = std::move(text);
    if (securityVisible)
        okEnabled = !securityText.empty();
}

void LearnQuestionForm::clearSelection() {
    selectedRow = 0;
    selectedColumn.reset();
    selectedText.reset();
}

} // namespace tavvel
