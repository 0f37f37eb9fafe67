#pragma once
// Which way round the user's system writes dates: a file whose dates could be read either way
// is first offered in the order the user sees every day.

#include <string>
#include <string_view>

namespace tavvel {

// The locale that decides how dates are written: LC_ALL, else LC_TIME, else LANG ("" when
// none is set).
std::string systemDateLocale();

// True when the locale (such as "en_GB.UTF-8" or "de_DE") writes the day before the month in
// its short dates. "", "C" and "POSIX" write the month first.
bool writesDayFirst(std::string_view localeName);

} // namespace tavvel
