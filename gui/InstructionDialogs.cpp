#include "InstructionDialogs.h"

#include "QtDialogs.h"
#include "SplitTableWidget.h"
#include "Text.h"
#include "forms/InstructionEditor.h"
#include "forms/InstructionEditorTexts.h"
#include "forms/InstructionList.h"
#include "knowledge/Instructions.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

namespace tavvel::gui {

namespace {

enum Column { matchColumn, kindColumn, categoryColumn, descriptionColumn, amountsColumn, columns };

QLabel* noteLabel(QWidget* parent, const char* name) {
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setWordWrap(true);
    return label;
}

// Setting a field's text moves its cursor to the end: only a text the model changed is set.
void showText(QLineEdit* field, const std::string& text) {
    if (field->text() != qt(text))
        field->setText(qt(text));
}

void showNote(QLabel* label, const std::string& text) {
    label->setText(qt(text));
    label->setVisible(!text.empty());
}

} // namespace

int InstructionTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(list_.numberOfRows());
}

int InstructionTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns;
}

QVariant InstructionTableModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole || !index.isValid())
        return {};
    auto row = static_cast<std::size_t>(index.row());
    switch (index.column()) {
    case matchColumn:
        return qt(list_.matchText(row));
    case kindColumn:
        return qt(list_.matchKind(row));
    case categoryColumn:
        return qt(list_.categoryText(row));
    case descriptionColumn:
        return qt(list_.newDescription(row));
    default:
        return list_.numberOfAmounts(row) ? QVariant(static_cast<int>(list_.numberOfAmounts(row)))
                                          : QVariant();
    }
}

QVariant InstructionTableModel::headerData(int section, Qt::Orientation orientation,
                                           int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    const QString titles[] = {tr("Match"), tr("Matches"), tr("Category"), tr("New Description"),
                              tr("Amounts")};
    return section >= 0 && section < columns ? titles[section] : QVariant();
}

void InstructionTableModel::sort(int column, Qt::SortOrder) {
    reset([&] {
        list_.sortBy(column == categoryColumn ? InstructionList::SortBy::category
                                              : InstructionList::SortBy::match);
    });
}

void InstructionTableModel::reset(const std::function<void()>& change) {
    beginResetModel();
    change();
    endResetModel();
}

InstructionDialog::InstructionDialog(InstructionEditor& editor, Dialogs& dialogs, QWidget* parent)
    : QDialog(parent), editor_(editor), dialogs_(dialogs) {
    setWindowTitle(qt(text::editInstructionTitle));
    auto* form = new QFormLayout;
    matchLabel_ = new QLabel(this);
    match_ = new QLineEdit(this);
    help_ = noteLabel(this, "help");
    warning_ = noteLabel(this, "warning");
    form->addRow(matchLabel_, match_);
    form->addRow(QString(), help_);
    form->addRow(QString(), warning_);
    useDescription_ = new QCheckBox(tr("New description:"), this);
    description_ = new QLineEdit(this);
    form->addRow(useDescription_, description_);
    useMemo_ = new QCheckBox(tr("New memo:"), this);
    memo_ = new QLineEdit(this);
    form->addRow(useMemo_, memo_);
    category_ = new QLineEdit(this);
    categoryNote_ = noteLabel(this, "categoryNote");
    form->addRow(tr("Category:"), category_);
    form->addRow(QString(), categoryNote_);
    splits_ = splitTable();
    form->addRow(splits_);
    splitsButton_ = new QPushButton(this);
    form->addRow(QString(), splitsButton_);
    confirm_ = new QCheckBox(tr("Confirm every matching transaction"), this);
    number_ = new QCheckBox(tr("Take the check number from the description"), this);
    form->addRow(QString(), confirm_);
    form->addRow(QString(), number_);
    buildAmountPart(form);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buildButtons());
    connectFields();
    refresh();
}

SplitTableWidget* InstructionDialog::splitTable() {
    SplitTable& table = editor_.splits();
    return new SplitTableWidget(
        bindSplitTable([&table]() -> const SplitTable& { return table; },
                       [&table](std::size_t r, SplitColumn c, std::string t) {
                           table.setCell(r, c, std::move(t));
                       },
                       [&table] { table.addBlankRow(); }, [&table] { table.deleteSelectedRow(); },
                       [&table](std::optional<std::size_t> r) { table.select(r); },
                       [](std::size_t) { return std::string(); }),
        this);
}

QDialogButtonBox* InstructionDialog::buildButtons() {
    auto* buttons = new QDialogButtonBox(this);
    save_ = buttons->addButton(QDialogButtonBox::Save);
    delete_ =
        buttons->addButton(qt(text::deleteInstructionButton), QDialogButtonBox::DestructiveRole);
    buttons->addButton(QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(save_, &QPushButton::clicked, this, [this] {
        if (editor_.save(dialogs_))
            accept();
    });
    connect(delete_, &QPushButton::clicked, this, [this] {
        if (editor_.deleteInstruction(dialogs_))
            deleted_ = true, accept();
    });
    return buttons;
}

void InstructionDialog::connectFields() {
    auto onText = [this](QLineEdit* field, auto set) {
        connect(field, &QLineEdit::textEdited, this, [this, set](const QString& t) {
            set(core(t));
            refresh();
        });
    };
    onText(match_, [this](std::string t) { editor_.setMatch(std::move(t)); });
    onText(description_, [this](std::string t) { editor_.setNewDescription(std::move(t)); });
    onText(memo_, [this](std::string t) { editor_.setNewMemo(std::move(t)); });
    onText(category_, [this](std::string t) { editor_.setCategory(std::move(t)); });
    auto onSwitch = [this](QCheckBox* box, auto set) {
        connect(box, &QCheckBox::toggled, this, [this, set](bool on) {
            if (!filling_)
                set(on), refresh();
        });
    };
    onSwitch(useDescription_, [this](bool on) { editor_.setUseDescription(on); });
    onSwitch(useMemo_, [this](bool on) { editor_.setUseMemo(on); });
    onSwitch(confirm_, [this](bool on) { editor_.setConfirm(on); });
    onSwitch(number_, [this](bool on) { editor_.setTakeNumber(on); });
    connect(splitsButton_, &QPushButton::clicked, this, [this] {
        editor_.addRemoveSplits();
        refresh();
    });
    connect(splits_, &SplitTableWidget::changed, this, &InstructionDialog::refresh);
}

void InstructionDialog::buildAmountPart(QFormLayout* form) {
    amount_ = new QLineEdit(this);
    amount_->setObjectName(QStringLiteral("amount"));
    amount_->setPlaceholderText(
        qt(editor_.amounts().empty() ? std::string() : editor_.amounts()[0]));
    amountDescription_ = new QLineEdit(this);
    amountCategory_ = new QLineEdit(this);
    amountCategoryNote_ = noteLabel(this, "amountCategoryNote");
    amountUseMemo_ = new QCheckBox(tr("Memo:"), this);
    amountMemo_ = new QLineEdit(this);
    amountConfirm_ = new QCheckBox(tr("Confirm transactions of this amount"), this);
    form->addRow(tr("For the amount:"), amount_);
    form->addRow(tr("Description:"), amountDescription_);
    form->addRow(tr("Category:"), amountCategory_);
    form->addRow(QString(), amountCategoryNote_);
    form->addRow(amountUseMemo_, amountMemo_);
    form->addRow(QString(), amountConfirm_);
    connect(amount_, &QLineEdit::editingFinished, this, [this] {
        std::string amount = core(amount_->text());
        if (amount.empty())
            editor_.hideAmount();
        else
            editor_.showAmount(amount);
        refresh();
    });
    for (QLineEdit* field : {amountDescription_, amountCategory_, amountMemo_})
        connect(field, &QLineEdit::textEdited, this, &InstructionDialog::amountEdited);
    for (QCheckBox* box : {amountUseMemo_, amountConfirm_})
        connect(box, &QCheckBox::toggled, this, [this] {
            if (!filling_)
                amountEdited();
        });
}

void InstructionDialog::amountEdited() {
    editor_.setAmountFields({core(amountDescription_->text()), core(amountCategory_->text()),
                             core(amountMemo_->text()), amountUseMemo_->isChecked(),
                             amountConfirm_->isChecked()});
    refresh();
}

void InstructionDialog::refresh() {
    filling_ = true;
    matchLabel_->setText(qt(editor_.matchLabel()));
    showNote(help_, editor_.matchHelp());
    showNote(warning_, editor_.warning());
    showText(match_, editor_.match());
    useDescription_->setChecked(editor_.usesDescription());
    description_->setEnabled(editor_.usesDescription());
    showText(description_, editor_.newDescription());
    useMemo_->setChecked(editor_.usesMemo());
    memo_->setEnabled(editor_.usesMemo());
    showText(memo_, editor_.newMemo());
    bool withSplits = !editor_.splits().empty();
    showRow(category_, !withSplits);
    showText(category_, editor_.category());
    showNote(categoryNote_, withSplits ? std::string() : editor_.categoryNote());
    splits_->setVisible(withSplits);
    splits_->refresh();
    splitsButton_->setText(qt(editor_.splitsButtonTitle()));
    confirm_->setChecked(editor_.confirms());
    number_->setChecked(editor_.takesNumber());
    bool amount = editor_.amountShown().has_value();
    for (QWidget* w :
         {static_cast<QWidget*>(amountDescription_), static_cast<QWidget*>(amountCategory_),
          static_cast<QWidget*>(amountMemo_), static_cast<QWidget*>(amountUseMemo_),
          static_cast<QWidget*>(amountConfirm_)})
        w->setEnabled(amount);
    const auto& a = editor_.amountFields();
    showText(amountDescription_, a.description);
    showText(amountCategory_, a.category);
    showText(amountMemo_, a.memo);
    amountUseMemo_->setChecked(a.useMemo);
    amountConfirm_->setChecked(a.confirm);
    showNote(amountCategoryNote_, amount ? editor_.amountCategoryNote() : std::string());
    save_->setEnabled(editor_.canSave());
    filling_ = false;
}

InstructionListDialog::InstructionListDialog(TvPrefs& prefs, QtDialogs& dialogs, QWidget* parent)
    : QDialog(parent), prefs_(prefs), dialogs_(dialogs),
      list_(std::make_unique<InstructionList>(prefs)) {
    setWindowTitle(tr("Instructions"));
    search_ = new QLineEdit(this);
    search_->setPlaceholderText(tr("Search"));
    search_->setClearButtonEnabled(true);
    model_ = new InstructionTableModel(*list_, this);
    view_ = new QTableView(this);
    view_->setModel(model_);
    view_->setSelectionBehavior(QAbstractItemView::SelectRows);
    view_->setSelectionMode(QAbstractItemView::SingleSelection);
    view_->setSortingEnabled(true);
    view_->horizontalHeader()->setSortIndicator(matchColumn, Qt::AscendingOrder);
    view_->verticalHeader()->hide();
    auto* edit = new QPushButton(tr("Edit…"), this);
    auto* close = new QDialogButtonBox(QDialogButtonBox::Close, this);
    close->addButton(edit, QDialogButtonBox::ActionRole);
    connect(close, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(edit, &QPushButton::clicked, this, [this] {
        if (view_->currentIndex().isValid())
            editRow(view_->currentIndex().row());
    });
    connect(view_, &QTableView::doubleClicked, this,
            [this](const QModelIndex& index) { editRow(index.row()); });
    connect(search_, &QLineEdit::textChanged, this,
            [this](const QString& text) { model_->reset([&] { list_->search(core(text)); }); });
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(search_);
    layout->addWidget(view_);
    layout->addWidget(close);
    // Stretched, not sized to contents: measuring every row of a long list would freeze it.
    view_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    setMinimumSize(720, 360);
}

InstructionListDialog::~InstructionListDialog() = default;

bool InstructionListDialog::editRow(int row) {
    if (row < 0 || static_cast<std::size_t>(row) >= list_->numberOfRows())
        return false;
    InstructionEditor editor(prefs_, list_->instructionAt(static_cast<std::size_t>(row)));
    InstructionDialog dialog(editor, dialogs_, this);
    bool stored = dialogs_.runModal(dialog) == QDialog::Accepted;
    model_->reset([&] { list_->refresh(); });
    return stored;
}

bool editMatchedInstruction(TvPrefs& prefs, QtDialogs& dialogs, const std::string& match,
                            const std::string& description, QWidget* parent) {
    std::optional<Dictionary> instruction = Instructions(prefs).instructionFor(match);
    if (!instruction)
        return false;
    InstructionEditor editor(prefs, *instruction, description);
    InstructionDialog dialog(editor, dialogs, parent);
    return dialogs.runModal(dialog) == QDialog::Accepted;
}

} // namespace tavvel::gui
