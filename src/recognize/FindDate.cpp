#include "recognize/FindDate.h"

#include "recognize/ByteClass.h"
#include "recognize/EightDigitDate.h"
#include "recognize/InputFormatKeys.h"
#include "recognize/NumericDatePatterns.h"
#include "recognize/ScanPattern.h"
#include "recognize/WordMonthTable.h"

namespace tavvel {

namespace {

bool isLineEnd(char c) {
    return c == '\n' || c == '\r';
}

// One word-month search through one text, with one memo for every position tried.
class LongDateSearch {
public:
    explicit LongDateSearch(const WordMonthDates& tables) : tables_(tables) {}

    std::optional<std::size_t> find(std::string_view text, std::size_t from, std::int64_t& length);

private:
    bool withYearAt(std::string_view text, std::size_t pos, std::int64_t& length);
    bool withoutYearAt(std::string_view text, std::size_t pos, std::int64_t& length);

    const WordMonthDates& tables_;
    WordMonthScratch scratch_;
    // Inside a number already tried from its first digit, formats that start with a number
    // would read the same count of numbers again.
    bool numberTried_ = false;
};

std::optional<std::size_t> LongDateSearch::find(std::string_view text, std::size_t from,
                                                std::int64_t& length) {
    for (std::size_t pos = from; pos < text.size(); ++pos) {
        char c = text[pos];
        if (c == '\t' || c == '\n' || c == '\r' || c == ' ')
            continue;
        numberTried_ = pos > from && isDigitByte(c) && isDigitByte(text[pos - 1]);
        if (!tables_.withYear.mayStartAt(c, numberTried_) &&
            !tables_.withoutYear.mayStartAt(c, numberTried_)) {
            if (!tables_.withoutYear.empty())
                length = 0; // as trying the yearless formats would have left it
            continue;
        }
        if (withYearAt(text, pos, length) || withoutYearAt(text, pos, length))
            return pos;
    }
    return std::nullopt;
}

bool LongDateSearch::withYearAt(std::string_view text, std::size_t pos, std::int64_t& length) {
    const WordMonthTable& table = tables_.withYear;
    for (std::size_t i : table.candidates(text, pos, scratch_, numberTried_)) {
        ScanResult r = scan(text, pos, table.formats()[i].format, &scratch_.memo);
        if (r.count != 2)
            continue;
        if (r.consumed)
            length = *r.consumed;
        return true;
    }
    return false;
}

// A yearless format counts only when it says how long the date is.
bool LongDateSearch::withoutYearAt(std::string_view text, std::size_t pos, std::int64_t& length) {
    const WordMonthTable& table = tables_.withoutYear;
    if (table.empty())
        return false;
    length = 0;
    for (std::size_t i : table.candidates(text, pos, scratch_, numberTried_)) {
        ScanResult r = scan(text, pos, table.formats()[i].format, &scratch_.memo);
        if (r.count == 1 && r.consumed.value_or(0) != 0) {
            length = *r.consumed;
            return true;
        }
    }
    return false;
}

// The nearest occurrence of the start character before each candidate. Candidates come in
// increasing order, so each byte is looked at once however far the start characters lie apart.
class StartTracker {
public:
    explicit StartTracker(char start) : start_(start) {}

    std::optional<std::size_t> before(std::string_view text, std::size_t candidate) {
        for (; scanned_ < candidate; ++scanned_)
            if (text[scanned_] == start_)
                last_ = scanned_;
        return last_;
    }

private:
    char start_;
    std::size_t scanned_ = 0;
    std::optional<std::size_t> last_;
};

class DateSearch {
public:
    DateSearch(std::string_view text, const Dictionary& format, std::int64_t& length,
               BlankCounts& blanks);

    std::optional<std::size_t> numeric();
    std::optional<std::size_t> wordMonth(const WordMonthDates& tables);
    std::optional<std::size_t> eightDigits();

private:
    bool measures(std::size_t dateStart);
    bool endsRight(std::size_t dateStart) const;
    bool standsRight(std::size_t dateStart) const;
    std::size_t accept(std::size_t dateStart);

    std::string_view text_;
    std::int64_t& length_;
    BlankCounts& blanks_;
    char delimiter_;
    char start_;
    char end_;
    std::optional<std::int64_t> distance_;
    StartTracker tracker_;
    RunMemo memo_;
};

DateSearch::DateSearch(std::string_view text, const Dictionary& format, std::int64_t& length,
                       BlankCounts& blanks)
    : text_(text), length_(length), blanks_(blanks),
      delimiter_(fmtkey::firstCharOf(format, fmtkey::DateDelimiter)),
      start_(fmtkey::firstCharOf(format, fmtkey::DateStart)),
      end_(fmtkey::firstCharOf(format, fmtkey::DateEnd)), tracker_(start_) {
    if (const Value* d = find(format, fmtkey::DistanceFromNewline))
        distance_ = d->toInteger();
}

// What follows a candidate's start character depends only on where the date starts, so a
// start that failed once fails again: many delimiters on one long line are judged once.
std::optional<std::size_t> DateSearch::numeric() {
    std::optional<std::size_t> rejected;
    for (std::size_t from = 0;;) {
        std::size_t candidate = text_.find(delimiter_, from);
        if (candidate == std::string_view::npos)
            return std::nullopt;
        from = candidate + 1;
        std::optional<std::size_t> start = tracker_.before(text_, candidate);
        if (!start || *start + 1 == rejected)
            continue;
        std::size_t dateStart = *start + 1;
        if (measures(dateStart) && endsRight(dateStart) && standsRight(dateStart))
            return accept(dateStart);
        rejected = dateStart;
    }
}

std::optional<std::size_t> DateSearch::wordMonth(const WordMonthDates& tables) {
    LongDateSearch longDates(tables);
    for (std::size_t from = 0;;) {
        std::optional<std::size_t> candidate = longDates.find(text_, from, length_);
        if (!candidate)
            return std::nullopt;
        from = *candidate + 1;
        std::optional<std::size_t> start = tracker_.before(text_, *candidate);
        if (start && endsRight(*start + 1) && standsRight(*start + 1))
            return accept(*start + 1);
    }
}

// Eight digits take the place of the numbers that follow the start character, so the start
// character must stand right before them.
std::optional<std::size_t> DateSearch::eightDigits() {
    length_ = static_cast<std::int64_t>(kEightDigitDateLength);
    for (std::size_t from = 0;;) {
        std::optional<std::size_t> candidate = findEightDigitDate(text_, from);
        if (!candidate)
            return std::nullopt;
        from = *candidate + 1;
        std::optional<std::size_t> start = tracker_.before(text_, *candidate);
        if (start && *start + 1 == *candidate && endsRight(*candidate) && standsRight(*candidate))
            return accept(*candidate);
    }
}

bool DateSearch::measures(std::size_t dateStart) {
    NumericDatePatterns patterns = *numericDatePatterns(delimiter_);
    ScanResult r = scan(text_, dateStart, patterns.three, &memo_);
    if (r.count != 3) {
        r = scan(text_, dateStart, patterns.two, &memo_);
        if (r.count != 2)
            return false;
    }
    length_ = r.consumed.value_or(length_);
    return true;
}

bool DateSearch::endsRight(std::size_t dateStart) const {
    std::int64_t after = static_cast<std::int64_t>(dateStart) + length_;
    char c = after < 0 ? '\0' : byteAt(text_, static_cast<std::size_t>(after));
    return c == end_;
}

// The distance n is one more than the number of characters between the line start and the
// date. Bytes before the text are not the text's: a date that close to the start stands right
// only at exactly that distance.
bool DateSearch::standsRight(std::size_t dateStart) const {
    if (!distance_)
        return true;
    const std::int64_t n = *distance_;
    const auto start = static_cast<std::int64_t>(dateStart);
    if (start + 1 == n)
        return true;
    if (n > start || n < -static_cast<std::int64_t>(text_.size()))
        return false;
    return isLineEnd(byteAt(text_, static_cast<std::size_t>(start - n)));
}

std::size_t DateSearch::accept(std::size_t dateStart) {
    if (blanks_.multipleBlanks != -1 || start_ != ' ')
        return dateStart;
    std::size_t i = dateStart;
    while (i > 0 && text_[i - 1] == ' ')
        --i;
    if (i > 0)
        blanks_.multipleBlanks = static_cast<std::int64_t>(dateStart - i);
    return dateStart;
}

std::optional<std::size_t> findOFXDate(std::string_view text, std::int64_t& length,
                                       const Dictionary& format) {
    const Value* after = find(format, fmtkey::DateAfter);
    if (!after)
        return std::nullopt;
    std::size_t at = text.find(after->text());
    if (at == std::string_view::npos)
        return std::nullopt;
    length = 8;
    return at + after->text().size();
}

bool plausible(const ScanResult& r) {
    const std::int64_t a = r.numbers[0], b = r.numbers[1], c = r.numbers[2];
    if (r.count == 2)
        return a > 12 ? a < 32 && b < 13 : b < 32;
    if (a < 101)
        return (a < 13 && b < 32) || (a < 32 && b < 13);
    return (b < 13 && c < 32) || (b < 32 && c < 13);
}

std::optional<std::size_t> findNumericDate(std::string_view text, std::int64_t& length,
                                           char delimiter) {
    const std::string_view three = numericDatePatterns(delimiter)->three;
    for (std::size_t from = 0;;) {
        std::size_t candidate = text.find(delimiter, from);
        if (candidate == std::string_view::npos)
            return std::nullopt;
        from = candidate + 1;
        std::size_t start = candidate;
        while (start > 0 && isDigitByte(text[start - 1]))
            --start;
        ScanResult r = scan(text, start, three);
        if (r.count < 2)
            continue;
        length = r.consumed.value_or(length);
        return plausible(r) ? std::optional(start) : std::nullopt;
    }
}

} // namespace

std::optional<std::size_t> findDate(std::string_view text, std::int64_t& length,
                                    const Dictionary& format, const WordMonthDates& tables,
                                    BlankCounts& blanks) {
    if (has(format, fmtkey::OFX))
        return findOFXDate(text, length, format);
    DateSearch search(text, format, length, blanks);
    char delimiter = fmtkey::firstCharOf(format, fmtkey::DateDelimiter);
    if (delimiter == ',')
        return search.wordMonth(tables);
    if (delimiter == fmtkey::eightDigitDate)
        return search.eightDigits();
    // Any other delimiter can never yield a date.
    if (!numericDatePatterns(delimiter))
        return std::nullopt;
    return search.numeric();
}

std::optional<std::size_t> findDate(std::string_view text, std::int64_t& length,
                                    const Dictionary& format, const Configuration& config,
                                    BlankCounts& blanks) {
    if (fmtkey::firstCharOf(format, fmtkey::DateDelimiter) == ',' && !has(format, fmtkey::OFX))
        return findDate(text, length, format, WordMonthDates(config), blanks);
    // Numeric and OFX-like dates need no table.
    static const Configuration kNoConfiguration;
    static const WordMonthDates kNoTables(kNoConfiguration);
    return findDate(text, length, format, kNoTables, blanks);
}

std::optional<std::size_t> findDateLong(std::string_view text, std::int64_t& length,
                                        const WordMonthDates& tables) {
    return LongDateSearch(tables).find(text, 0, length);
}

std::optional<std::size_t> findDateLong(std::string_view text, std::int64_t& length,
                                        const Configuration& config) {
    return findDateLong(text, length, WordMonthDates(config));
}

std::optional<std::size_t> findDateSlash(std::string_view text, std::int64_t& length) {
    return findNumericDate(text, length, '/');
}

std::optional<std::size_t> findDateDash(std::string_view text, std::int64_t& length) {
    return findNumericDate(text, length, '-');
}

std::optional<std::size_t> findDateDot(std::string_view text, std::int64_t& length) {
    return findNumericDate(text, length, '.');
}

std::optional<std::size_t> findDateEightDigits(std::string_view text, std::int64_t& length) {
    std::optional<std::size_t> at = findEightDigitDate(text);
    if (at)
        length = static_cast<std::int64_t>(kEightDigitDateLength);
    return at;
}

} // namespace tavvel
