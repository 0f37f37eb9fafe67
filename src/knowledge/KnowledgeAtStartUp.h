#pragma once
// What the start-up sequence asks of the knowledge base once the preference store is open and
// its defaults are in: every input format passes through the format store once (so that each
// has the global mapping tables and an OFX-like one sits under OFXFormat), and a store that
// has no description list yet gets one from what its instructions know.

namespace tavvel {

class TvPrefs;

void settleKnowledgeAtStartUp(TvPrefs& prefs);

} // namespace tavvel
