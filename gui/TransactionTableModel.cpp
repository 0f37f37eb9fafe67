#include "TransactionTableModel.h"

#include "Text.h"
#include "app/StatementTable.h"

#include <QBrush>
#include <QColor>

namespace tavvel::gui {

namespace {

// Error records stand out in the same colour in a light and a dark palette.
const QColor kErrorBackground(0xF4, 0xC7, 0xC3);
const QColor kErrorText(0x5C, 0x0A, 0x0A);

} // namespace

TransactionTableModel::TransactionTableModel(const StatementTable& table, QObject* parent)
    : QAbstractTableModel(parent), table_(table) {}

void TransactionTableModel::reset() {
    beginResetModel();
    endResetModel();
}

int TransactionTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(table_.size());
}

int TransactionTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns;
}

// An error record shows its message where the description goes, and the text it was read
// from beside it.
QVariant TransactionTableModel::text(std::size_t row, int column) const {
    const StatementRow& record = table_.row(row);
    if (record.isError() && column == description)
        return qt(record.errorMessage);
    if (record.isError() && column == memo)
        return qt(record.description);
    switch (column) {
    case date:
        return qt(table_.date(row));
    case amount:
        return qt(table_.amount(row));
    case number:
        return qt(record.number);
    case description:
        return qt(table_.description(row));
    case memo:
        return qt(table_.memo(row));
    default:
        return qt(table_.category(row));
    }
}

QVariant TransactionTableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || static_cast<std::size_t>(index.row()) >= table_.size())
        return {};
    auto row = static_cast<std::size_t>(index.row());
    bool error = table_.row(row).isError();
    switch (role) {
    case Qt::DisplayRole:
        return text(row, index.column());
    case Qt::ToolTipRole:
        return error ? qt(table_.row(row).errorMessage + table_.row(row).description) : QVariant();
    case Qt::BackgroundRole:
        return error ? QBrush(kErrorBackground) : QVariant();
    case Qt::ForegroundRole:
        return error ? QBrush(kErrorText) : QVariant();
    case Qt::TextAlignmentRole:
        return index.column() == amount ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
    default:
        return {};
    }
}

QVariant TransactionTableModel::headerData(int section, Qt::Orientation orientation,
                                           int role) const {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return QAbstractTableModel::headerData(section, orientation, role);
    static const char* titles[] = {"Date", "Amount", "Number", "Description", "Memo", "Category"};
    return section >= 0 && section < columns ? tr(titles[section]) : QVariant();
}

} // namespace tavvel::gui
