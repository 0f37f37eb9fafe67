#pragma once
// The three forms of the dialogue that learns an input format from a sample statement, as form
// models: the date and statement type, the layout with its live preview, and the questions
// answered by selecting columns or texts in the table of the sample's fields. Front ends show
// the state and forward the user's selections; the learning engine (formats/LearnFormat.h)
// decides what each button does.

#include "dialogs/Dialogs.h"
#include "dialogs/FieldEdit.h"
#include "formats/Extract.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavvel {

// The sample cut into fields: one row a transaction, `columns` cells wide.
struct PreviewTable {
    std::vector<std::vector<std::string>> rows;
    std::size_t columns = 0;

    // The cell, or "" where the row has fewer fields.
    const std::string& cell(std::size_t row, std::size_t column) const;
};

// The offsets where the lines of a text begin; a line ends at LF, CR LF or a lone CR.
std::vector<std::size_t> lineStarts(std::string_view text);
// The line at the 0-based index, without its line end.
std::string_view lineAt(std::string_view text, std::size_t line);

class LearnDateForm {
public:
    struct StatementType {
        std::string_view title;
        int tag; // 0 chooses the investment questions, any other the bank and credit-card ones
    };
    static const std::vector<StatementType>& statementTypes();

    std::string title;
    // From the start of the line of the earliest date on: where the user marks a date.
    std::string dateView;
    // The whole text: where the user marks the text that identifies the bank's statements.
    std::string matchView;
    std::optional<TextSelection> dateSelection;
    std::optional<TextSelection> matchSelection;
    std::size_t typeIndex = 0;
    bool dayBeforeMonth = false;
    bool firstLineStartsWithTransactionDate = false;

    void selectDate(TextSelection selection);
    // A selection made in the match view; an empty one selects nothing.
    void selectMatch(TextSelection selection);
    // The first occurrence of the text on the date view's line (0-based); false when the line
    // does not hold it.
    bool selectDateOnLine(std::size_t line, std::string_view text);
    // The first occurrence of the text in the match view; false when it is not there.
    bool selectMatchText(std::string_view text);
    bool chooseType(std::size_t index);

    std::string_view selectedDate() const;
    std::string_view selectedMatch() const;
    const StatementType& type() const { return statementTypes()[typeIndex]; }
};

class LearnLayoutForm {
public:
    // The layout pop-up's items, in the order of LayoutChoice::choice.
    static const std::vector<std::string_view>& layoutTitles();

    std::string title;
    LayoutChoice layout;
    PreviewTable preview;

    // The engine's rebuild of the preview for a choice, called after every change.
    std::function<PreviewTable(const LayoutChoice&)> rebuild;

    bool chooseLayout(int choice);
    void setOneTransactionPerLine(bool on);
    void setNonUScharacters(bool on);
    void refresh();
};

class LearnQuestionForm {
public:
    struct CellText {
        std::size_t row = 0;
        std::size_t column = 0;
        std::string text;
    };

    std::string title;
    std::string prompt;
    PreviewTable table;
    // One title a column of the table: the item it was given, "" while free.
    std::vector<std::string> columnTitles;
    std::size_t selectedRow = 0;
    std::optional<std::size_t> selectedColumn;
    std::optional<CellText> selectedText;
    bool expectsColumn = false;
    bool answersYesNo = false; // Yes and No instead of OK
    bool okEnabled = true;
    bool securityVisible = false;
    std::string securityText;
    std::string fieldMatchSummary;

    bool selectColumn(std::size_t column);
    // A text selected inside the cell; false when the cell does not hold it.
    bool selectCellText(std::size_t row, std::size_t column, std::string_view text);
    // OK waits for text in the security field while the field is shown.
    void typeSecurity(std::string text);
    void clearSelection();
};

} // namespace tavvel
