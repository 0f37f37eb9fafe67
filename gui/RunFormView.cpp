#include "RunFormView.h"

#include "Text.h"
#include "TypeAheadBinding.h"
#include "app/Controller.h"
#include "bank/QifInputTypes.h"
#include "dialogs/Chooser.h"
#include "forms/RunForm.h"
#include "forms/RunFormTexts.h"
#include "knowledge/Accounts.h"
#include "knowledge/Formats.h"

#include <QAction>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QVBoxLayout>
#include <initializer_list>

namespace tavvel::gui {

namespace {

template <class Widget> Widget* named(Widget* widget, const char* name) {
    widget->setObjectName(QLatin1String(name));
    return widget;
}

void setItems(QComboBox& box, const QStringList& items) {
    QStringList shown;
    for (int i = 0; i < box.count(); ++i)
        shown << box.itemText(i);
    if (shown == items)
        return;
    QString text = box.isEditable() ? box.currentText() : QString();
    box.clear();
    box.addItems(items);
    if (box.isEditable())
        box.setEditText(text);
}

void setText(QLineEdit& edit, const std::string& text) {
    QString shown = qt(text);
    if (edit.text() != shown)
        edit.setText(shown);
}

} // namespace

RunFormView::RunFormView(Controller& controller, TvPrefs& prefs, QAction* learn, QWidget* parent)
    : QWidget(parent), controller_(controller), form_(controller.form()), prefs_(prefs),
      learn_(learn) {
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(buildInputPart(prefs, learn));
    layout->addWidget(buildAccountPart(prefs));
    layout->addWidget(buildRangePart());
    layout->addWidget(buildOutputPart());
    process_ = named(new QPushButton(qt(text::processButton), this), "process");
    process_->setDefault(true);
    connect(process_, &QPushButton::clicked, this, &RunFormView::processRequested);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(process_);
    layout->addLayout(buttons);
    layout->addStretch(1);
    process_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Return));
    describeControls();
}

QWidget* RunFormView::buildInputPart(TvPrefs& prefs, QAction* learn) {
    auto* box = new QGroupBox(tr("Input"), this);
    auto* fields = new QFormLayout(box);
    inputFrom_ = named(new QLabel(box), "inputFrom");
    qifType_ = named(new QComboBox(box), "qifType");
    for (const QifInputType& type : kQifInputTypes)
        qifType_->addItem(qt(type.title));
    qfxType_ = named(new QComboBox(box), "qfxType");
    for (std::string_view type : kQfxInputTypes)
        qfxType_->addItem(qt(type));
    connect(qifType_, &QComboBox::activated, this, [this](int index) {
        form_.chooseQifType(index);
        refresh();
    });
    connect(qfxType_, &QComboBox::activated, this, [this](int index) {
        form_.chooseQfxType(index);
        refresh();
    });
    inputFormat_ = named(new QComboBox(box), "inputFormat");
    inputFormat_->setEditable(true);
    inputFormat_->setInsertPolicy(QComboBox::NoInsert);
    inputFormat_->setCompleter(nullptr);
    inputFormatTyping_ = new TypeAheadBinding(
        inputFormat_->lineEdit(),
        [&prefs](std::string_view typed) { return Formats(prefs).completedString(typed); },
        [this](const std::string& text) {
            form_.setInputFormatName(text);
            refresh();
        });
    connect(inputFormat_, &QComboBox::activated, this, [this](int index) {
        form_.setInputFormatName(core(inputFormat_->itemText(index)));
        refresh();
    });
    inputFormatRow_ = new QWidget(box);
    auto* row = new QHBoxLayout(inputFormatRow_);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(inputFormat_, 1);
    auto* learnButton = named(new QToolButton(inputFormatRow_), "learn");
    learnButton->setDefaultAction(learn);
    row->addWidget(learnButton);
    fields->addRow(tr("From:"), inputFrom_);
    fields->addRow(tr("QIF type:"), qifType_);
    fields->addRow(tr("QFX type:"), qfxType_);
    fields->addRow(tr("Input format:"), inputFormatRow_);
    return box;
}

QWidget* RunFormView::buildAccountPart(TvPrefs& prefs) {
    auto* box = new QGroupBox(tr("Account"), this);
    auto* fields = new QFormLayout(box);
    accountType_ = named(new QLabel(box), "accountType");
    account_ = named(new QComboBox(box), "account");
    account_->setEditable(true);
    account_->setInsertPolicy(QComboBox::NoInsert);
    account_->setCompleter(nullptr);
    accountTyping_ = new TypeAheadBinding(
        account_->lineEdit(),
        [this, &prefs](std::string_view typed) {
            Accounts accounts(prefs);
            ChooserState chooser;
            accounts.comboBoxIncludeOnly(form_.accountKind, chooser);
            return accounts.completedString(typed);
        },
        [this](const std::string& text) {
            form_.setAccountText(text);
            refresh();
        });
    connect(account_, &QComboBox::activated, this, [this](int index) {
        form_.setAccountText(core(account_->itemText(index)));
        refresh();
    });
    accountHint_ = named(new QLabel(box), "accountHint");
    fields->addRow(tr("Type:"), accountType_);
    fields->addRow(tr("Account:"), account_);
    fields->addRow(QString(), accountHint_);
    return box;
}

QWidget* RunFormView::buildRangePart() {
    auto* box = new QGroupBox(tr("Transactions"), this);
    auto* layout = new QVBoxLayout(box);
    range_ = new QButtonGroup(box);
    const char* titles[] = {"All", "Last month", "Date range:"};
    auto* dates = new QHBoxLayout;
    for (int tag = 0; tag < 3; ++tag) {
        auto* button = new QRadioButton(tr(titles[tag]), box);
        button->setObjectName(QStringLiteral("range%1").arg(tag));
        range_->addButton(button, tag);
        (tag < 2 ? static_cast<QBoxLayout*>(layout) : dates)->addWidget(button);
    }
    connect(range_, &QButtonGroup::idClicked, this, [this](int tag) {
        form_.chooseRange(tag);
        refresh();
    });
    dateFrom_ = named(new QLineEdit(box), "dateFrom");
    dateTo_ = named(new QLineEdit(box), "dateTo");
    connect(dateFrom_, &QLineEdit::editingFinished, this, [this] {
        form_.setDateFrom(core(dateFrom_->text()));
        refresh();
    });
    connect(dateTo_, &QLineEdit::editingFinished, this, [this] {
        form_.setDateTo(core(dateTo_->text()));
        refresh();
    });
    // The table follows the range while it is typed; the form is shown afresh when it is left.
    connect(dateFrom_, &QLineEdit::textEdited, this, [this](const QString& text) {
        form_.setDateFrom(core(text));
        emit formChanged();
    });
    connect(dateTo_, &QLineEdit::textEdited, this, [this](const QString& text) {
        form_.setDateTo(core(text));
        emit formChanged();
    });
    dates->addWidget(dateFrom_);
    dates->addWidget(new QLabel(tr("to"), box));
    dates->addWidget(dateTo_);
    layout->addLayout(dates);
    invalidRange_ = named(new QLabel(qt(text::invalidRangeWarning), box), "invalidRange");
    layout->addWidget(invalidRange_);
    return box;
}

QWidget* RunFormView::buildOutputPart() {
    auto* box = new QGroupBox(tr("Output"), this);
    auto* fields = new QFormLayout(box);
    outputFormat_ = named(new QComboBox(box), "outputFormat");
    connect(outputFormat_, &QComboBox::activated, this, [this](int index) {
        form_.chooseOutputFormat(core(outputFormat_->itemText(index)));
        refresh();
    });
    sameDate_ = named(new QCheckBox(tr("Same date:"), box), "sameDate");
    outputDate_ = named(new QLineEdit(box), "outputDate");
    sameNumber_ = named(new QCheckBox(tr("Same number:"), box), "sameNumber");
    outputNumber_ = named(new QLineEdit(box), "outputNumber");
    connect(sameDate_, &QCheckBox::clicked, this, [this](bool on) {
        form_.setSameDate(on);
        refresh();
    });
    connect(sameNumber_, &QCheckBox::clicked, this, [this](bool on) {
        form_.setSameNumber(on);
        refresh();
    });
    connect(outputDate_, &QLineEdit::textEdited, this, [this](const QString& text) {
        form_.setOutputDate(core(text));
        emit formChanged();
    });
    connect(outputNumber_, &QLineEdit::textEdited, this,
            [this](const QString& text) { form_.setOutputNumber(core(text)); });
    appendSwitch_ = named(new QCheckBox(tr("Append to:"), box), "appendSwitch");
    appendPopUp_ = named(new QComboBox(box), "appendPopUp");
    outputFile_ = named(new QLabel(box), "outputFile");
    connect(appendSwitch_, &QCheckBox::clicked, this, [this](bool on) {
        form_.setAppendSwitch(on);
        refresh();
    });
    connect(appendPopUp_, &QComboBox::activated, this, [this](int index) {
        form_.chooseAppendItem(index);
        refresh();
    });
    auto* append = new QHBoxLayout;
    append->addWidget(appendPopUp_, 1);
    append->addWidget(outputFile_, 1);
    fields->addRow(tr("Output format:"), outputFormat_);
    fields->addRow(sameDate_, outputDate_);
    fields->addRow(sameNumber_, outputNumber_);
    fields->addRow(appendSwitch_, append);
    return box;
}

void RunFormView::refresh() {
    refreshInput();
    refreshAccount();
    refreshRange();
    refreshOutput();
    learn_->setEnabled(form_.learnEnabled);
    process_->setEnabled(form_.processEnabled());
    refreshFixedFields();
    emit formChanged();
}

// A resumed run keeps the settings it was stopped with: they are shown, not edited.
void RunFormView::refreshFixedFields() {
    bool editable = !form_.resuming;
    for (QWidget* field : std::initializer_list<QWidget*>{account_, outputFormat_, sameDate_,
                                                          outputDate_, sameNumber_, outputNumber_})
        field->setEnabled(editable);
}

void RunFormView::refreshInput() {
    inputFrom_->setText(qt(controller_.inputFrom()));
    showRow(qifType_, form_.qifTypeShown());
    qifType_->setCurrentIndex(form_.qifType);
    showRow(qfxType_, form_.qfxTypeShown());
    qfxType_->setCurrentIndex(form_.qfxType);
    showRow(inputFormatRow_, form_.textInput);
    setItems(*inputFormat_, qtList(Formats(prefs_).exportMenuTitles()));
    if (inputFormat_->currentText() != qt(form_.inputFormatName))
        inputFormatTyping_->show(form_.inputFormatName);
}

void RunFormView::refreshAccount() {
    accountType_->setText(qt(form_.accountType));
    showRow(account_, form_.accountBoxVisible);
    setItems(*account_, qtList(form_.accountChoices));
    if (account_->currentText() != qt(form_.accountText))
        accountTyping_->show(form_.accountText);
    accountHint_->setText(qt(form_.accountHint));
    showRow(accountHint_, !form_.accountBoxVisible);
}

void RunFormView::refreshRange() {
    if (QAbstractButton* button = range_->button(form_.whichTransactions))
        button->setChecked(true);
    setText(*dateFrom_, form_.dateFrom);
    setText(*dateTo_, form_.dateTo);
    dateFrom_->setEnabled(form_.rangeFieldsEnabled);
    dateTo_->setEnabled(form_.rangeFieldsEnabled);
    invalidRange_->setVisible(form_.rangeFieldsEnabled && form_.invalidRangeWarningVisible);
}

void RunFormView::refreshOutput() {
    setItems(*outputFormat_, qtList(form_.outputFormatChoices));
    outputFormat_->setCurrentText(qt(form_.outputFormat));
    sameDate_->setChecked(form_.sameDate);
    setText(*outputDate_, form_.outputDate);
    sameNumber_->setChecked(form_.sameNumber);
    setText(*outputNumber_, form_.outputNumber);
    appendSwitch_->setVisible(form_.appendSwitchVisible);
    appendSwitch_->setChecked(form_.appendSwitchOn);
    appendPopUp_->setVisible(form_.appendPopUpVisible);
    setItems(*appendPopUp_, qtList(form_.appendPopUpItems));
    appendPopUp_->setCurrentIndex(form_.appendPopUpIndex);
    outputFile_->setVisible(form_.outputFileFieldVisible);
    outputFile_->setText(qt(form_.outputFileText));
}

} // namespace tavvel::gui
