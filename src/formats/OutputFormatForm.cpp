#include "formats/OutputFormatForm.h"

#include "formats/OutputFormatKeys.h"
#include "formats/OutputFormatStore.h"
#include "formats/OutputFormatTexts.h"
#include "formats/OutputFormats.h"
#include "recognize/CaseFold.h"

#include <algorithm>

namespace tavvel {

namespace {

constexpr std::string_view kProposedDatePattern = "%m/%d/%Y";

bool isInvestment(std::string_view type) {
    return type == outkey::Investment;
}

// The columns each type offers, with the amount as one column or as credit and debit.
std::vector<std::string> columnSet(std::string_view type, std::string_view amountStyle) {
    static const std::vector<std::string_view> bank = {
        "Date",    "Number", "Description", "Memo",   "Category", "Amount",
        "Account", "Splits", "blank1",      "blank2", "blank3"};
    static const std::vector<std::string_view> investment = {
        "Date",     "Type",  "Description", "Memo",    "Amount", "Number", "Category", "Shares",
        "Security", "Price", "Fees",        "Account", "blank1", "blank2", "blank3"};
    std::vector<std::string> names;
    for (std::string_view name : isInvestment(type) ? investment : bank) {
        if (name == "Amount" && amountStyle == outkey::CreditDebit) {
            names.insert(names.end(), {"Credit", "Debit"});
            continue;
        }
        names.emplace_back(name);
    }
    return names;
}

bool presetOff(std::string_view name) {
    return name.substr(0, 5) == "blank" || name == "Account" || name == "Splits";
}

bool offered(const std::vector<std::string_view>& titles, std::string_view title) {
    return std::find(titles.begin(), titles.end(), title) != titles.end();
}

Dictionary newRecord(std::string name) {
    Array order, present;
    for (std::string_view item : {"Date", "Number", "Description", "Category", "Amount", "Memo",
                                  "blank1", "blank2", "blank3"}) {
        order.emplace_back(item);
        present.emplace_back(item.substr(0, 5) != "blank");
    }
    return Dictionary{{std::string(outkey::Name), Value(std::move(name))},
                      {std::string(outkey::Separator), Value(outkey::Comma)},
                      {std::string(outkey::Amount), Value(outkey::AmountColumn)},
                      {std::string(outkey::Type), Value(outkey::Bank)},
                      {std::string(outkey::Order), Value(std::move(order))},
                      {std::string(outkey::Present), Value(std::move(present))}};
}

BankOutput sampleTransaction(const char* date, const char* payee, const char* memo,
                             const char* amount, const char* number, const char* category) {
    BankOutput t;
    t.date = date, t.description = payee, t.memo = memo, t.amount = amount;
    t.number = number, t.category = category;
    return t;
}

} // namespace

OutputFormatForm::OutputFormatForm(TvPrefs& prefs, Dictionary record,
                                   std::optional<Dictionary> original)
    : prefs_(prefs), record_(std::move(record)), original_(std::move(original)) {
    name_ = textOf(record_, outkey::Name);
    type_ = textOf(record_, outkey::Type, outkey::Bank);
    if (!offered(typeTitles(), type_))
        type_ = outkey::Bank;
    separator_ = textOf(record_, outkey::Separator, outkey::Comma);
    amountStyle_ = textOf(record_, outkey::Amount, outkey::AmountColumn);
    // A record written without the editor's `Amount` key tells its style by its columns.
    const Value* order = find(record_, outkey::Order);
    if (!has(record_, outkey::Amount) && order &&
        std::find(order->array().begin(), order->array().end(), Value("Credit")) !=
            order->array().end())
        amountStyle_ = outkey::CreditDebit;
    if (!offered(amountTitles(), amountStyle_))
        amountStyle_ = outkey::AmountColumn;
    const Value* splits = find(record_, outkey::SplitsOutput);
    everySplit_ = splits && splits->toInteger() == outkey::EverySplit;
    const Value* reformat = find(record_, outkey::ReformatDate);
    reformatDate_ = reformat && reformat->toBool();
    reformatDateFormat_ = textOf(record_, outkey::ReformatDateFormat, kProposedDatePattern);
    showColumnsOf(record_);
}

OutputFormatForm OutputFormatForm::newFormat(TvPrefs& prefs, std::string_view name,
                                             std::optional<std::string_view> forceType) {
    OutputFormatForm form(prefs, newRecord(uniqueNameForName(prefs, name)), std::nullopt);
    if (forceType)
        form.setType(*forceType);
    return form;
}

std::optional<OutputFormatForm> OutputFormatForm::editing(TvPrefs& prefs,
                                                          const Dictionary& record) {
    if (isBuiltInOutputFormat(textOf(record, outkey::Name)))
        return std::nullopt;
    return OutputFormatForm(prefs, record, record);
}

std::optional<OutputFormatForm> OutputFormatForm::open(TvPrefs& prefs, std::string_view name) {
    if (std::optional<Dictionary> stored = outputFormatNamed(prefs, name))
        return editing(prefs, *stored);
    return newFormat(prefs, name);
}

std::string OutputFormatForm::storedName() const {
    return original_ ? textOf(*original_, outkey::Name) : std::string();
}

std::string OutputFormatForm::title() const {
    if (isNew())
        return std::string(text::defineFormatTitle);
    return std::string(text::editOutputFormatTitle) + textOf(*original_, outkey::Name);
}

std::string OutputFormatForm::confirmButtonTitle() const {
    return std::string(isNew() ? text::createOutputFormatButton : text::acceptChangesButton);
}

const std::vector<std::string_view>& OutputFormatForm::typeTitles() {
    static const std::vector<std::string_view> titles{outkey::Bank, outkey::CreditCard,
                                                      outkey::Investment};
    return titles;
}

const std::vector<std::string_view>& OutputFormatForm::separatorTitles() {
    static const std::vector<std::string_view> titles{outkey::Comma, outkey::Tab};
    return titles;
}

const std::vector<std::string_view>& OutputFormatForm::amountTitles() {
    static const std::vector<std::string_view> titles{outkey::AmountColumn, outkey::CreditDebit};
    return titles;
}

bool OutputFormatForm::setType(std::string_view title) {
    if (!offered(typeTitles(), title))
        return false;
    bool sameColumns = isInvestment(title) == isInvestment(type_);
    type_ = std::string(title);
    // Bank and credit card share their columns: the user's arrangement stays.
    if (!sameColumns)
        checkItemsFor();
    return true;
}

bool OutputFormatForm::setSeparator(std::string_view title) {
    if (!offered(separatorTitles(), title))
        return false;
    separator_ = std::string(title);
    return true;
}

bool OutputFormatForm::setAmountStyle(std::string_view title) {
    if (!offered(amountTitles(), title))
        return false;
    if (title == amountStyle_)
        return true;
    amountStyle_ = std::string(title);
    // The amount's place and switch carry over to credit and debit, and back.
    auto at = columnIndex(title == outkey::CreditDebit ? "Amount" : "Credit");
    bool present = at && columns_[*at].present;
    std::erase_if(columns_, [](const Column& c) {
        return c.name == "Amount" || c.name == "Credit" || c.name == "Debit";
    });
    auto place = columns_.begin() + static_cast<std::ptrdiff_t>(at.value_or(columns_.size()));
    if (title == outkey::CreditDebit)
        columns_.insert(place, {Column{"Credit", present}, Column{"Debit", present}});
    else
        columns_.insert(place, Column{"Amount", present});
    return true;
}

std::optional<std::size_t> OutputFormatForm::columnIndex(std::string_view name) const {
    for (std::size_t i = 0; i < columns_.size(); ++i)
        if (columns_[i].name == name)
            return i;
    return std::nullopt;
}

void OutputFormatForm::setPresent(std::size_t column, bool present) {
    if (column < columns_.size())
        columns_[column].present = present;
}

void OutputFormatForm::moveColumn(std::size_t from, std::size_t to) {
    if (from >= columns_.size() || to >= columns_.size())
        return;
    Column moved = columns_[from];
    columns_.erase(columns_.begin() + static_cast<std::ptrdiff_t>(from));
    columns_.insert(columns_.begin() + static_cast<std::ptrdiff_t>(to), std::move(moved));
}

// The record's own order first, then what else the type offers, switched off.
void OutputFormatForm::showColumnsOf(const Dictionary& record) {
    const Value* order = find(record, outkey::Order);
    const Value* present = find(record, outkey::Present);
    columns_.clear();
    for (std::size_t i = 0; order && i < order->array().size(); ++i) {
        bool on = present && i < present->array().size() && present->array()[i].toBool();
        columns_.push_back({order->array()[i].text(), on});
    }
    for (const std::string& name : columnSet(type_, amountStyle_))
        if (!columnIndex(name))
            columns_.push_back({name, false});
}

void OutputFormatForm::checkItemsFor() {
    columns_.clear();
    for (std::string& name : columnSet(type_, amountStyle_)) {
        bool on = !presetOff(name);
        columns_.push_back({std::move(name), on});
    }
}

Dictionary OutputFormatForm::record() const {
    Dictionary record = record_;
    Array order, present;
    for (const Column& column : columns_) {
        order.emplace_back(column.name);
        present.emplace_back(column.present);
    }
    record[std::string(outkey::Name)] = Value(name_);
    record[std::string(outkey::Separator)] = Value(separator_);
    record[std::string(outkey::Type)] = Value(type_);
    record[std::string(outkey::Amount)] = Value(amountStyle_);
    record[std::string(outkey::Order)] = Value(std::move(order));
    record[std::string(outkey::Present)] = Value(std::move(present));
    record[std::string(outkey::SplitsOutput)] = Value(everySplit_ ? outkey::EverySplit : 0);
    record[std::string(outkey::ReformatDate)] = Value(reformatDate_);
    record[std::string(outkey::ReformatDateFormat)] = Value(reformatDateFormat_);
    return record;
}

std::string OutputFormatForm::preview(Context& ctx, Dialogs& dialogs) const {
    Dictionary layout = record();
    // The writer takes the name "QIF" for QIF, whatever the name field holds for now.
    layout[std::string(outkey::Name)] = Value("Preview");
    OutputFormats writer(ctx, dialogs);
    writer.useLayout(layout);
    writer.setAccount("Checking");
    std::string out;
    if (isInvestment(type_)) {
        InvestmentOutput buy{"Buy", "01/15/2024", "ACME FUND", "Monthly plan", "-250.00", "",
                             "",    "10",         "Acme Fund", "25.00",        "0.00"};
        writer.produceInvestmentOutput(out, buy);
        return out;
    }
    Array splits{Value(Dictionary{{"category", Value("Home")},
                                  {"memo", Value("Paint")},
                                  {"amount", Value("-15.00")}}),
                 Value(Dictionary{{"category", Value("Garden")},
                                  {"memo", Value("Seeds, bulbs")},
                                  {"amount", Value("-5.00")}})};
    writer.writeBankCCRecord(out, sampleTransaction("01/15/2024", "CITY MARKET", "Weekly shop",
                                                    "-54.20", "1041", "Food:Groceries"));
    writer.writeBankCCRecord(
        out, sampleTransaction("01/16/2024", "PAYROLL ACME", "", "1,250.00", "", "Salary"));
    BankOutput split =
        sampleTransaction("01/18/2024", "HARDWARE \"PAINT\" & CO", "", "-20.00", "", "");
    split.category.reset();
    split.splits = &splits;
    writer.writeBankCCRecord(out, split);
    return out;
}

std::optional<std::size_t> OutputFormatForm::confirm() {
    problem_.clear();
    if (name_.empty())
        problem_ = text::outputFormatNeedsName;
    else if (isBuiltInOutputFormat(name_))
        problem_ = text::outputFormatBuiltIn;
    else if (std::none_of(columns_.begin(), columns_.end(),
                          [](const Column& c) { return c.present; }))
        problem_ = text::outputFormatNeedsColumn;
    if (!problem_.empty())
        return std::nullopt;
    std::string originalName = storedName();
    if (!equalIgnoringCase(originalName, name_))
        name_ = uniqueNameForName(prefs_, name_);
    Dictionary stored = record();
    std::optional<std::string_view> edited;
    if (original_)
        edited = originalName;
    std::size_t index = replaceOutputFormat(prefs_, edited, stored);
    original_ = stored;
    return name_ > outkey::QIF && index > 0 ? index - 1 : index;
}

} // namespace tavvel
