#include "ListEditorDialog.h"

#include "QtDialogs.h"
#include "Text.h"
#include "forms/ListEditors.h"
#include "knowledge/EditFormats.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <memory>
#include <set>

namespace tavvel::gui {

namespace {

std::unique_ptr<ListEditor> editorFor(ListEditorDialog::List list, TvPrefs& prefs) {
    using List = ListEditorDialog::List;
    switch (list) {
    case List::accounts:
        return std::make_unique<EditAccounts>(prefs);
    case List::categories:
        return std::make_unique<EditCategories>(prefs);
    case List::descriptions:
        return std::make_unique<EditDescriptions>(prefs);
    default:
        return std::make_unique<EditSecurities>(prefs);
    }
}

QString titleOf(ListEditorDialog::List list) {
    const char* titles[] = {"Accounts", "Categories", "Descriptions", "Securities",
                            "Input Formats"};
    return QString::fromLatin1(titles[static_cast<int>(list)]);
}

QString shown(const Value& value) {
    if (value.isString())
        return qt(value.text());
    if (value.isInteger())
        return QString::number(value.toInteger());
    return {};
}

// An edited cell keeps the kind of value it held: a number stays a number.
Value edited(const Value& before, const QString& text) {
    bool number = false;
    qlonglong parsed = text.toLongLong(&number);
    if (before.isInteger() && number)
        return Value(static_cast<std::int64_t>(parsed));
    return Value(core(text));
}

QPushButton* button(const QString& title, QWidget* parent) {
    auto* pushed = new QPushButton(title, parent);
    pushed->setAutoDefault(false);
    return pushed;
}

} // namespace

void ListEditorDialog::edit(List list, TvPrefs& prefs, QtDialogs& dialogs, QWidget* parent) {
    if (list == List::inputFormats) {
        FormatListDialog formats(prefs, parent);
        dialogs.runModal(formats);
        return;
    }
    std::unique_ptr<ListEditor> editor = editorFor(list, prefs);
    ListEditorDialog dialog(editor->beginEditing(), titleOf(list), parent);
    if (dialogs.runModal(dialog) == QDialog::Accepted)
        editor->endEditing();
}

ListEditorDialog::ListEditorDialog(TableEditor& table, const QString& title, QWidget* parent)
    : QDialog(parent), table_(table), view_(new QTableWidget(this)), message_(new QLabel(this)) {
    setWindowTitle(title);
    message_->setObjectName(QStringLiteral("message"));
    message_->setWordWrap(true);
    const auto& columns = table.columns();
    view_->setColumnCount(columns.empty() ? 1 : static_cast<int>(columns.size()));
    view_->setHorizontalHeaderLabels(columns.empty() ? QStringList{title} : qtList(columns));
    view_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    view_->setSelectionBehavior(QAbstractItemView::SelectRows);
    connect(view_, &QTableWidget::cellChanged, this, &ListEditorDialog::cellEdited);
    QPushButton* add = button(tr("Add"), this);
    QPushButton* remove = button(tr("Remove"), this);
    connect(add, &QPushButton::clicked, this, [this] {
        table_.addEmptyRow();
        refresh();
        view_->setCurrentCell(view_->rowCount() - 1, 0);
    });
    connect(remove, &QPushButton::clicked, this, [this] {
        std::set<std::size_t> rows;
        for (const QModelIndex& index : view_->selectionModel()->selectedIndexes())
            rows.insert(static_cast<std::size_t>(index.row()));
        table_.removeRows({rows.begin(), rows.end()});
        refresh();
    });
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* row = new QHBoxLayout;
    row->addWidget(add);
    row->addWidget(remove);
    row->addStretch(1);
    row->addWidget(buttons);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(view_);
    layout->addWidget(message_);
    layout->addLayout(row);
    resize(520, 420);
    refresh();
}

void ListEditorDialog::refresh() {
    filling_ = true;
    const auto& columns = table_.columns();
    view_->setRowCount(static_cast<int>(table_.numberOfRows()));
    for (std::size_t row = 0; row < table_.numberOfRows(); ++row)
        for (int column = 0; column < view_->columnCount(); ++column) {
            std::string_view key = columns.empty() ? std::string_view() : columns[column];
            view_->setItem(static_cast<int>(row), column,
                           new QTableWidgetItem(shown(table_.cell(row, key))));
        }
    message_->setText(qt(table_.message()));
    filling_ = false;
}

void ListEditorDialog::cellEdited(int row, int column) {
    if (filling_)
        return;
    const auto& columns = table_.columns();
    std::string_view key = columns.empty() ? std::string_view() : columns[column];
    auto at = static_cast<std::size_t>(row);
    table_.setCell(at, key, edited(table_.cell(at, key), view_->item(row, column)->text()));
    // Shown again after Qt has finished with the edited item.
    QMetaObject::invokeMethod(this, &ListEditorDialog::refresh, Qt::QueuedConnection);
}

FormatListDialog::FormatListDialog(TvPrefs& prefs, QWidget* parent)
    : QDialog(parent), prefs_(prefs), view_(new QTableWidget(0, 2, this)) {
    setWindowTitle(titleOf(ListEditorDialog::List::inputFormats));
    view_->setHorizontalHeaderLabels({tr("Name"), tr("Warn")});
    view_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    view_->setSelectionBehavior(QAbstractItemView::SelectRows);
    view_->setSelectionMode(QAbstractItemView::SingleSelection);
    view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    connect(view_, &QTableWidget::itemChanged, this, [this](QTableWidgetItem* item) {
        if (filling_ || item->column() != 1)
            return;
        EditFormats(prefs_).setWarns(static_cast<std::size_t>(item->row()),
                                     item->checkState() == Qt::Checked);
    });
    QPushButton* duplicate = button(tr("Duplicate"), this);
    QPushButton* remove = button(tr("Delete"), this);
    connect(duplicate, &QPushButton::clicked, this, [this] {
        int row = view_->currentRow();
        auto selected = row < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(row));
        auto added = EditFormats(prefs_).duplicateSelectedTableEntry(selected);
        refresh();
        if (added)
            view_->selectRow(static_cast<int>(*added));
    });
    connect(remove, &QPushButton::clicked, this, [this] {
        if (int row = view_->currentRow(); row >= 0)
            EditFormats(prefs_).formats().deleteFormatAtIndex(static_cast<std::size_t>(row));
        refresh();
    });
    auto* close = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(close, &QDialogButtonBox::rejected, this, &QDialog::accept);
    auto* row = new QHBoxLayout;
    row->addWidget(duplicate);
    row->addWidget(remove);
    row->addStretch(1);
    row->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(view_);
    layout->addLayout(row);
    resize(520, 420);
    refresh();
}

void FormatListDialog::refresh() {
    filling_ = true;
    EditFormats editor(prefs_);
    std::size_t count = editor.formats().numberOfFormats();
    view_->setRowCount(static_cast<int>(count));
    for (std::size_t at = 0; at < count; ++at) {
        auto format = editor.formats().formatAtIndex(at);
        auto row = static_cast<int>(at);
        view_->setItem(row, 0, new QTableWidgetItem(qt(format ? textOf(*format, "Name") : "")));
        auto* warn = new QTableWidgetItem;
        warn->setFlags(Qt::ItemIsUserCheckable | Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        warn->setCheckState(editor.warns(at) ? Qt::Checked : Qt::Unchecked);
        view_->setItem(row, 1, warn);
    }
    filling_ = false;
}

} // namespace tavvel::gui
