#include "knowledge/Descriptions.h"

#include "knowledge/KnowledgeKeys.h"
#include "knowledge/StoredList.h"
#include "prefs/Settings.h"
#include "recognize/CaseFold.h"

#include <algorithm>
#include <set>

namespace tavvel {

namespace {

void collect(const Dictionary& instruction, std::vector<std::string>& into) {
    for (std::string_view key : {ikey::descriptionMatch, ikey::newDescription})
        if (const std::string* text = textIn(instruction, key))
            into.push_back(*text);
    const Value* amounts = find(instruction, ikey::amounts);
    if (!amounts)
        return;
    for (const Value& amount : amounts->array())
        if (const std::string* text = textIn(amount, akey::amountDescription))
            into.push_back(*text);
}

bool beforeIgnoringCase(std::string_view a, std::string_view b) {
    return compareIgnoringCase(a, b) < 0;
}

// The first occurrence of each non-empty text not seen yet, in order ignoring case, equal
// ones in the order they came.
std::vector<std::string_view> firstsInOrder(const std::vector<std::string>& texts,
                                            std::set<std::string_view> seen) {
    std::vector<std::string_view> firsts;
    for (const std::string& text : texts)
        if (!text.empty() && seen.insert(text).second)
            firsts.push_back(text);
    std::stable_sort(firsts.begin(), firsts.end(), beforeIgnoringCase);
    return firsts;
}

} // namespace

Descriptions::Descriptions(TvPrefs& prefs) : TextList(prefs, prefkey::Descriptions) {}

void Descriptions::addDescription(std::string_view description) {
    if (description.empty())
        return;
    if (indexOfItemWithStringValue(description))
        return;
    // Not saved at once: a statement may hold thousands of new descriptions, and the run
    // saves the store when its walk ends.
    keep(insertedInOrder(list(), Value(description), description));
}

// Adding one by one puts each text after every entry not greater than it ignoring case: into
// a list in that order, that is a merge with the new texts' stable sort, which costs one pass
// however many there are. A list out of order (edited elsewhere) is added to one by one.
void Descriptions::addDescriptions(const std::vector<std::string>& texts) {
    const Array& existing = list();
    const bool ordered =
        std::is_sorted(existing.begin(), existing.end(), [](const Value& a, const Value& b) {
            return beforeIgnoringCase(a.text(), b.text());
        });
    if (!ordered) {
        for (const std::string& text : texts)
            addDescription(text);
        return;
    }
    std::set<std::string_view> known;
    for (const Value& entry : existing)
        known.insert(entry.text());
    std::vector<std::string_view> fresh = firstsInOrder(texts, std::move(known));
    if (fresh.empty())
        return;
    Array merged;
    merged.reserve(existing.size() + fresh.size());
    auto next = existing.begin();
    for (std::string_view text : fresh) {
        while (next != existing.end() && !beforeIgnoringCase(text, next->text()))
            merged.push_back(*next++);
        merged.emplace_back(text);
    }
    merged.insert(merged.end(), next, existing.end());
    keep(std::move(merged));
}

// Adding one by one inserts after every entry that is equal ignoring case, which is a stable
// sort of the first occurrences; done at once so that thousands of instructions cost one
// sort and one write instead of one write each.
void Descriptions::createFromInstructions(const Array& instructions) {
    std::vector<std::string> texts;
    for (const Value& instruction : instructions)
        collect(instruction.dictionary(), texts);
    Array list;
    for (std::string_view text : firstsInOrder(texts, {}))
        list.emplace_back(text);
    write(std::move(list));
}

} // namespace tavvel
