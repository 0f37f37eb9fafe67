#include "PreferencesDialog.h"

#include "QtDialogs.h"
#include "Text.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QTabWidget>
#include <QVBoxLayout>

namespace tavvel::gui {

namespace {

using Switch = PreferencesForm::Switch;
using Choice = PreferencesForm::Choice;

struct SwitchTitle {
    Switch which;
    const char* title;
};

// The option switches, as the dialog names them.
constexpr SwitchTitle kSwitchTitles[] = {
    {Switch::append, "Append transactions to the previous output file"},
    {Switch::showAllAccountNames, "Show all account names"},
    {Switch::runAutomatically, "Process automatically with the last settings"},
    {Switch::confirmAllTransactions, "Confirm all transactions"},
    {Switch::textConfirmAllTransactions, "Confirm all transactions read from text"},
    {Switch::treatMemoAsDescription, "Use the memo when the description is blank"},
    {Switch::leaveBlankDescriptionsBlank, "Leave blank descriptions blank"},
    {Switch::longestInstructionMatch, "Use the longest matching instruction"},
    {Switch::updateCategoryWhenDescriptionChanged,
     "Update the category when the description changes"},
    {Switch::matchDescriptionWithContains, "Match descriptions that contain the text"},
    {Switch::quicken2003, "Write QIF for older finance programs"},
    {Switch::formatFirstMatch, "Choose the input format matched first in the text"},
    {Switch::useOFXTRNTYPE, "Keep the OFX transaction type"},
    {Switch::initialCaps, "Capitalise descriptions and memos"},
    {Switch::europeanDates, "Read dates day first"},
    {Switch::outputEuropeanDates, "Write dates day first"},
    {Switch::outputEuropeanAmounts, "Write amounts with a decimal comma"},
    {Switch::outputDashDates, "Write dates with dashes"},
    {Switch::removeLongNumber, "Remove long numbers from descriptions"},
    {Switch::keepDuplicates, "Convert transactions converted before again without asking"},
    {Switch::automaticUpdateChecks, "Check for updates automatically"},
};

struct ChoiceItems {
    Choice which;
    const char* title;
    QStringList items;
};

std::vector<ChoiceItems> choiceItems() {
    QStringList cleared{"Neither", "Cleared", "Uncleared"};
    QStringList places{"2", "3", "4", "5", "6"};
    return {
        {Choice::bankCleared, "Bank transactions:", cleared},
        {Choice::creditCardCleared, "Credit card transactions:", cleared},
        {Choice::investmentCleared, "Investment transactions:", cleared},
        {Choice::unknownCleared, "Bank or credit card transactions:", cleared},
        {Choice::matchOrder,
         "Match also:",
         {"Neither", "Description, then memo", "Memo, then description"}},
        {Choice::categories,
         "Categories:",
         {"None", "Base instructions on categories", "Use categories when present",
          "Don't add categories"}},
        {Choice::cancelBehaviour, "Cancel:", {"Just stop", "Just finish later", "Ask"}},
        {Choice::amountsPrecision, "Amount decimals:", places},
        {Choice::pricesPrecision, "Price decimals:", places},
        {Choice::sharesPrecision, "Share decimals:", places},
        {Choice::bccAmountsPrecision, "Split amount decimals:", places},
    };
}

const char* titleOf(Switch which) {
    for (const SwitchTitle& entry : kSwitchTitles)
        if (entry.which == which)
            return entry.title;
    return "";
}

} // namespace

void PreferencesDialog::edit(TvPrefs& prefs, OutputFormatting& output, QtDialogs& dialogs,
                             QWidget* parent) {
    PreferencesForm form(prefs, output);
    form.display();
    PreferencesDialog dialog(form, parent);
    if (dialogs.runModal(dialog) == QDialog::Accepted)
        form.ok();
    else
        form.cancel();
}

PreferencesDialog::PreferencesDialog(PreferencesForm& form, QWidget* parent)
    : QDialog(parent), form_(form) {
    setWindowTitle(tr("Preferences"));
    auto* tabs = new QTabWidget(this);
    tabs->addTab(
        switchesPage({Switch::append, Switch::showAllAccountNames, Switch::runAutomatically,
                      Switch::confirmAllTransactions, Switch::textConfirmAllTransactions,
                      Switch::formatFirstMatch, Switch::useOFXTRNTYPE, Switch::keepDuplicates,
                      Switch::automaticUpdateChecks}),
        tr("Processing"));
    tabs->addTab(
        switchesPage({Switch::treatMemoAsDescription, Switch::leaveBlankDescriptionsBlank,
                      Switch::longestInstructionMatch, Switch::updateCategoryWhenDescriptionChanged,
                      Switch::matchDescriptionWithContains, Switch::initialCaps,
                      Switch::removeLongNumber}),
        tr("Descriptions"));
    tabs->addTab(
        switchesPage({Switch::europeanDates, Switch::outputEuropeanDates,
                      Switch::outputEuropeanAmounts, Switch::outputDashDates, Switch::quicken2003}),
        tr("Dates and Amounts"));
    tabs->addTab(choicesPage(), tr("Choices"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs);
    layout->addWidget(buttons);
    show();
}

QWidget* PreferencesDialog::switchesPage(const std::vector<Switch>& which) {
    auto* page = new QWidget(this);
    auto* layout = new QVBoxLayout(page);
    for (Switch s : which) {
        auto* box = new QCheckBox(tr(titleOf(s)), page);
        box->setObjectName(QStringLiteral("switch%1").arg(static_cast<int>(s)));
        connect(box, &QCheckBox::clicked, this, [this, s](bool on) {
            form_.setSwitch(s, on);
            show();
        });
        shows_.push_back([this, box, s] {
            box->setChecked(form_.switchOn(s));
            box->setEnabled(form_.switchEnabled(s));
        });
        layout->addWidget(box);
    }
    layout->addStretch(1);
    return page;
}

QWidget* PreferencesDialog::choicesPage() {
    auto* page = new QWidget(this);
    auto* fields = new QFormLayout(page);
    for (const ChoiceItems& choice : choiceItems()) {
        auto* box = new QComboBox(page);
        box->setObjectName(QStringLiteral("choice%1").arg(static_cast<int>(choice.which)));
        box->addItems(choice.items);
        Choice which = choice.which;
        connect(box, &QComboBox::activated, this, [this, which](int index) {
            form_.choose(which, index);
            show();
        });
        shows_.push_back([this, box, which] { box->setCurrentIndex(form_.chosen(which)); });
        fields->addRow(tr(choice.title), box);
    }
    auto* description = new QLineEdit(page);
    auto* memo = new QLineEdit(page);
    connect(description, &QLineEdit::textEdited, this,
            [this](const QString& text) { form_.setDescriptionOutput(core(text)); });
    connect(memo, &QLineEdit::textEdited, this,
            [this](const QString& text) { form_.setMemoOutput(core(text)); });
    shows_.push_back([this, description, memo] {
        if (description->text() != qt(form_.descriptionOutput()))
            description->setText(qt(form_.descriptionOutput()));
        if (memo->text() != qt(form_.memoOutput()))
            memo->setText(qt(form_.memoOutput()));
    });
    fields->addRow(tr("Description output:"), description);
    fields->addRow(tr("Memo output:"), memo);
    return page;
}

void PreferencesDialog::show() {
    for (const auto& part : shows_)
        part();
}

} // namespace tavvel::gui
