// Writing transactions. The stages for each bank or card transaction: fill the description and
// memo templates; register the category; tidy the number; then write a QIF record or walk the
// layout's Order, one field per present item.

#include "formats/OutputFormats.h"

#include "context/Context.h"
#include "formats/OutputFormatKeys.h"
#include "knowledge/Categories.h"
#include "prefs/Settings.h"
#include "recognize/CalendarDate.h"
#include "recognize/InputFormatKeys.h"
#include "recognize/ParseDate.h"
#include "recognize/TextRewrite.h"
#include "recognize/TvDate.h"

#include <algorithm>

namespace tavvel {

namespace {

Dictionary builtInQIF() {
    return Dictionary{{std::string(outkey::Name), Value(outkey::QIF)}};
}

bool startsWith(std::string_view text, std::string_view prefix) {
    return text.substr(0, prefix.size()) == prefix;
}

std::string withoutLeadingBlanks(const std::optional<std::string>& text) {
    if (!text)
        return {};
    std::size_t first = text->find_first_not_of(' ');
    return first == std::string::npos ? std::string() : text->substr(first);
}

void line(std::string& output, char letter, std::string_view value) {
    output += letter;
    output.append(value);
    output += '\n';
}

// Every field of the layout, in Order, with whether it is present.
struct Item {
    std::string_view name;
    std::int64_t position;
};

// With every split written, each split is three fields (amount, category, memo); a
// transaction without splits writes none.
template <class Field> void writeSplitFields(const Array* splits, Field& field) {
    if (!splits)
        return;
    for (const Value& split : *splits)
        for (std::string_view key : {"amount", "category", "memo"})
            field(textOf(split.dictionary(), key));
}

template <class Write> void forEachPresentItem(const Dictionary& format, Write write) {
    static const Array none;
    const Value* orderValue = find(format, outkey::Order);
    const Array& order = orderValue ? orderValue->array() : none;
    const Value* present = find(format, outkey::Present);
    for (std::size_t i = 0; i < order.size(); ++i) {
        bool on = present && i < present->array().size() && present->array()[i].toBool();
        if (on)
            write(Item{order[i].text(), static_cast<std::int64_t>(i)});
    }
}

std::string credit(const std::optional<std::string>& amount) {
    return amount && !startsWith(*amount, "-") ? *amount : std::string();
}

std::string debit(const std::optional<std::string>& amount) {
    return amount && startsWith(*amount, "-") ? *amount : std::string();
}

} // namespace

Array OutputFormats::getOutputFormatsArray() {
    const Value* stored = ctx_.prefs.objectForKey(prefkey::OutputFormats);
    if (stored)
        return stored->array();
    Array formats{Value(builtInQIF())};
    ctx_.prefs.setObject(prefkey::OutputFormats, Value(formats));
    ctx_.prefs.synchronize();
    return formats;
}

std::optional<Dictionary> OutputFormats::formatForName(std::string_view name) {
    for (const Value& format : getOutputFormatsArray())
        if (textOf(format.dictionary(), outkey::Name) == name)
            return format.dictionary();
    return std::nullopt;
}

std::vector<std::string> OutputFormats::namesForKind(int gType) {
    constexpr std::string_view kinds[] = {"Bank", "Credit Card", "Investment"};
    std::vector<std::string> names{std::string(outkey::QIF)};
    for (const Value& format : getOutputFormatsArray()) {
        std::string name = textOf(format.dictionary(), outkey::Name);
        if (name == outkey::QIF)
            continue;
        bool anyKind = gType < 0 || gType > 2;
        if (anyKind || textOf(format.dictionary(), outkey::Type) == kinds[gType])
            names.push_back(name);
    }
    return names;
}

void OutputFormats::chooseFormat(std::string_view name) {
    chosenName_ = std::string(name);
    useLayout(QIFOutput() ? std::nullopt : formatForName(name));
}

void OutputFormats::useLayout(std::optional<Dictionary> layout) {
    chosen_ = std::move(layout);
    reformat_.reset();
    if (chosen_)
        chosenName_ = textOf(*chosen_, outkey::Name);
    if (!chosen_)
        return;
    const Value* on = find(*chosen_, outkey::ReformatDate);
    if (on && on->toBool())
        reformat_ = reformatPattern(textOf(*chosen_, outkey::ReformatDateFormat));
}

std::string OutputFormats::reformatPattern(std::string_view percentPattern) {
    std::string pattern(percentPattern);
    constexpr std::pair<std::string_view, std::string_view> replacements[] = {
        {"%b", "MMM"}, {"%B", "MMMM"}, {"%m", "M"}, {"%d", "d"}, {"%y", "yy"}, {"%Y", "yyyy"}};
    for (auto [from, to] : replacements)
        for (std::size_t at = pattern.find(from); at != std::string::npos;
             at = pattern.find(from, at + to.size()))
            pattern.replace(at, from.size(), to);
    return pattern;
}

std::string OutputFormats::convertedDate(std::string_view date) const {
    if (!reformat_)
        return std::string(date);
    for (std::string_view delimiter : {",", "/", "-"}) {
        Dictionary format{{std::string(fmtkey::DateDelimiter), Value(delimiter)}};
        std::int64_t month = 0, day = 0, year = 0;
        if (!parseDate(date, format, month, day, year, ctx_.config, ctx_.clock))
            continue;
        return formatDate(TvDate().dateWithYear(year, month, day), *reformat_);
    }
    return std::string(date);
}

void OutputFormats::produceNonQIFOutputField(std::string field, bool csv, std::string& output,
                                             std::int64_t position) {
    if (csv) {
        if (field.find_first_of(",\"") != std::string::npos) {
            caseInsensitiveReplace(field, "\"", "\"\"");
            field = "\"" + field + "\"";
        }
        if (position >= 1)
            output += ',';
    } else {
        caseInsensitiveReplace(field, "\t", "     ");
        if (position >= 1)
            output += '\t';
    }
    output += field;
}

void OutputFormats::produceBankCCOutput(std::string& output, const BankOutput& t) {
    if (t.category)
        Categories(ctx_.prefs).registerCategory(*t.category, dialogs_);
    noteCategory(t);
    writeBankCCRecord(output, t);
}

void OutputFormats::writeBankCCRecord(std::string& output, const BankOutput& t) {
    std::optional<std::string_view> description, memo;
    if (t.description)
        description = *t.description;
    if (t.memo)
        memo = *t.memo;
    std::string descriptionText =
        convertOutputForFieldType(ctx_.prefs, prefkey::DescriptionOutput, description, memo);
    std::string memoText =
        convertOutputForFieldType(ctx_.prefs, prefkey::MemoOutput, description, memo);
    std::string number = withoutLeadingBlanks(t.number);
    if (QIFOutput()) {
        if (optionOn(ctx_.prefs, option::removeLongNumber) && number.size() > 5)
            number.clear();
        writeQIF(output, t, descriptionText, memoText, number);
        return;
    }
    writeDelimited(output, t, descriptionText, memoText, number);
}

// A split transaction is remembered under its first split's category.
void OutputFormats::noteCategory(const BankOutput& t) {
    lastCategory_ = t.category.value_or("");
    if (t.splits && !t.splits->empty() && t.splits->front().isDictionary())
        lastCategory_ = textOf(t.splits->front().dictionary(), "category");
}

void OutputFormats::writeQIF(std::string& output, const BankOutput& t,
                             const std::string& description, const std::optional<std::string>& memo,
                             const std::string& number) {
    std::string date = t.date.value_or("");
    if (optionOn(ctx_.prefs, option::outputDashDates))
        std::replace(date.begin(), date.end(), '/', '-');
    line(output, 'D', date);
    if (!description.empty())
        line(output, 'P', description);
    if (memo && !memo->empty())
        line(output, 'M', *memo);
    if (t.amount)
        line(output, 'T', *t.amount);
    if (!number.empty())
        line(output, 'N', number);
    if (!t.splits && t.category && !t.category->empty())
        line(output, 'L', *t.category);
    if (t.splits)
        for (const Value& split : *t.splits) {
            line(output, 'S', textOf(split.dictionary(), "category"));
            line(output, 'E', textOf(split.dictionary(), "memo"));
            line(output, '$', textOf(split.dictionary(), "amount"));
        }
    if (t.cleared)
        line(output, 'C', *t.cleared);
    output += "^\n";
}

void OutputFormats::writeDelimited(std::string& output, const BankOutput& t,
                                   const std::string& description,
                                   const std::optional<std::string>& memo,
                                   const std::string& number) {
    if (!chosen_)
        return;
    bool csv = startsWith(textOf(*chosen_, outkey::Separator), "Comma");
    bool allSplits = find(*chosen_, outkey::SplitsOutput) &&
                     find(*chosen_, outkey::SplitsOutput)->toInteger() == 2;
    forEachPresentItem(*chosen_, [&](Item item) {
        auto field = [&](std::string value) {
            produceNonQIFOutputField(std::move(value), csv, output, item.position);
        };
        std::string_view n = item.name;
        if (n == "Date")
            field(convertedDate(t.date.value_or("")));
        else if (n == "Description")
            field(description);
        else if (n == "Memo")
            field(memo.value_or(""));
        else if (n == "Amount")
            field(t.amount.value_or(""));
        else if (n == "Credit")
            field(credit(t.amount));
        else if (n == "Debit")
            field(debit(t.amount));
        else if (n == "Number")
            field(number);
        else if (n == "Category")
            field(t.category.value_or(""));
        else if (n == "Account")
            field(account_);
        else if (n == "Splits" && allSplits)
            writeSplitFields(t.splits, field);
        else
            field("");
    });
    output += '\n';
}

void OutputFormats::produceInvestmentOutput(std::string& output, const InvestmentOutput& t) {
    if (!chosen_)
        return;
    bool csv = startsWith(textOf(*chosen_, outkey::Separator), "Comma");
    const std::pair<std::string_view, const std::optional<std::string>*> plain[] = {
        {"Type", &t.type},     {"Description", &t.description}, {"Memo", &t.memo},
        {"Amount", &t.amount}, {"Number", &t.number},           {"Category", &t.category},
        {"Shares", &t.shares}, {"Security", &t.security},       {"Price", &t.price},
        {"Fees", &t.fees}};
    forEachPresentItem(*chosen_, [&](Item item) {
        std::string value;
        if (item.name == "Date")
            value = convertedDate(t.date.value_or(""));
        else if (item.name == "Credit")
            value = credit(t.amount);
        else if (item.name == "Debit")
            value = debit(t.amount);
        else if (item.name == "Account")
            value = account_;
        for (auto [name, field] : plain)
            if (item.name == name)
                value = field->value_or("");
        produceNonQIFOutputField(std::move(value), csv, output, item.position);
    });
    output += '\n';
}

} // namespace tavvel
