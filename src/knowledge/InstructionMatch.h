#pragma once
// Which instruction applies to a text: the rules, and the plain walk over a list that states
// them. The store answers through an index (InstructionIndex.h) that must agree with this walk
// on every list, sorted or not.

#include "prefs/TvPrefs.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tavvel {

struct MatchRules {
    bool longest = false;  // longestInstructionMatch: the longest match text wins
    bool contains = false; // matchDescriptionWithContains, for descriptions only
};

// The rules in force for a lookup under the key.
MatchRules matchRulesFor(const TvPrefs& prefs, std::string_view key);

// An instruction's match text: its descriptionMatch when present, else its categoryMatch.
std::string matchTextOf(const Dictionary& instruction);

// Whether the match text applies to a non-empty text under the rules.
bool matchApplies(std::string_view text, std::string_view match, MatchRules rules);

// The walk: the position in list order of the instruction that applies, or nothing.
// - An empty text takes the first instruction whose match text is empty, in every mode.
// - First-match mode takes the first that applies; an empty match text applies to every text
//   when matching starts-with, and to none when matching contains.
// - Longest mode takes the longest match text that applies (in characters), the earlier of
//   equally long ones, and only a length above 0, so an empty match text never wins there.
std::optional<std::size_t> walkForInstruction(const Array& list, std::string_view text,
                                              std::string_view key, MatchRules rules);

} // namespace tavvel
