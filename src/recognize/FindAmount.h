#pragma once
// Reading a money amount with its sign.

#include <string_view>

namespace tavvel {

struct FoundAmount {
    // The magnitude; -1.0 when the text is not an amount.
    double amount = 0;
    bool negative = false;
};

inline constexpr double kUnreadableAmount = -1.0;

// Reads the amount at the start of the text: an optional "USD", a sign written as "-", "(" or
// a trailing "-", currency signs ($, pound and euro in the classic Mac, Windows-1252 and UTF-8
// forms), "," as thousands separator, "." for decimals, and a fraction such as "12 1/2". The
// amount must end at white space, the end of the text, ")", "+", "<" or a no-break space.
FoundAmount findAmount(std::string_view text);

} // namespace tavvel
