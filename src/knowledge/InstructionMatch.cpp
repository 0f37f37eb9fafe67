#include "knowledge/InstructionMatch.h"

#include "knowledge/KnowledgeKeys.h"
#include "knowledge/StoredList.h"
#include "prefs/Settings.h"
#include "recognize/CaseFold.h"

namespace tavvel {

MatchRules matchRulesFor(const TvPrefs& prefs, std::string_view key) {
    MatchRules rules;
    rules.longest = optionOn(prefs, option::longestInstructionMatch);
    rules.contains =
        key == ikey::descriptionMatch && optionOn(prefs, option::matchDescriptionWithContains);
    return rules;
}

std::string matchTextOf(const Dictionary& instruction) {
    if (has(instruction, ikey::descriptionMatch))
        return textOf(instruction, ikey::descriptionMatch);
    return textOf(instruction, ikey::categoryMatch);
}

bool matchApplies(std::string_view text, std::string_view match, MatchRules rules) {
    if (rules.contains)
        return !match.empty() && containsIgnoringCase(text, match);
    return startsWithIgnoringCase(text, match);
}

namespace {

std::optional<std::size_t> firstWithEmptyMatch(const Array& list, std::string_view key) {
    for (std::size_t i = 0; i < list.size(); ++i)
        if (const std::string* match = textIn(list[i], key); match && match->empty())
            return i;
    return std::nullopt;
}

} // namespace

std::optional<std::size_t> walkForInstruction(const Array& list, std::string_view text,
                                              std::string_view key, MatchRules rules) {
    if (text.empty())
        return firstWithEmptyMatch(list, key);
    std::optional<std::size_t> best;
    std::size_t bestLength = 0;
    for (std::size_t i = 0; i < list.size(); ++i) {
        const std::string* match = textIn(list[i], key);
        if (!match || !matchApplies(text, *match, rules))
            continue;
        if (!rules.longest)
            return i;
        std::size_t length = characterCount(*match);
        if (length > bestLength) {
            best = i;
            bestLength = length;
        }
    }
    return best;
}

} // namespace tavvel
