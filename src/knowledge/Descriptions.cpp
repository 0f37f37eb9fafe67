#include "knowledge/Descriptions.h"

#include "knowledge/CaseFold.h"
#include "knowledge/KnowledgeKeys.h"
#include "knowledge/StoredList.h"
#include "prefs/Settings.h"

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

} // namespace

Descriptions::Descriptions(TvPrefs& prefs) : TextList(prefs, prefkey::Descriptions) {}

void Descriptions::addDescription(std::string_view description) {
    if (description.empty())
        return;
    if (indexOfItemWithStringValue(description))
        return;
    write(insertedInOrder(list(), Value(description), description));
}

// Adding one by one inserts after every entry that is equal ignoring case, which is a stable
// sort of the first occurrences; done at once so that thousands of instructions cost one
// sort and one write instead of one write each.
void Descriptions::createFromInstructions(const Array& instructions) {
    std::vector<std::string> texts;
    for (const Value& instruction : instructions)
        collect(instruction.dictionary(), texts);
    std::set<std::string_view> seen;
    std::vector<std::string_view> firsts;
    for (const std::string& text : texts)
        if (!text.empty() && seen.insert(text).second)
            firsts.push_back(text);
    std::stable_sort(firsts.begin(), firsts.end(), [](std::string_view a, std::string_view b) {
        return compareIgnoringCase(a, b) < 0;
    });
    Array list;
    list.reserve(firsts.size());
    for (std::string_view text : firsts)
        list.emplace_back(text);
    write(std::move(list));
}

} // namespace tavvel
