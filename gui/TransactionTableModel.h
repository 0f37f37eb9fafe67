#pragma once
// The statement table's model: the rows of a StatementTable as the run will write them. Cells
// are decoded only when the view asks for them, so a statement of any length costs the view
// only its visible rows.

#include <QAbstractTableModel>

namespace tavvel {
class StatementTable;
}

namespace tavvel::gui {

class TransactionTableModel : public QAbstractTableModel {
public:
    enum Column { date, amount, number, description, memo, category, columns };

    TransactionTableModel(const StatementTable& table, QObject* parent);

    // The table's rows or its filter changed.
    void reset();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QVariant text(std::size_t row, int column) const;

    const StatementTable& table_;
};

} // namespace tavvel::gui
