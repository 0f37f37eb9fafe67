#pragma once
// A split table (category, memo, amount) with its add and delete buttons and the warning of
// the category cell being edited. It reads every cell from its binding and forwards each
// edit, selection and button to it; refresh() shows the model again.

#include <QWidget>
#include <functional>
#include <optional>
#include <string>

class QLabel;
class QPushButton;
class QTableWidget;

namespace tavvel {
class SplitTable;
enum class SplitColumn;
} // namespace tavvel

namespace tavvel::gui {

struct SplitTableBinding {
    std::function<std::size_t()> rows;
    std::function<std::string(std::size_t row, SplitColumn column)> cell;
    std::function<void(std::size_t row, SplitColumn column, std::string text)> setCell;
    std::function<void()> addRow;
    std::function<void(std::optional<std::size_t> row)> select;
    std::function<void()> deleteSelected;
    std::function<bool()> deleteEnabled;
    std::function<std::string(std::size_t row)> categoryWarning;
};

// A binding to one of the core's SplitTables (the selection lives in the table).
SplitTableBinding bindSplitTable(std::function<const SplitTable&()> table,
                                 std::function<void(std::size_t, SplitColumn, std::string)> set,
                                 std::function<void()> add, std::function<void()> deleteSelected,
                                 std::function<void(std::optional<std::size_t>)> select,
                                 std::function<std::string(std::size_t)> warning);

class SplitTableWidget : public QWidget {
    Q_OBJECT
public:
    SplitTableWidget(SplitTableBinding binding, QWidget* parent);

    void refresh();
    QTableWidget* table() const { return table_; }

signals:
    // Something in the model changed: the form around the table shows it again.
    void changed();

private:
    void cellEdited(int row, int column);
    void showWarning();

    SplitTableBinding binding_;
    QTableWidget* table_;
    QPushButton* add_;
    QPushButton* delete_;
    QLabel* warning_;
    bool filling_ = false;
};

} // namespace tavvel::gui
