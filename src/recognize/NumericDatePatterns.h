#pragma once
// The scan patterns of numeric dates, by delimiter.

#include <optional>
#include <string_view>

namespace tavvel {

struct NumericDatePatterns {
    std::string_view three; // month, day and year in some order
    std::string_view two;   // month and day in some order
};

constexpr std::optional<NumericDatePatterns> numericDatePatterns(char delimiter) {
    switch (delimiter) {
    case '/':
        return NumericDatePatterns{"%ld/%ld/%ld%ln", "%ld/%ld%ln"};
    case '-':
        return NumericDatePatterns{"%ld-%ld-%ld%ln", "%ld-%ld%ln"};
    case '.':
        return NumericDatePatterns{"%ld.%ld.%ld%ln", "%ld.%ld%ln"};
    default:
        return std::nullopt;
    }
}

} // namespace tavvel
