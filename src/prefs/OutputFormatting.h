#pragma once
// The controller's shared output date formatters and amount decimal separator.

#include "prefs/TvPrefs.h"

#include <string>
#include <string_view>

namespace tavvel {

struct OutputFormatting {
    std::string datePrefix = "M/d"; // or "d/M"
    std::string decimalSeparator = ".";

    std::string longDatePattern() const { return datePrefix + "/yyyy"; }
    std::string shortDatePattern() const { return datePrefix + "/yy"; }
};

// setDateFormatters: — the prefix "M/d" or "d/M" makes the long and short patterns, which are
// also written to OutputDateFormat and OutputDateFormatShortYear so those keys always follow.
void setDateFormatters(TvPrefs& prefs, OutputFormatting& formatting, std::string_view prefix);

} // namespace tavvel
