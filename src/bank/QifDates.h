#pragma once
// The dates of a QIF register. QIF writes numeric dates in whichever order the exporting
// program's country uses, and says nothing about it: a file is read month first or day first
// as a whole, the order its own D lines show (a first number above 12 can only be a day), else
// the user's answer. A date that is no real day in that order is refused, never rolled over
// into another month.

#include "prefs/Clock.h"
#include "prefs/Configuration.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavvel {

class Context;
class Dialogs;

struct QifDay {
    std::int64_t year = 0, month = 0, day = 0;
};

// The date of a D line (without its letter) read month first, or day first; a year-first
// date (2024-01-31) is always year, month, day, and a month word gives its month. Nothing when
// the text is no date or no real day.
std::optional<QifDay> readQifDate(std::string_view text, bool dayFirst, const Configuration& config,
                                  const Clock& clock);

// What the D lines of a file show about the order of their numbers.
struct QifDateEvidence {
    bool dayFirst = false;   // some date has a first number above 12
    bool monthFirst = false; // some date has a second number above 12
    bool eitherWay = false;  // some date reads as two different days, one in each order
    // The order the file shows, when it shows exactly one.
    std::optional<bool> shownDayFirst() const;
};

QifDateEvidence qifDateEvidence(std::span<const std::string_view> lines,
                                const Configuration& config, const Clock& clock);

// Whether the run reads the file's dates day first: the order the file shows; otherwise the
// option europeanDates, except that a file whose dates read either way, on a system that
// writes dates day first and with the option off, is asked about once (day first offered
// first; under --batch that first answer is taken and shown). `source` names the input
// ("File \"x.qif\"").
bool chooseQifDateOrder(std::span<const std::string_view> lines, Context& ctx, Dialogs& dialogs,
                        std::string_view source);

} // namespace tavvel
