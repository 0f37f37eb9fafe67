#include "ConfirmDialog.h"

#include "SplitTableWidget.h"
#include "Text.h"
#include "TypeAheadBinding.h"
#include "dialogs/DialogTexts.h"
#include "forms/ConfirmForm.h"
#include "forms/SplitTable.h"
#include "knowledge/Categories.h"
#include "knowledge/Descriptions.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tavvel::gui {

namespace {

constexpr std::string_view kSplitKeys[] = {"category", "memo", "amount"};

QLabel* named(QLabel* label, const char* name) {
    label->setObjectName(QLatin1String(name));
    return label;
}

} // namespace

ConfirmDialog::ConfirmDialog(ConfirmForm& form, TvPrefs& prefs, QWidget* parent)
    : QDialog(parent), form_(form) {
    setWindowTitle(qt(form.title()));
    build(prefs);
    show();
}

QPushButton* ConfirmDialog::actionButton(std::string_view title, ConfirmAction action) {
    auto* button = new QPushButton(qt(title), this);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, action] { finish(action); });
    return button;
}

void ConfirmDialog::build(TvPrefs& prefs) {
    prompt_ = named(new QLabel(this), "prompt");
    prompt_->setWordWrap(true);
    date_ = named(new QLabel(this), "date");
    stepper_ = new QSpinBox(this);
    stepper_->setObjectName(QStringLiteral("dateStepper"));
    stepper_->setRange(-1, 1);
    amount_ = named(new QLabel(this), "amount");
    number_ = named(new QLabel(this), "number");
    description_ = new QLineEdit(this);
    description_->setObjectName(QStringLiteral("description"));
    memo_ = new QLineEdit(this);
    memo_->setObjectName(QStringLiteral("memo"));
    category_ = new QLineEdit(this);
    category_->setObjectName(QStringLiteral("category"));
    categoryWarning_ = named(new QLabel(this), "categoryWarning");
    new TypeAheadBinding(
        description_,
        [&prefs](std::string_view typed) { return Descriptions(prefs).completedString(typed); },
        [](const std::string&) {});
    new TypeAheadBinding(
        category_,
        [&prefs](std::string_view typed) { return Categories(prefs).completedString(typed); },
        [this](const std::string& text) {
            form_.setCategory(text);
            show();
        });
    connect(memo_, &QLineEdit::textEdited, this,
            [this](const QString& text) { form_.setMemo(core(text)); });
    connect(description_, &QLineEdit::editingFinished, this, [this] {
        if (form_.setDescription(core(description_->text())))
            finish(ConfirmAction::descriptionChanged);
    });
    connect(stepper_, &QSpinBox::valueChanged, this, [this](int days) {
        if (days == 0)
            return;
        form_.stepDate(days);
        stepper_->setValue(0);
        show();
    });
    splits_ = new SplitTableWidget(splitBinding(), this);
    connect(splits_, &SplitTableWidget::changed, this, &ConfirmDialog::show);
    splitsButton_ = new QPushButton(this);
    splitsButton_->setObjectName(QStringLiteral("splitsButton"));
    splitsButton_->setAutoDefault(false);
    connect(splitsButton_, &QPushButton::clicked, this, [this] {
        form_.addRemoveSplits();
        show();
    });

    auto* dateRow = new QHBoxLayout;
    dateRow->addWidget(date_, 1);
    dateRow->addWidget(stepper_);
    auto* fields = new QFormLayout;
    fields->addRow(tr("Date:"), dateRow);
    fields->addRow(tr("Amount:"), amount_);
    fields->addRow(tr("Number:"), number_);
    fields->addRow(tr("Description:"), description_);
    memoLabel_ = new QLabel(tr("Memo:"), this);
    fields->addRow(memoLabel_, memo_);
    categoryLabel_ = new QLabel(tr("Category:"), this);
    fields->addRow(categoryLabel_, category_);
    fields->addRow(QString(), categoryWarning_);

    addInstruction_ = actionButton(text::addInstructionButton, ConfirmAction::addInstruction);
    addAmountInstruction_ =
        actionButton(text::addAmountInstructionButton, ConfirmAction::addAmountInstruction);
    auto* instructionRow = new QHBoxLayout;
    instructionRow->addWidget(splitsButton_);
    instructionRow->addStretch(1);
    instructionRow->addWidget(addInstruction_);
    instructionRow->addWidget(addAmountInstruction_);
    instructionRow->addWidget(
        actionButton(text::swapButton, ConfirmAction::swapDescriptionAndMemo));

    back_ = actionButton(text::backButton, ConfirmAction::back);
    QPushButton* ok = actionButton(text::okButton, ConfirmAction::ok);
    ok->setDefault(true);
    ok->setAutoDefault(true);
    auto* actions = new QHBoxLayout;
    actions->addWidget(back_);
    actions->addWidget(actionButton(text::skipButton, ConfirmAction::skip));
    actions->addWidget(actionButton(text::skipRemainingButton, ConfirmAction::skipRemaining));
    actions->addStretch(1);
    actions->addWidget(actionButton(text::cancelButton, ConfirmAction::cancel));
    actions->addWidget(ok);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(prompt_);
    layout->addLayout(fields);
    layout->addWidget(splits_);
    layout->addLayout(instructionRow);
    layout->addLayout(actions);
}

SplitTableBinding ConfirmDialog::splitBinding() {
    auto cellOf = [this](std::size_t row, SplitColumn column) {
        return textOf((*form_.splits())[row].dictionary(), kSplitKeys[static_cast<int>(column)]);
    };
    SplitTableBinding b;
    b.rows = [this] { return form_.splits() ? form_.splits()->size() : std::size_t{0}; };
    b.cell = cellOf;
    b.setCell = [this](std::size_t row, SplitColumn column, std::string text) {
        form_.setSplit(row, kSplitKeys[static_cast<int>(column)], std::move(text));
    };
    b.addRow = [this] { form_.addSplitRow(); };
    b.select = [](std::optional<std::size_t>) {};
    b.deleteSelected = [this] {
        if (int row = splits_->table()->currentRow(); row >= 0)
            form_.deleteSplitRow(static_cast<std::size_t>(row));
    };
    b.deleteEnabled = [this] { return splits_ && splits_->table()->currentRow() >= 0; };
    b.categoryWarning = [this, cellOf](std::size_t row) {
        return form_.categoryWarning(cellOf(row, SplitColumn::category));
    };
    return b;
}

void ConfirmDialog::show() {
    prompt_->setText(qt(form_.prompt()));
    date_->setText(qt(form_.dateText()));
    stepper_->setVisible(form_.stepperShown());
    amount_->setText(qt(form_.amount().value_or("")));
    showRow(amount_, form_.amount().has_value());
    number_->setText(qt(form_.number().value_or("")));
    showRow(number_, form_.number().has_value());
    if (description_->text() != qt(form_.description()))
        description_->setText(qt(form_.description()));
    showRow(memo_, form_.memoShown());
    if (memo_->text() != qt(form_.memo()))
        memo_->setText(qt(form_.memo()));
    bool withSplits = form_.splits().has_value();
    showRow(category_, !withSplits);
    if (category_->text() != qt(form_.category()))
        category_->setText(qt(form_.category()));
    categoryWarning_->setText(qt(form_.categoryWarning(form_.category())));
    showRow(categoryWarning_, !withSplits && !categoryWarning_->text().isEmpty());
    splits_->setVisible(withSplits);
    splits_->refresh();
    splitsButton_->setText(qt(form_.splitsButtonTitle()));
    splitsButton_->setVisible(form_.splitsButtonShown());
    back_->setVisible(form_.backShown());
    back_->setEnabled(form_.backEnabled());
    addInstruction_->setVisible(form_.addInstructionOffered());
    addAmountInstruction_->setVisible(form_.addInstructionOffered());
}

void ConfirmDialog::finish(ConfirmAction action) {
    // A description typed just before a button counts as typed.
    if (action != ConfirmAction::descriptionChanged &&
        form_.setDescription(core(description_->text())))
        action = ConfirmAction::descriptionChanged;
    action_ = action;
    if (action == ConfirmAction::cancel)
        reject();
    else
        accept();
}

} // namespace tavvel::gui
