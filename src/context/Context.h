#pragma once
// The process-wide state of one running program, created by main (or by a test) and passed
// down by reference. Each engine takes what it needs from here; nothing is global.

#include "prefs/Clock.h"
#include "prefs/Configuration.h"
#include "prefs/OutputFormatting.h"
#include "prefs/Places.h"
#include "prefs/TvPrefs.h"
#include "recognize/BlankCounts.h"
#include "recognize/TvDate.h"

#include <string_view>

namespace tavvel {

// Run kinds (gType).
enum RunType : int {
    kTypeBank = 0,
    kTypeCreditCard = 1,
    kTypeInvestment = 2,
    kTypeBankOrCreditCard = 3,
    kTypeTextWithoutFormat = 4,
};

inline constexpr std::string_view kApplicationID = "TavvelMain";
inline constexpr std::string_view kPredecessorApplicationID = "PelladonMain";

class Context {
public:
    Context(Configuration configuration, Clock clock, Places places);

    // The preference store. In memory until start-up opens the file in places.prefsFolder.
    TvPrefs prefs;
    Configuration config;
    Clock clock;
    Places places;

    // The output date formatters and the amount decimal separator, shared by every form.
    OutputFormatting output;

    // The date utility shared by all date code, and the field scanners' blank counters.
    TvDate gTvDate;
    BlankCounts blanks;
};

} // namespace tavvel
