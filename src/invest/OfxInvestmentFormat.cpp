#include "invest/OfxInvestmentFormat.h"

#include "invest/QuickenTypes.h"
#include "prefs/Settings.h"

namespace tavvel {

Dictionary ofxInvestmentFormat(TvPrefs& prefs, const Configuration& config) {
    const Dictionary& builtIn = config.dictionary(config::TvOFXFormat);
    const Value* stored = prefs.objectForKey(prefkey::OFXFormat);
    Dictionary format = stored && stored->isDictionary() ? stored->dictionary() : builtIn;
    if (!has(format, investkey::TypeMappings) && has(builtIn, investkey::TypeMappings))
        format.insert_or_assign(std::string(investkey::TypeMappings),
                                *find(builtIn, investkey::TypeMappings));
    if (!stored || !stored->isDictionary() || *stored != Value(format)) {
        prefs.setObject(prefkey::OFXFormat, Value(format));
        prefs.synchronize();
    }
    return format;
}

} // namespace tavvel
