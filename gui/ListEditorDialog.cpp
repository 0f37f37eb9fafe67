#include "ListEditorDialog.h"

#include "QtDialogs.h"
#include "Text.h"
#include "forms/EditFormats.h"
#include "forms/ListEditors.h"
#include "knowledge/KnowledgeTexts.h"

#include <QComboBox>
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

std::string_view keyOf(const TableEditor& table, int column) {
    const auto& columns = table.columns();
    return columns.empty() ? std::string_view() : std::string_view(columns[column]);
}

QStringList headings(const TableEditor& table, const QString& title) {
    if (table.columns().empty())
        return {title};
    QStringList shown;
    for (const std::string& column : table.columns())
        shown << qt(table.headingOf(column));
    return shown;
}

} // namespace

void ListEditorDialog::edit(List list, TvPrefs& prefs, QtDialogs& dialogs, QWidget* parent) {
    if (list == List::inputFormats) {
        FormatListDialog formats(prefs, dialogs, parent);
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
    QStringList shownHeadings = headings(table, title);
    view_->setColumnCount(static_cast<int>(shownHeadings.size()));
    view_->setHorizontalHeaderLabels(shownHeadings);
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
    if (table.onlyRemoval()) {
        add->hide();
        view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    }
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
    view_->setRowCount(static_cast<int>(table_.numberOfRows()));
    for (int row = 0; row < view_->rowCount(); ++row)
        for (int column = 0; column < view_->columnCount(); ++column)
            showCell(row, column);
    message_->setText(qt(table_.message()));
    filling_ = false;
}

// A choice is shown as a chooser of its titles over an item that cannot be edited as text.
void ListEditorDialog::showCell(int row, int column) {
    std::string_view key = keyOf(table_, column);
    Value value = table_.cell(static_cast<std::size_t>(row), key);
    const std::vector<std::string>& choices = table_.choicesOf(key);
    if (choices.empty()) {
        view_->setItem(row, column, new QTableWidgetItem(shown(value)));
        return;
    }
    auto* item = new QTableWidgetItem;
    item->setFlags(item->flags() & ~Qt::ItemIsEditable);
    view_->setItem(row, column, item);
    auto* chooser = new QComboBox;
    chooser->addItems(qtList(choices));
    chooser->setCurrentIndex(value.isInteger() ? static_cast<int>(value.toInteger()) : -1);
    connect(chooser, &QComboBox::activated, this,
            [this, row, column](int choice) { chosen(row, column, choice); });
    view_->setCellWidget(row, column, chooser);
}

void ListEditorDialog::chosen(int row, int column, int choice) {
    table_.setCell(static_cast<std::size_t>(row), keyOf(table_, column),
                   Value(static_cast<std::int64_t>(choice)));
    message_->setText(qt(table_.message()));
}

void ListEditorDialog::cellEdited(int row, int column) {
    if (filling_)
        return;
    std::string_view key = keyOf(table_, column);
    auto at = static_cast<std::size_t>(row);
    table_.setCell(at, key, edited(table_.cell(at, key), view_->item(row, column)->text()));
    // Shown again after Qt has finished with the edited item.
    QMetaObject::invokeMethod(this, &ListEditorDialog::refresh, Qt::QueuedConnection);
}

FormatListDialog::FormatListDialog(TvPrefs& prefs, QtDialogs& dialogs, QWidget* parent)
    : QDialog(parent), prefs_(prefs), dialogs_(dialogs), view_(new QTableWidget(0, 3, this)) {
    setWindowTitle(titleOf(ListEditorDialog::List::inputFormats));
    view_->setHorizontalHeaderLabels({tr("Name"), tr("Match"), qt(text::warnColumn)});
    view_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    view_->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    view_->setSelectionBehavior(QAbstractItemView::SelectRows);
    view_->setSelectionMode(QAbstractItemView::SingleSelection);
    connect(view_, &QTableWidget::cellChanged, this, &FormatListDialog::itemEdited);
    QPushButton* duplicate = button(tr("Duplicate"), this);
    QPushButton* remove = button(tr("Delete"), this);
    QPushButton* types = button(tr("Delete Types..."), this);
    QPushButton* securities = button(tr("Delete Securities..."), this);
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
    connect(types, &QPushButton::clicked, this, [this] { trimMappings(true); });
    connect(securities, &QPushButton::clicked, this, [this] { trimMappings(false); });
    auto* close = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(close, &QDialogButtonBox::rejected, this, &QDialog::accept);
    auto* row = new QHBoxLayout;
    for (QPushButton* pushed : {duplicate, remove, types, securities})
        row->addWidget(pushed);
    row->addStretch(1);
    row->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(view_);
    layout->addLayout(row);
    resize(640, 420);
    refresh();
}

void FormatListDialog::itemEdited(int row, int column) {
    if (filling_)
        return;
    auto at = static_cast<std::size_t>(row);
    QTableWidgetItem* item = view_->item(row, column);
    if (column == 1)
        EditFormats(prefs_).setMatch(at, core(item->text()));
    else if (column == 2)
        EditFormats(prefs_).setWarns(at, item->checkState() == Qt::Checked);
}

// The selected format's type or security mappings, of which the user may only remove entries.
void FormatListDialog::trimMappings(bool types) {
    int row = view_->currentRow();
    if (row < 0)
        return;
    auto at = static_cast<std::size_t>(row);
    auto which = types ? EditFormats::Mappings::Types : EditFormats::Mappings::Securities;
    EditFormats editor(prefs_);
    TableEditor table = editor.mappingsTable(at, which);
    ListEditorDialog dialog(table, qt(editor.mappingsTitle(at, which)), this);
    if (dialogs_.runModal(dialog) == QDialog::Accepted)
        editor.setMappings(at, which, table.rows());
}

void FormatListDialog::refresh() {
    filling_ = true;
    EditFormats editor(prefs_);
    std::size_t count = editor.formats().numberOfFormats();
    view_->setRowCount(static_cast<int>(count));
    for (std::size_t at = 0; at < count; ++at) {
        auto format = editor.formats().formatAtIndex(at);
        auto row = static_cast<int>(at);
        auto* name = new QTableWidgetItem(qt(format ? textOf(*format, "Name") : ""));
        name->setFlags(name->flags() & ~Qt::ItemIsEditable);
        view_->setItem(row, 0, name);
        view_->setItem(row, 1, new QTableWidgetItem(qt(editor.match(at))));
        auto* warn = new QTableWidgetItem;
        warn->setFlags(Qt::ItemIsUserCheckable | Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        warn->setCheckState(editor.warns(at) ? Qt::Checked : Qt::Unchecked);
        view_->setItem(row, 2, warn);
    }
    filling_ = false;
}

} // namespace tavvel::gui
