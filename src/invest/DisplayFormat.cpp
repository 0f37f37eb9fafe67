#include "invest/DisplayFormat.h"

#include <cmath>
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

std::string withIcu(double magnitude, std::string_view pattern) {
    UErrorCode status = U_ZERO_ERROR;
    auto symbols = std::make_unique<icu::DecimalFormatSymbols>(icu::Locale::getUS(), status);
    icu::DecimalFormat formatter(icu::UnicodeString::fromUTF8(pattern), symbols.release(), status);
    if (U_FAILURE(status))
        return {};
    formatter.setMaximumFractionDigits(std::max(formatter.getMinimumFractionDigits(), 6));
    icu::UnicodeString shown;
    formatter.format(magnitude, shown);
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
