#include "invest/DisplayFormat.h"

#include <cmath>
#include <map>
#include <memory>
#include <unicode/dcfmtsym.h>
#include <unicode/decimfmt.h>
#include <unicode/unistr.h>
#include <vector>

namespace tavvel {

namespace {

std::vector<std::string_view> sectionsOf(std::string_view format) {
    std::vector<std::string_view> sections;
    for (std::size_t start = 0;;) {
        std::size_t end = format.find(';', start);
        sections.push_back(format.substr(start, end == std::string_view::npos ? end : end - start));
        if (end == std::string_view::npos)
            return sections;
        start = end + 1;
    }
}

// A formatter per section, made once: making one costs far more than formatting with it, and a
// statement formats a few numbers for every transaction with the same three or four sections.
const icu::DecimalFormat* formatterFor(std::string_view pattern) {
    static std::map<std::string, std::unique_ptr<icu::DecimalFormat>, std::less<>> made;
    if (auto found = made.find(pattern); found != made.end())
        return found->second.get();
    UErrorCode status = U_ZERO_ERROR;
    auto symbols = std::make_unique<icu::DecimalFormatSymbols>(icu::Locale::getUS(), status);
    auto formatter = std::make_unique<icu::DecimalFormat>(icu::UnicodeString::fromUTF8(pattern),
                                                          symbols.release(), status);
    if (U_FAILURE(status))
        formatter.reset();
    else
        formatter->setMaximumFractionDigits(std::max(formatter->getMinimumFractionDigits(), 6));
    return made.emplace(std::string(pattern), std::move(formatter)).first->second.get();
}

std::string withIcu(double magnitude, std::string_view pattern) {
    const icu::DecimalFormat* formatter = formatterFor(pattern);
    if (!formatter)
        return {};
    icu::UnicodeString shown;
    formatter->format(magnitude, shown);
    std::string out;
    return shown.toUTF8String(out);
}

} // namespace

std::optional<std::string> displayFormatForPrecision(long long decimals) {
    if (decimals < 2 || decimals > 6)
        return std::nullopt;
    std::string zeros(static_cast<std::size_t>(decimals), '0');
    return "#,###." + zeros + ";0." + zeros + ";(#,##0." + zeros + ")";
}

std::string formatForDisplay(double value, std::string_view format) {
    // Noise below the sixth decimal of a computed value is no digit of the statement's.
    double rounded = std::round(value * 1e6) / 1e6;
    std::vector<std::string_view> sections = sectionsOf(format);
    if (rounded == 0 && sections.size() > 1)
        return withIcu(0, sections[1]);
    if (rounded < 0 && sections.size() > 2)
        return withIcu(-rounded, sections[2]);
    if (rounded < 0)
        return "-" + withIcu(-rounded, sections[0]);
    return withIcu(rounded, sections[0]);
}

} // namespace tavvel
