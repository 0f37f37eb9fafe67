#pragma once
// The input format that investment OFX is read with: stored under `OFXFormat`, first copied
// from the built-in `TvOFXFormat`, and from then on learning the user's type and security
// mappings.

#include "prefs/Configuration.h"
#include "prefs/TvPrefs.h"

namespace tavvel {

// The stored format, made from the built-in one when there is none. A stored format without
// type mappings (one written before the mappings were built in) takes the built-in ones.
Dictionary ofxInvestmentFormat(TvPrefs& prefs, const Configuration& config);

} // namespace tavvel
