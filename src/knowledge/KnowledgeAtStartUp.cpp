#include "knowledge/KnowledgeAtStartUp.h"

#include "knowledge/Descriptions.h"
#include "knowledge/Formats.h"
#include "knowledge/StoredList.h"
#include "prefs/Settings.h"

namespace tavvel {

void settleKnowledgeAtStartUp(TvPrefs& prefs) {
    Formats(prefs).normalizeAll();
    Descriptions descriptions(prefs);
    if (!descriptions.exists())
        descriptions.createFromInstructions(listIn(prefs, prefkey::Instructions));
}

} // namespace tavvel
