// Investment statements in free text, read through an investment input format
// (fromFormattedText:usingFormat:fromDate:toDate:). Stages, in order: the input-format engine
// cuts the text into transactions and fields; per transaction: an engine error is shown with
// "Skip Transaction"; the date (element 0, or its column), the type (its column, or after its
// marker), the security (its column; 0 means none), symbol, memo and check number (column or
// after a marker), category and description (columns), and the numbers, each from its own
// field: amount (then credit, then debit when it reads as 0), price and shares.

#include "bank/BankTexts.h"
#include "dialogs/Dialogs.h"
#include "dialogs/MessageFormat.h"
#include "formats/Extract.h"
#include "formats/ExtractTexts.h"
#include "invest/InvestTexts.h"
#include "invest/InvestmentQIF.h"
#include "recognize/FindAmount.h"
#include "recognize/TextRewrite.h"
#include "recognize/TextSearch.h"

namespace tavvel {

namespace {

using Fields = std::vector<std::string>;

class TextFields {
public:
    TextFields(const Dictionary& format, const Fields& fields) : format_(format), fields_(fields) {}

    // getField: — the field in the key's column, or "".
    std::string field(std::string_view key) const {
        auto column = columnOf(key);
        return column ? fields_[*column] : std::string();
    }

    // findMatch:after: — the value next to the marker in the first field holding it.
    std::optional<std::string> match(std::string_view marker, bool after) const {
        for (const std::string& text : fields_)
            if (auto at = matchField(text, marker, after))
                return after ? text.substr(*at) : text.substr(*at, text.find(marker) - *at);
        return std::nullopt;
    }

    // getFieldOrAfter:endingWith: — the column, else the text after the key's marker, cut at
    // the first of the ending characters.
    std::string fieldOrAfter(std::string_view key, std::string_view endings) const {
        std::string value;
        if (columnOf(key))
            value = field(key);
        else if (auto marker = markerOf(key, "After"))
            value = match(*marker, true).value_or("");
        return value.substr(0, value.find_first_of(endings));
    }

    // The number's text: its column, else after its marker, else (when allowed) before it.
    std::optional<std::string> numberText(std::string_view key, bool after, bool before) const {
        if (columnOf(key))
            return field(key);
        if (after)
            if (auto marker = markerOf(key, "After"))
                return match(*marker, true);
        if (before)
            if (auto marker = markerOf(key, "Before"))
                return match(*marker, false);
        return std::nullopt;
    }

    std::optional<std::size_t> columnOf(std::string_view key) const {
        const Value* column = find(format_, key);
        if (!column || !column->isNumber() || column->toInteger() < 0 ||
            static_cast<std::size_t>(column->toInteger()) >= fields_.size())
            return std::nullopt;
        return static_cast<std::size_t>(column->toInteger());
    }

private:
    std::optional<std::string> markerOf(std::string_view key, std::string_view side) const {
        const Value* marker = find(format_, std::string(key) + std::string(side));
        if (!marker || marker->text().empty())
            return std::nullopt;
        return marker->text();
    }

    const Dictionary& format_;
    const Fields& fields_;
};

constexpr std::string_view kWordEnd = std::string_view(" <\t\r\n\0", 6);
constexpr std::string_view kLineEnd = std::string_view("<\r\n\0", 4);

// getNumber: — nothing for an absent number (it reads as 0); the bad text for one that is no
// number.
struct Number {
    double magnitude = 0;
    bool negative = false;
    std::optional<std::string> bad;
};

Number number(const TextFields& fields, std::string_view key, bool after, bool before) {
    auto text = fields.numberText(key, after, before);
    if (!text)
        return {};
    FoundAmount found = findAmount(convertEuropeanAmount(*text));
    if (found.amount == kUnreadableAmount)
        return {0, false, *text};
    return {found.amount, found.negative, std::nullopt};
}

// The amount, falling through to a credit and then a debit column while it reads as 0.
void readAmount(const TextFields& fields, InvestmentRecord& record) {
    Number amount = number(fields, "Amount", true, false);
    bool debit = false;
    if (!amount.bad && amount.magnitude == 0)
        amount = number(fields, "Credit", false, false);
    if (!amount.bad && amount.magnitude == 0) {
        amount = number(fields, "Debit", false, false);
        debit = true;
    }
    record.amount = amount.magnitude;
    record.amountWasNegative = debit ? amount.magnitude != 0 || amount.bad : amount.negative;
    if (amount.bad)
        record.badValue = *amount.bad;
}

InvestmentRecord recordFrom(const Dictionary& format, const Fields& fields) {
    TextFields read(format, fields);
    InvestmentRecord record;
    record.date = has(format, "Date") ? read.field("Date") : fields[0];
    if (read.columnOf("Type"))
        record.type = read.field("Type");
    else if (const Value* marker = find(format, "TypeAfter"))
        record.type = read.match(marker->text(), true).value_or("");
    auto security = read.columnOf("Security");
    record.security = security && *security != 0 ? fields[*security] : std::string();
    record.symbol = read.fieldOrAfter("Symbol", kWordEnd);
    record.memo = read.fieldOrAfter("Memo", kLineEnd);
    record.category = read.field("Category");
    record.description = read.field("Description");
    record.check = read.fieldOrAfter("Check", kWordEnd);
    readAmount(read, record);
    Number price = number(read, "Price", true, false);
    Number shares = number(read, "Shares", true, true);
    record.price = price.magnitude;
    record.shares = shares.magnitude;
    record.sharesWereNegative = shares.negative;
    for (const Number* bad : {&price, &shares})
        if (bad->bad && record.badValue.empty())
            record.badValue = *bad->bad;
    return record;
}

} // namespace

bool InvestmentQIF::fromFormattedText(std::string_view text, const Dictionary& format,
                                      Date fromDate, Date toDate) {
    Extract extract(ctx_);
    if (!extract.parseTransactionsForCString(text, format))
        return false;
    qif.clear();
    while (const Fields* fields = extract.nextTransactionUsingFormat(format, fromDate, toDate)) {
        if (fields->empty())
            continue;
        if ((*fields)[0] != text::extractError) {
            qif.push_back(recordFrom(format, *fields));
            continue;
        }
        auto at = [&](std::size_t i) { return i < fields->size() ? (*fields)[i] : std::string(); };
        if (!dialogs_.errorWarning(at(1), at(2), std::string(text::skipTransaction), false)
                 .pressedButton)
            return false;
    }
    return true;
}

} // namespace tavvel
