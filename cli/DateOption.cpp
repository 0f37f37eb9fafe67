#include "DateOption.h"

#include "app/RunSettings.h"
#include "prefs/OutputFormatting.h"
#include "recognize/CalendarDate.h"

#include <array>
#include <charconv>

namespace tavvel {

namespace {

struct TypedDate {
    std::array<int, 3> numbers{};
    std::size_t yearDigits = 0;
};

std::optional<TypedDate> typedParts(std::string_view text) {
    TypedDate typed;
    for (std::size_t i = 0; i < 3; ++i) {
        std::size_t slash = i < 2 ? text.find('/') : text.size();
        if (slash == std::string_view::npos)
            return std::nullopt;
        std::string_view part = text.substr(0, slash);
        auto [end, error] =
            std::from_chars(part.data(), part.data() + part.size(), typed.numbers[i]);
        bool digitsOnly = error == std::errc() && end == part.data() + part.size();
        std::size_t most = i < 2 ? 2 : 4;
        if (!digitsOnly || part.empty() || part.size() > most || part.front() == '+')
            return std::nullopt;
        typed.yearDigits = part.size();
        text.remove_prefix(std::min(text.size(), slash + 1));
    }
    bool yearLengthOK = typed.yearDigits <= 2 || typed.yearDigits == 4;
    return yearLengthOK ? std::optional(typed) : std::nullopt;
}

} // namespace

bool looksLikeDate(std::string_view text) {
    return typedParts(text).has_value();
}

std::optional<std::string> readDateOption(std::string_view text, const OutputFormatting& output) {
    auto typed = typedParts(text);
    if (!typed)
        return std::nullopt;
    auto date = readRangeField(text, output.longDatePattern(), output.shortDatePattern());
    if (!date)
        return std::nullopt;
    CalendarDate read = calendarDateOf(*date);
    bool dayFirst = output.datePrefix.front() == 'd';
    int month = typed->numbers[dayFirst ? 1 : 0];
    int day = typed->numbers[dayFirst ? 0 : 1];
    bool sameYear = typed->yearDigits <= 2 || read.year == typed->numbers[2];
    if (read.month != month || read.day != day || !sameYear)
        return std::nullopt;
    return formatDate(*date, output.longDatePattern());
}

} // namespace tavvel
