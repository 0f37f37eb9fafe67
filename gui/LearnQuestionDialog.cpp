#include "LearnQuestionDialog.h"

#include "Text.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tavvel::gui {

LearnQuestionDialog::LearnQuestionDialog(LearnQuestionForm& form, QWidget* parent)
    : LearnDialog(parent), form_(form) {
    setWindowTitle(qt(form.title));
    build();
    showPreview(*table_, form.table, form.columnTitles);
    showState();
}

void LearnQuestionDialog::build() {
    auto* layout = new QVBoxLayout(this);
    table_ = new QTableWidget(this);
    table_->setObjectName(QStringLiteral("sample"));
    setUpPreview(*table_);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    connect(table_, &QTableWidget::cellClicked, this, &LearnQuestionDialog::cellClicked);
    connect(table_->horizontalHeader(), &QHeaderView::sectionClicked, this,
            [this](int column) { cellClicked(table_->currentRow(), column); });
    layout->addWidget(table_, 1);
    auto* fields = new QFormLayout;
    cell_ = new QLineEdit(this);
    cell_->setObjectName(QStringLiteral("cellText"));
    cell_->setReadOnly(true);
    connect(cell_, &QLineEdit::selectionChanged, this, &LearnQuestionDialog::cellTextSelected);
    fields->addRow(tr("C&ell:"), cell_);
    layout->addLayout(fields);
    summary_ = new QLabel(this);
    summary_->setObjectName(QStringLiteral("fieldMatchSummary"));
    summary_->setWordWrap(true);
    layout->addWidget(summary_);
    prompt_ = new QLabel(this);
    prompt_->setObjectName(QStringLiteral("prompt"));
    prompt_->setWordWrap(true);
    layout->addWidget(prompt_);
    auto* securityRow = new QFormLayout;
    security_ = new QLineEdit(this);
    security_->setObjectName(QStringLiteral("security"));
    securityLabel_ = new QLabel(tr("&Security:"), this);
    securityLabel_->setBuddy(security_);
    connect(security_, &QLineEdit::textEdited, this, [this](const QString& text) {
        form_.typeSecurity(core(text));
        showState();
    });
    securityRow->addRow(securityLabel_, security_);
    layout->addLayout(securityRow);

    auto* buttons = new QDialogButtonBox(this);
    addButton(buttons, tr("Cancel"), LearnAction::cancel);
    addButton(buttons, tr("Back"), LearnAction::back);
    no_ = addButton(buttons, tr("No"), LearnAction::no);
    yes_ = addButton(buttons, tr("Yes"), LearnAction::yes);
    ok_ = addButton(buttons, tr("OK"), LearnAction::ok);
    layout->addWidget(buttons);
}

void LearnQuestionDialog::cellClicked(int row, int column) {
    if (row < 0 || column < 0)
        return;
    form_.selectColumn(static_cast<std::size_t>(column));
    cellRow_ = row;
    cellColumn_ = column;
    cell_->setText(
        qt(form_.table.cell(static_cast<std::size_t>(row), static_cast<std::size_t>(column))));
    cell_->setFocus();
}

void LearnQuestionDialog::cellTextSelected() {
    if (cellRow_ < 0 || !cell_->hasSelectedText())
        return;
    form_.selectCellText(static_cast<std::size_t>(cellRow_), static_cast<std::size_t>(cellColumn_),
                         core(cell_->selectedText()));
}

void LearnQuestionDialog::showState() {
    prompt_->setText(qt(form_.prompt));
    summary_->setText(qt(form_.fieldMatchSummary));
    summary_->setVisible(!form_.fieldMatchSummary.empty());
    securityLabel_->setVisible(form_.securityVisible);
    security_->setVisible(form_.securityVisible);
    if (security_->text() != qt(form_.securityText))
        security_->setText(qt(form_.securityText));
    yes_->setVisible(form_.answersYesNo);
    no_->setVisible(form_.answersYesNo);
    ok_->setVisible(!form_.answersYesNo);
    ok_->setEnabled(form_.okEnabled);
    (form_.answersYesNo ? yes_ : ok_)->setDefault(true);
    if (form_.selectedColumn)
        table_->selectColumn(static_cast<int>(*form_.selectedColumn));
}

} // namespace tavvel::gui
