#include "SplitTableWidget.h"

#include "Text.h"
#include "forms/SplitTable.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tavvel::gui {

namespace {

constexpr SplitColumn kColumns[] = {SplitColumn::category, SplitColumn::memo, SplitColumn::amount};

std::optional<std::size_t> rowOf(int row) {
    return row < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(row));
}

} // namespace

SplitTableBinding bindSplitTable(std::function<const SplitTable&()> table,
                                 std::function<void(std::size_t, SplitColumn, std::string)> set,
                                 std::function<void()> add, std::function<void()> deleteSelected,
                                 std::function<void(std::optional<std::size_t>)> select,
                                 std::function<std::string(std::size_t)> warning) {
    SplitTableBinding b;
    b.rows = [table] { return table().numberOfRows(); };
    b.cell = [table](std::size_t row, SplitColumn column) { return table().cellText(row, column); };
    b.setCell = std::move(set);
    b.addRow = std::move(add);
    b.select = std::move(select);
    b.deleteSelected = std::move(deleteSelected);
    b.deleteEnabled = [table] { return table().deleteEnabled(); };
    b.categoryWarning = std::move(warning);
    return b;
}

SplitTableWidget::SplitTableWidget(SplitTableBinding binding, QWidget* parent)
    : QWidget(parent), binding_(std::move(binding)), table_(new QTableWidget(0, 3, this)),
      add_(new QPushButton(tr("Add Split"), this)),
      delete_(new QPushButton(tr("Delete Split"), this)), warning_(new QLabel(this)) {
    table_->setHorizontalHeaderLabels({tr("Category"), tr("Memo"), tr("Amount")});
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    table_->verticalHeader()->hide();
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    warning_->setObjectName(QStringLiteral("splitWarning"));
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(add_);
    buttons->addWidget(delete_);
    buttons->addWidget(warning_, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(table_);
    layout->addLayout(buttons);
    connect(table_, &QTableWidget::cellChanged, this, &SplitTableWidget::cellEdited);
    connect(table_, &QTableWidget::currentCellChanged, this, [this](int row) {
        if (filling_)
            return;
        binding_.select(rowOf(row));
        delete_->setEnabled(binding_.deleteEnabled());
        showWarning();
    });
    connect(add_, &QPushButton::clicked, this, [this] {
        binding_.addRow();
        refresh();
        emit changed();
    });
    connect(delete_, &QPushButton::clicked, this, [this] {
        binding_.deleteSelected();
        refresh();
        emit changed();
    });
    refresh();
}

void SplitTableWidget::refresh() {
    filling_ = true;
    std::size_t rows = binding_.rows();
    table_->setRowCount(static_cast<int>(rows));
    // Items are updated in place: a cell's own change signal may be what asked for this.
    for (std::size_t row = 0; row < rows; ++row)
        for (int column = 0; column < 3; ++column) {
            QString text = qt(binding_.cell(row, kColumns[column]));
            QTableWidgetItem* item = table_->item(static_cast<int>(row), column);
            if (!item)
                table_->setItem(static_cast<int>(row), column, new QTableWidgetItem(text));
            else if (item->text() != text)
                item->setText(text);
        }
    filling_ = false;
    delete_->setEnabled(binding_.deleteEnabled());
    showWarning();
}

void SplitTableWidget::cellEdited(int row, int column) {
    if (filling_ || row < 0 || column < 0 || column > 2)
        return;
    binding_.setCell(static_cast<std::size_t>(row), kColumns[column],
                     core(table_->item(row, column)->text()));
    refresh();
    emit changed();
}

void SplitTableWidget::showWarning() {
    auto row = rowOf(table_->currentRow());
    std::string warning = row && *row < binding_.rows() ? binding_.categoryWarning(*row) : "";
    warning_->setText(qt(warning));
}

} // namespace tavvel::gui
