#include "prefs/OutputFormatting.h"

#include "prefs/Settings.h"

namespace tavvel {

void setDateFormatters(TvPrefs& prefs, OutputFormatting& formatting, std::string_view prefix) {
    formatting.datePrefix = std::string(prefix);
    prefs.setObject(prefkey::OutputDateFormat, Value(formatting.longDatePattern()));
    prefs.setObject(prefkey::OutputDateFormatShortYear, Value(formatting.shortDatePattern()));
}

} // namespace tavvel
