// The date, amount, field and line scanners over any text. The first byte picks one of the
// sample input formats; the rest is the text. Whatever a scanner finds lies inside the text,
// and stepping from field to field always moves forward, since the text engine loops on it.
#include "../FuzzSupport.h"
#include "../SampleFormats.h"
#include "../Targets.h"
#include "recognize/FindAmount.h"
#include "recognize/FindDate.h"
#include "recognize/FindField.h"
#include "recognize/FindLines.h"
#include "recognize/InputFormatKeys.h"
#include "recognize/ParseDate.h"

#include <cmath>

namespace tavvel::fuzz {

namespace {

using Finder = std::optional<std::size_t> (*)(std::string_view, std::int64_t&);

// A found date as the finders promise it; returns the date's text.
std::string_view checkFound(std::string_view text, std::optional<std::size_t> at,
                            std::int64_t length, bool ofxLike) {
    if (!at)
        return {};
    check(*at <= text.size(), "a date found after the end of the text");
    check(length >= 0, "a date of negative length");
    // An OFX-like date is a fixed eight bytes after its tag, which the text may cut short.
    if (!ofxLike)
        check(*at + static_cast<std::size_t>(length) <= text.size(),
              "a date that runs past the end of the text");
    return text.substr(*at, static_cast<std::size_t>(length));
}

void scanDates(std::string_view text, const Dictionary& format, const Context& ctx) {
    for (Finder finder : {&findDateSlash, &findDateDash, &findDateDot}) {
        std::int64_t length = 0;
        checkFound(text, finder(text, length), length, false);
    }
    std::int64_t length = 0;
    checkFound(text, findDateLong(text, length, ctx.config), length, false);
    BlankCounts blanks;
    length = 0;
    bool ofxLike = has(format, fmtkey::OFX);
    std::string_view date =
        checkFound(text, findDate(text, length, format, ctx.config, blanks), length, ofxLike);
    std::int64_t month = 0, dayOfMonth = 0, year = 0;
    if (!date.empty())
        parseDate(date, format, month, dayOfMonth, year, ctx.config, ctx.clock);
}

void scanAmount(std::string_view text) {
    FoundAmount found = findAmount(text);
    check(std::isfinite(found.amount), "an amount that is not a number");
    check(found.amount >= 0 || found.amount == kUnreadableAmount, "a negative magnitude");
}

void scanFields(std::string_view text, const Dictionary& format) {
    std::string work(text);
    BlankCounts blanks;
    for (std::size_t pos = 0; pos < work.size();) {
        std::size_t next = findField(work, pos, format, blanks);
        check(next > pos && next <= work.size(), "a field step that does not move forward",
              work.substr(pos, 80));
        pos = next;
    }
}

void scanLines(std::string_view text, const Context& ctx) {
    std::size_t total = 0;
    for (const std::string& line : findLines(text)) {
        total += line.size();
        std::int64_t month = 0, dayOfMonth = 0, year = 0;
        parseQIFDate(line, month, dayOfMonth, year, false, ctx.config, ctx.clock);
        parseQIFDate(line, month, dayOfMonth, year, true, ctx.config, ctx.clock);
    }
    check(total <= text.size(), "lines longer than the text they were cut from");
}

} // namespace

int scanners(const std::uint8_t* data, std::size_t size) {
    auto input = capped(data, size);
    auto formatted = input ? formattedInput(*input) : std::nullopt;
    if (!formatted)
        return 0;
    const Dictionary& format = *formatted->format;
    std::string_view text = formatted->text;
    Context ctx = freshContext();
    scanDates(text, format, ctx);
    scanAmount(text);
    scanFields(text, format);
    scanLines(text, ctx);
    return 0;
}

} // namespace tavvel::fuzz
