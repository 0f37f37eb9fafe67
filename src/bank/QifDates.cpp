// Stages: read one D line (the order given, month words, year-first forms, a real day); gather
// the evidence of every D line in one pass; decide the order, asking once when the file
// cannot tell.

#include "bank/QifDates.h"

#include "bank/BankTexts.h"
#include "context/Context.h"
#include "dialogs/Dialogs.h"
#include "dialogs/MessageFormat.h"
#include "prefs/Settings.h"
#include "recognize/ByteClass.h"
#include "recognize/LocaleDates.h"
#include "recognize/ParseDate.h"

#include <chrono>

namespace tavvel {

namespace {

// The number a date opens with, blanks before it skipped (-1 when there is none).
std::int64_t leadingNumber(std::string_view text) {
    std::size_t at = 0;
    while (at < text.size() && isSpaceByte(text[at]))
        ++at;
    std::int64_t value = -1;
    for (; at < text.size() && isDigitByte(text[at]) && value < 100000; ++at)
        value = (value < 0 ? 0 : value * 10) + (text[at] - '0');
    return value;
}

// The month a month word stands for; the reading of such a date leaves the month to its caller.
std::int64_t monthOfWord(std::string_view text, const Configuration& config) {
    const Array& words = config.array(config::TvLongMonths);
    for (std::size_t i = 0; i < words.size(); ++i)
        if (const std::string* word = words[i].get<std::string>();
            word && !word->empty() && !text.empty() && text.front() == word->front() &&
            text.starts_with(*word))
            return static_cast<std::int64_t>(i % 12) + 1;
    return 0;
}

bool realDay(const QifDay& d) {
    using namespace std::chrono;
    if (d.year < 1 || d.year > 9999 || d.month < 1 || d.month > 12 || d.day < 1 || d.day > 31)
        return false;
    return year_month_day{year(static_cast<int>(d.year)), month(static_cast<unsigned>(d.month)),
                          day(static_cast<unsigned>(d.day))}
        .ok();
}

// The two numbers of a numeric date as written, or nothing for year-first and word dates.
std::optional<std::pair<std::int64_t, std::int64_t>>
writtenPair(std::string_view text, const Configuration& config, const Clock& clock) {
    if (leadingNumber(text) < 0 || leadingNumber(text) >= 101)
        return std::nullopt;
    QifDay d;
    if (!parseQIFDate(text, d.month, d.day, d.year, false, config, clock))
        return std::nullopt;
    return std::pair{d.month, d.day};
}

} // namespace

std::optional<QifDay> readQifDate(std::string_view text, bool dayFirst, const Configuration& config,
                                  const Clock& clock) {
    QifDay d;
    d.month = monthOfWord(text, config);
    bool numeric = d.month == 0;
    bool swap = dayFirst && numeric && leadingNumber(text) < 101;
    if (!parseQIFDate(text, d.month, d.day, d.year, swap, config, clock) || !realDay(d))
        return std::nullopt;
    return d;
}

std::optional<bool> QifDateEvidence::shownDayFirst() const {
    if (dayFirst == monthFirst)
        return std::nullopt;
    return dayFirst;
}

QifDateEvidence qifDateEvidence(std::span<const std::string_view> lines,
                                const Configuration& config, const Clock& clock) {
    QifDateEvidence evidence;
    for (std::string_view line : lines) {
        if (line.empty() || line.front() != 'D')
            continue;
        auto pair = writtenPair(line.substr(1), config, clock);
        if (!pair)
            continue;
        auto [first, second] = *pair;
        evidence.dayFirst |= first > 12;
        evidence.monthFirst |= second > 12;
        evidence.eitherWay |=
            first != second && first >= 1 && first <= 12 && second >= 1 && second <= 12;
    }
    return evidence;
}

bool chooseQifDateOrder(std::span<const std::string_view> lines, Context& ctx, Dialogs& dialogs,
                        std::string_view source) {
    QifDateEvidence evidence = qifDateEvidence(lines, ctx.config, ctx.clock);
    if (auto shown = evidence.shownDayFirst())
        return *shown;
    // The option is the user's lasting answer; a system that writes dates month first agrees
    // with the order QIF has always been read in. Only a day-first system leaves it open.
    bool setting = optionOn(ctx.prefs, option::europeanDates);
    if (setting || evidence.dayFirst || !evidence.eitherWay || !writesDayFirst(systemDateLocale()))
        return setting;
    std::size_t answer =
        dialogs.ask(std::string(text::qifDateOrderTitle), formatMessage(text::qifDateOrder, source),
                    {std::string(text::dayBeforeMonth), std::string(text::monthBeforeDay)});
    return answer == 0;
}

} // namespace tavvel
