#include "invest/InvestmentOfx.h"

#include "bank/OfxStatements.h"
#include "bank/OfxValues.h"
#include "invest/InvestTexts.h"

#include <array>
#include <cstdlib>

namespace tavvel {

namespace {

// The aggregates of an <INVTRANLIST>, each one transaction.
constexpr std::array<std::string_view, 21> kAggregates = {
    "BUYDEBT",  "BUYMF",      "BUYOPT",     "BUYOTHER", "BUYSTOCK",       "CLOSUREOPT",
    "INCOME",   "INVEXPENSE", "JRNLFUND",   "JRNLSEC",  "MARGININTEREST", "REINVEST",
    "RETOFCAP", "SELLDEBT",   "SELLMF",     "SELLOPT",  "SELLOTHER",      "SELLSTOCK",
    "SPLIT",    "TRANSFER",   "INVBANKTRAN"};

// The tag whose value tells apart the kinds of one aggregate; the first present is taken.
constexpr std::array<std::string_view, 8> kSubtypes = {
    "<INCOMETYPE>", "<TRNTYPE>",  "<TFERACTION>", "<OPTACTION>",
    "<BUYTYPE>",    "<SELLTYPE>", "<OPTBUYTYPE>", "<OPTSELLTYPE>"};

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

struct Aggregate {
    std::string_view name;
    std::size_t begin = 0; // where its opening tag stands
    std::string_view body;
};

// The value after a tag up to the next tag or line end, blanks around it dropped; nothing
// when the tag is absent.
std::optional<std::string_view> rawValue(std::string_view body, std::string_view tag) {
    std::size_t at = body.find(tag);
    if (at == std::string_view::npos)
        return std::nullopt;
    at += tag.size();
    std::size_t end = body.find_first_of(std::string_view("\0\n\r<", 4), at);
    std::string_view value =
        body.substr(at, (end == std::string_view::npos ? body.size() : end) - at);
    while (!value.empty() && isBlank(value.front()))
        value.remove_prefix(1);
    while (!value.empty() && isBlank(value.back()))
        value.remove_suffix(1);
    return value;
}

std::string textValue(std::string_view body, std::string_view tag, bool utf8) {
    auto value = rawValue(body, tag);
    return value ? ofxText(*value, utf8) : std::string();
}

std::string_view tagNameAt(std::string_view text, std::size_t at) {
    std::size_t end = text.find_first_of(">< \t\r\n", at + 1);
    if (end == std::string_view::npos || text[end] != '>')
        return {};
    return text.substr(at + 1, end - at - 1);
}

bool isAggregate(std::string_view name) {
    for (std::string_view known : kAggregates)
        if (name == known)
            return true;
    return false;
}

// Every transaction aggregate in one pass; each ends at its end tag, looked for only up to
// the next aggregate so that a missing end tag cannot make the search quadratic.
std::vector<Aggregate> aggregates(std::string_view text) {
    std::vector<Aggregate> found;
    for (std::size_t at = text.find('<'); at != std::string_view::npos;
         at = text.find('<', at + 1)) {
        std::string_view name = tagNameAt(text, at);
        if (isAggregate(name))
            found.push_back({name, at, {}});
    }
    for (std::size_t i = 0; i < found.size(); ++i) {
        std::size_t begin = found[i].begin + found[i].name.size() + 2;
        std::size_t limit = i + 1 < found.size() ? found[i + 1].begin : text.size();
        std::string_view span = text.substr(begin, limit - begin);
        std::string closing = "</" + std::string(found[i].name) + ">";
        found[i].body = span.substr(0, std::min(span.find(closing), span.size()));
    }
    return found;
}

// An OFX date opens with eight digits, year, month and day; a time and zone may follow.
std::optional<CalendarDate> ofxDate(std::string_view value) {
    if (value.size() < 8)
        return std::nullopt;
    int parts[3] = {0, 0, 0};
    constexpr std::size_t widths[3] = {4, 2, 2};
    std::size_t at = 0;
    for (int p = 0; p < 3; ++p)
        for (std::size_t i = 0; i < widths[p]; ++i, ++at) {
            if (value[at] < '0' || value[at] > '9')
                return std::nullopt;
            parts[p] = parts[p] * 10 + (value[at] - '0');
        }
    if (parts[1] < 1 || parts[1] > 12 || parts[2] < 1 || parts[2] > 31)
        return std::nullopt;
    return CalendarDate{parts[0], parts[1], parts[2]};
}

std::string typeOf(const Aggregate& aggregate) {
    for (std::string_view tag : kSubtypes)
        if (auto value = rawValue(aggregate.body, tag); value && !value->empty())
            return std::string(aggregate.name) + " " + std::string(*value);
    return std::string(aggregate.name);
}

// A number read from its own tag: the magnitude and its sign; an absent tag reads as 0.
bool readNumber(std::string_view body, std::string_view tag, double& magnitude, bool& negative) {
    auto value = rawValue(body, tag);
    if (!value)
        return true;
    auto number = ofxAmount(*value);
    if (!number)
        return false;
    double read = std::strtod(number->c_str(), nullptr);
    negative = read < 0;
    magnitude = negative ? -read : read;
    return true;
}

InvestmentRecord errorRecord(std::string_view message, std::string_view body) {
    InvestmentRecord record;
    record.errorMessage = message;
    record.errorText = body;
    return record;
}

// A split is written as the number of new shares for ten old ones.
bool readSplit(std::string_view body, InvestmentRecord& record) {
    double numerator = 0, denominator = 0;
    bool unused = false;
    if (!readNumber(body, "<NUMERATOR>", numerator, unused) ||
        !readNumber(body, "<DENOMINATOR>", denominator, unused))
        return false;
    record.shares = denominator > 0 ? numerator * 10 / denominator : 0;
    return true;
}

// The costs of a trade as the statement states them. A statement that names none had none:
// what the total holds beyond price times shares is the rounding of a price, never a fee.
bool readFees(std::string_view body, InvestmentRecord& record) {
    double total = 0;
    for (std::string_view tag : {"<COMMISSION>", "<FEES>", "<TAXES>", "<LOAD>"}) {
        double part = 0;
        bool negative = false;
        if (!readNumber(body, tag, part, negative))
            return false;
        total += negative ? -part : part;
    }
    record.fees = total;
    return true;
}

bool readNumbers(const Aggregate& aggregate, InvestmentRecord& record) {
    std::string_view body = aggregate.body;
    bool unused = false;
    std::string_view amountTag = aggregate.name == "INVBANKTRAN" ? "<TRNAMT>" : "<TOTAL>";
    if (!readNumber(body, amountTag, record.amount, record.amountWasNegative) ||
        !readNumber(body, "<UNITPRICE>", record.price, unused))
        return false;
    if (aggregate.name == "SPLIT")
        return readSplit(body, record);
    if (!readFees(body, record))
        return false;
    return readNumber(body, "<UNITS>", record.shares, record.sharesWereNegative);
}

void readSecurity(std::string_view body, const std::map<std::string, OfxSecurity>& securities,
                  InvestmentRecord& record) {
    auto id = rawValue(body, "<UNIQUEID>");
    if (!id || id->empty())
        return;
    auto known = securities.find(std::string(*id));
    // An id the list does not hold is still the statement's name for the security.
    if (known == securities.end()) {
        record.security = *id;
        return;
    }
    record.security = known->second.name.empty() ? std::string(*id) : known->second.name;
    record.symbol = known->second.ticker;
}

struct Reading {
    const InvestmentOfxRead& read;
    bool utf8;
    std::map<std::string, OfxSecurity> securities;
};

std::optional<InvestmentRecord> readAggregate(const Aggregate& aggregate, const Reading& reading) {
    std::string_view body = aggregate.body;
    auto dateText = rawValue(body, "<DTTRADE>");
    if (!dateText)
        dateText = rawValue(body, "<DTPOSTED>");
    auto date = dateText ? ofxDate(*dateText) : std::nullopt;
    if (!date)
        return errorRecord(text::investNoDate, body);
    Date instant = localMidnight(*date);
    if (instant < reading.read.fromDate || instant > reading.read.toDate)
        return std::nullopt;
    InvestmentRecord record;
    if (!readNumbers(aggregate, record))
        return errorRecord(text::investBadNumber, body);
    record.date = formatDate(instant, reading.read.datePattern);
    record.type = typeOf(aggregate);
    readSecurity(body, reading.securities, record);
    record.memo = textValue(body, "<MEMO>", reading.utf8);
    record.description = textValue(body, "<NAME>", reading.utf8);
    record.check = textValue(body, "<CHECKNUM>", reading.utf8);
    return record;
}

// The account of the statement an aggregate stands in; statements come in file order.
struct StatementCursor {
    std::vector<OfxStatement> statements;
    std::size_t next = 0;
    const OfxStatement* at(std::size_t position) {
        while (next < statements.size() && statements[next].begin <= position)
            ++next;
        return next == 0 ? nullptr : &statements[next - 1];
    }
};

} // namespace

std::map<std::string, OfxSecurity> ofxSecurities(std::string_view text, bool utf8) {
    std::map<std::string, OfxSecurity> found;
    constexpr std::string_view open = "<SECINFO>";
    for (std::size_t at = text.find(open); at != std::string_view::npos;) {
        std::size_t next = text.find(open, at + open.size());
        std::string_view info =
            text.substr(at, (next == std::string_view::npos ? text.size() : next) - at);
        std::size_t end = info.find("</SECINFO>");
        info = info.substr(0, std::min(end, info.size()));
        if (auto id = rawValue(info, "<UNIQUEID>"); id && !id->empty())
            found[std::string(*id)] = {textValue(info, "<SECNAME>", utf8),
                                       textValue(info, "<TICKER>", utf8)};
        at = next;
    }
    return found;
}

std::vector<InvestmentRecord> readInvestmentOfx(std::string_view text,
                                                const InvestmentOfxRead& read) {
    Reading reading{read, ofxDeclaresUtf8(text), {}};
    reading.securities = ofxSecurities(text, reading.utf8);
    StatementCursor cursor{ofxStatements(text)};
    std::vector<InvestmentRecord> records;
    for (const Aggregate& aggregate : aggregates(text)) {
        const OfxStatement* statement = cursor.at(aggregate.begin);
        if (read.account && (!statement || statement->account != *read.account))
            continue;
        if (auto record = readAggregate(aggregate, reading))
            records.push_back(std::move(*record));
    }
    return records;
}

} // namespace tavvel
