#pragma once
// The statement beside the run form: the table of its transactions as the run will write
// them, the line that counts and totals them, and, while a large statement is read, a progress
// bar with a Cancel button. The run form filters the table live (refilter).

#include "app/StatementTable.h"

#include <QTimer>
#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;
class QTableView;

namespace tavvel {
class Context;
class Controller;
} // namespace tavvel

namespace tavvel::gui {

class StatementLoader;
class TransactionTableModel;

class StatementView : public QWidget {
public:
    StatementView(Context& ctx, const Controller& controller, QWidget* parent);

    // A new input was classified: its rows are read again.
    void load();
    // The run form changed: the rows are filtered and shaped again, or read again when the
    // form now reads another account of the statement.
    void refilter();
    void clear();
    // Wide enough for every column at its starting width.
    QSize sizeHint() const override;

    QTableView& table() { return *view_; }
    const StatementTable& rows() const { return table_; }
    StatementLoader& loader() { return *loader_; }
    QWidget& progress() { return *progressRow_; }
    QPushButton& cancelButton() { return *cancel_; }
    QLabel& summary() { return *summary_; }
    // How long a reading runs before its progress is shown.
    static constexpr int kProgressDelayMs = 500;

private:
    void loaded();
    void stopped();
    void showSummary();

    Context& ctx_;
    const Controller& controller_;
    StatementTable table_;
    std::optional<std::string> loadedAccount_;
    TransactionTableModel* model_ = nullptr;
    StatementLoader* loader_ = nullptr;
    QTableView* view_ = nullptr;
    QLabel* summary_ = nullptr;
    QWidget* progressRow_ = nullptr;
    QProgressBar* bar_ = nullptr;
    QPushButton* cancel_ = nullptr;
    QTimer progressDelay_;
};

} // namespace tavvel::gui
