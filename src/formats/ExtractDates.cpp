#include "context/Context.h"
#include "formats/ExtractKeys.h"
#include "formats/ExtractRun.h"
#include "recognize/CalendarDate.h"
#include "recognize/InputFormatKeys.h"
#include "recognize/ParseDate.h"

namespace tavvel::extract {

namespace {

// A statement holds a few hundred dates at most; text that holds more starts the memo afresh.
constexpr std::size_t kMemoLimit = 4096;

Dictionary dateKeys(const Dictionary& format) {
    Dictionary keys;
    for (std::string_view key : {fmtkey::DateDelimiter, fmtkey::DateEnd, fmtkey::DayBeforeMonth})
        if (const Value* value = find(format, key))
            keys.emplace(std::string(key), *value);
    return keys;
}

} // namespace

DateReader::DateReader(const Dictionary& format, Context& ctx)
    : keys_(dateKeys(format)), ctx_(ctx) {}

std::optional<Date> DateReader::read(std::string_view field) {
    if (auto known = fields_.find(field); known != fields_.end())
        return known->second;
    if (fields_.size() >= kMemoLimit)
        fields_.clear();
    return fields_.emplace(std::string(field), readAnew(field)).first->second;
}

// Numbers the date leaves out stay 1, as the reading always started.
std::optional<Date> DateReader::readAnew(std::string_view field) {
    std::int64_t month = 1, day = 1, year = 1;
    if (!parseDate(field, keys_, month, day, year, ctx_.config, ctx_.clock))
        return std::nullopt;
    const std::array<std::int64_t, 3> key{year, month, day};
    if (auto known = days_.find(key); known != days_.end())
        return known->second;
    if (days_.size() >= kMemoLimit)
        days_.clear();
    return days_.emplace(key, ctx_.gTvDate.dateWithYear(year, month, day)).first->second;
}

const std::string& DateReader::written(Date date) {
    // The prefix alone is compared: making the whole pattern for every date cost more than
    // finding the date written.
    const std::string& prefix = ctx_.output.datePrefix;
    if (prefix_ != prefix || written_.size() >= kMemoLimit) {
        written_.clear();
        prefix_ = prefix;
        pattern_ = ctx_.output.longDatePattern();
    }
    auto known = written_.find(date.seconds);
    if (known == written_.end())
        known = written_.emplace(date.seconds, formatDate(date, pattern_)).first;
    return known->second;
}

RunFormat::RunFormat(const Dictionary& format, Context& ctx)
    : cutter(format, ctx.blanks), dates(format, ctx), ofxLike(has(format, fmtkey::OFX)) {
    if (const Value* index = find(format, fmtkey::Date))
        dateIndex = index->toInteger();
}

} // namespace tavvel::extract
