#include "NewInstructionDialog.h"

#include "SplitTableWidget.h"
#include "Text.h"
#include "TypeAheadBinding.h"
#include "dialogs/DialogTexts.h"
#include "forms/SplitTable.h"
#include "history/HistoryTexts.h"
#include "knowledge/Categories.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace tavvel::gui {

namespace {

void setTextKeepingCaret(QLineEdit& edit, const std::string& text) {
    QString shown = qt(text);
    if (edit.text() != shown)
        edit.setText(shown);
}

} // namespace

NewInstructionDialog::NewInstructionDialog(NewInstructionForm& form, TvPrefs& prefs,
                                           QWidget* parent)
    : QDialog(parent), form_(form) {
    setWindowTitle(qt(form.title()));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(buildHeader());
    tabs_ = new QTabWidget(this);
    tabs_->addTab(buildInstructionTab(prefs), tr("Instruction"));
    tabs_->addTab(buildAmountTab(prefs), tr("Amount"));
    tabs_->setCurrentIndex(form.tab() == NewInstructionForm::Tab::amount ? 1 : 0);
    layout->addWidget(tabs_);
    layout->addLayout(buildButtons());
    show();
    placeFocus();
}

QLabel* NewInstructionDialog::label(const char* name) {
    auto* shown = new QLabel(this);
    shown->setObjectName(QLatin1String(name));
    shown->setWordWrap(true);
    return shown;
}

QLineEdit* NewInstructionDialog::edit(const char* name, std::function<void(std::string)> set) {
    auto* field = new QLineEdit(this);
    field->setObjectName(QLatin1String(name));
    connect(field, &QLineEdit::textEdited, this, [this, set](const QString& text) {
        set(core(text));
        show();
    });
    return field;
}

QLineEdit* NewInstructionDialog::categoryEdit(const char* name, TvPrefs& prefs,
                                              std::function<void(std::string)> set) {
    auto* field = new QLineEdit(this);
    field->setObjectName(QLatin1String(name));
    new TypeAheadBinding(
        field,
        [&prefs](std::string_view typed) { return Categories(prefs).completedString(typed); },
        [this, set](const std::string& text) {
            set(text);
            show();
        });
    return field;
}

QCheckBox* NewInstructionDialog::check(const QString& title, const char* name,
                                       std::function<void(bool)> set) {
    auto* box = new QCheckBox(title, this);
    box->setObjectName(QLatin1String(name));
    connect(box, &QCheckBox::clicked, this, [this, set](bool on) {
        set(on);
        show();
    });
    return box;
}

QWidget* NewInstructionDialog::buildHeader() {
    auto* header = new QWidget(this);
    auto* fields = new QFormLayout(header);
    QLabel* prompt = label("prompt");
    QLabel* date = label("date");
    QLabel* description = label("description");
    QLabel* number = label("number");
    QLabel* memo = label("memo");
    QLabel* amount = label("amount");
    fields->addRow(prompt);
    fields->addRow(tr("Date:"), date);
    fields->addRow(tr("Description:"), description);
    fields->addRow(tr("Number:"), number);
    fields->addRow(tr("Memo:"), memo);
    fields->addRow(tr("Amount:"), amount);
    shows_.push_back([=, this] {
        prompt->setText(qt(form_.prompt().value_or("")));
        showRow(prompt, form_.prompt().has_value());
        date->setText(qt(form_.date()));
        description->setText(qt(form_.description()));
        description->setToolTip(qt(form_.description()));
        auto shownNumber = form_.extractedNumber() ? form_.extractedNumber() : form_.number();
        number->setText(qt(shownNumber.value_or("")));
        showRow(number, shownNumber.has_value());
        memo->setText(qt(form_.memo().value_or("")));
        showRow(memo, form_.memo().has_value());
        amount->setText(qt(form_.amount().value_or("")));
        showRow(amount, form_.amount().has_value());
    });
    return header;
}

SplitTableWidget* NewInstructionDialog::splitTable(NewInstructionForm::Splits which) {
    auto* table = new SplitTableWidget(
        bindSplitTable(
            [this, which]() -> const SplitTable& { return form_.splits(which); },
            [this, which](std::size_t row, SplitColumn column, std::string text) {
                form_.setSplitCell(which, row, column, std::move(text));
            },
            [this, which] { form_.addSplit(which); },
            [this, which] { form_.deleteSelectedSplit(which); },
            [this, which](std::optional<std::size_t> row) { form_.selectSplit(which, row); },
            [this, which](std::size_t row) {
                return std::string(form_.splitCategoryWarning(which, row));
            }),
        this);
    connect(table, &SplitTableWidget::changed, this, &NewInstructionDialog::show);
    shows_.push_back([table] { table->refresh(); });
    return table;
}

QWidget* NewInstructionDialog::buildInstructionTab(TvPrefs& prefs) {
    auto* tab = new QWidget(this);
    auto* fields = new QFormLayout(tab);
    QLabel* matchLabel = label("matchLabel");
    match_ = new QLineEdit(this);
    match_->setObjectName(QStringLiteral("matchText"));
    connect(match_, &QLineEdit::textEdited, this, [this](const QString& text) {
        if (!form_.editMatchText(core(text)))
            match_->setText(qt(form_.matchText()));
        show();
    });
    QLabel* matchHelp = label("matchHelp");
    QLabel* matchWarning = label("matchWarning");
    QLabel* categoryMatch = label("categoryMatch");
    QCheckBox* useDescription = check(tr("New description:"), "useDescription",
                                      [this](bool on) { form_.setUseDescription(on); });
    QLineEdit* newDescription =
        edit("newDescription", [this](std::string t) { form_.setNewDescription(std::move(t)); });
    QCheckBox* useMemo =
        check(tr("New memo:"), "useMemo", [this](bool on) { form_.setUseMemo(on); });
    QLineEdit* newMemo = edit("newMemo", [this](std::string t) { form_.setNewMemo(std::move(t)); });
    category_ =
        categoryEdit("category", prefs, [this](std::string t) { form_.setCategory(std::move(t)); });
    QLabel* categoryWarning = label("categoryWarning");
    SplitTableWidget* splits = splitTable(NewInstructionForm::Splits::instruction);
    auto* splitsButton = new QPushButton(this);
    splitsButton->setObjectName(QStringLiteral("splitsButton"));
    splitsButton->setAutoDefault(false);
    connect(splitsButton, &QPushButton::clicked, this, [this] {
        form_.instructionAddRemoveSplits();
        show();
    });
    QCheckBox* confirm = check(tr("Confirm transactions matching this instruction"), "confirm",
                               [this](bool on) { form_.setConfirm(on); });
    QCheckBox* extract = check(tr("Take the check number from the description"), "extractNumber",
                               [this](bool on) { form_.setExtractNumber(on); });
    fields->addRow(matchLabel, match_);
    fields->addRow(QString(), matchHelp);
    fields->addRow(QString(), matchWarning);
    fields->addRow(categoryMatch);
    fields->addRow(useDescription, newDescription);
    fields->addRow(useMemo, newMemo);
    fields->addRow(tr("Category:"), category_);
    fields->addRow(QString(), categoryWarning);
    fields->addRow(splits);
    fields->addRow(splitsButton);
    fields->addRow(confirm);
    fields->addRow(extract);
    shows_.push_back([=, this] {
        bool byDescription = form_.descriptionMatchShown();
        matchLabel->setText(qt(form_.matchLabel()));
        showRow(match_, byDescription);
        setTextKeepingCaret(*match_, form_.matchText());
        matchHelp->setText(qt(form_.matchHelp()));
        showRow(matchHelp, byDescription);
        matchWarning->setText(qt(form_.matchWarning()));
        showRow(matchWarning, !form_.matchWarning().empty());
        categoryMatch->setText(
            tr("When the category is: %1").arg(qt(form_.newInstructionForCategory().value_or(""))));
        showRow(categoryMatch, !byDescription);
        useDescription->setChecked(form_.useDescription());
        newDescription->setEnabled(form_.useDescription());
        setTextKeepingCaret(*newDescription, form_.newDescription());
        useMemo->setChecked(form_.useMemoOn());
        newMemo->setEnabled(form_.useMemoOn());
        setTextKeepingCaret(*newMemo, form_.newMemo());
        showRow(category_, form_.categoryShown());
        setTextKeepingCaret(*category_, form_.category());
        // A suggested category is marked under the field, with any warning about it.
        QString note = qt(form_.categoryWarning());
        if (form_.categorySuggested())
            note = (qt(text::suggestionMark) + " " + note).trimmed();
        categoryWarning->setText(note);
        showRow(categoryWarning, form_.categoryShown() && !note.isEmpty());
        showRow(splits, !form_.categoryShown());
        splitsButton->setText(qt(form_.instructionSplitsButtonTitle()));
        confirm->setChecked(form_.confirmOn());
        extract->setChecked(form_.extractNumberOn());
    });
    return tab;
}

QWidget* NewInstructionDialog::buildAmountTab(TvPrefs& prefs) {
    auto* tab = new QWidget(this);
    auto* fields = new QFormLayout(tab);
    QCheckBox* amountSwitch = check(tr("Handle this amount differently"), "amountSwitch",
                                    [this](bool on) { form_.setAmountSwitch(on); });
    amountDescription_ = edit("amountDescription",
                              [this](std::string t) { form_.setAmountDescription(std::move(t)); });
    QCheckBox* useMemo =
        check(tr("Memo:"), "amountUseMemo", [this](bool on) { form_.setAmountUseMemo(on); });
    QLineEdit* memo =
        edit("amountMemo", [this](std::string t) { form_.setAmountMemo(std::move(t)); });
    QLineEdit* category = categoryEdit(
        "amountCategory", prefs, [this](std::string t) { form_.setAmountCategory(std::move(t)); });
    QLabel* warning = label("amountCategoryWarning");
    SplitTableWidget* splits = splitTable(NewInstructionForm::Splits::amount);
    QCheckBox* confirm = check(tr("Confirm transactions of this amount"), "amountConfirm",
                               [this](bool on) { form_.setAmountConfirm(on); });
    fields->addRow(amountSwitch);
    fields->addRow(tr("Description:"), amountDescription_);
    fields->addRow(useMemo, memo);
    fields->addRow(tr("Category:"), category);
    fields->addRow(QString(), warning);
    fields->addRow(splits);
    fields->addRow(confirm);
    shows_.push_back([=, this] {
        tabs_->setTabVisible(1, form_.amountPartShown());
        amountSwitch->setChecked(form_.amountSwitchOn());
        amountSwitch->setEnabled(form_.amountSwitchEnabled());
        setTextKeepingCaret(*amountDescription_, form_.amountDescription());
        useMemo->setChecked(form_.amountUseMemo());
        memo->setEnabled(form_.amountUseMemo());
        setTextKeepingCaret(*memo, form_.amountMemo());
        setTextKeepingCaret(*category, form_.amountCategory());
        warning->setText(qt(form_.amountCategoryWarning()));
        confirm->setChecked(form_.amountConfirmOn());
    });
    return tab;
}

QLayout* NewInstructionDialog::buildButtons() {
    auto* asRead = new QPushButton(qt(text::useAsReadButton), this);
    auto* cancel = new QPushButton(qt(text::cancelButton), this);
    auto* save = new QPushButton(qt(text::saveButton), this);
    save->setObjectName(QStringLiteral("save"));
    cancel->setToolTip(qt(form_.cancelTip()));
    asRead->setAutoDefault(false);
    cancel->setAutoDefault(false);
    save->setDefault(true);
    connect(asRead, &QPushButton::clicked, this,
            [this] { finish(NewInstructionAction::useAsRead); });
    connect(cancel, &QPushButton::clicked, this, [this] { finish(NewInstructionAction::cancel); });
    connect(save, &QPushButton::clicked, this, [this] { finish(NewInstructionAction::save); });
    shows_.push_back([=, this] { save->setEnabled(form_.okEnabled()); });
    auto* row = new QHBoxLayout;
    row->addWidget(asRead);
    row->addStretch(1);
    row->addWidget(cancel);
    row->addWidget(save);
    return row;
}

void NewInstructionDialog::show() {
    for (const auto& part : shows_)
        part();
}

void NewInstructionDialog::placeFocus() {
    switch (form_.focus()) {
    case NewInstructionForm::Focus::matchText:
        match_->setFocus();
        match_->end(false);
        break;
    case NewInstructionForm::Focus::category:
        category_->setFocus();
        category_->selectAll();
        break;
    case NewInstructionForm::Focus::amountDescription:
        amountDescription_->setFocus();
        break;
    }
}

void NewInstructionDialog::finish(NewInstructionAction action) {
    action_ = action;
    if (action == NewInstructionAction::cancel)
        reject();
    else
        accept();
}

} // namespace tavvel::gui
