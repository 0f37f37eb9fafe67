#include "recognize/LocaleDates.h"

#include <cstdlib>
#include <memory>
#include <unicode/datefmt.h>
#include <unicode/locid.h>
#include <unicode/smpdtfmt.h>

namespace tavvel {

std::string systemDateLocale() {
    for (const char* name : {"LC_ALL", "LC_TIME", "LANG"})
        if (const char* value = std::getenv(name); value && *value)
            return value;
    return "";
}

bool writesDayFirst(std::string_view localeName) {
    // "de_DE.UTF-8@euro": ICU wants the language and country only.
    std::string name(localeName.substr(0, localeName.find_first_of(".@")));
    if (name.empty() || name == "C" || name == "POSIX")
        return false;
    std::unique_ptr<icu::DateFormat> format(
        icu::DateFormat::createDateInstance(icu::DateFormat::kShort, icu::Locale(name.c_str())));
    auto* simple = dynamic_cast<icu::SimpleDateFormat*>(format.get());
    if (!simple)
        return false;
    icu::UnicodeString pattern;
    simple->toPattern(pattern);
    int32_t day = pattern.indexOf(u'd');
    int32_t month = pattern.indexOf(u'M');
    return day >= 0 && month >= 0 && day < month;
}

} // namespace tavvel
