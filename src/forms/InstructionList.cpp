#include "forms/InstructionList.h"

#include "knowledge/Instructions.h"
#include "knowledge/KnowledgeKeys.h"
#include "recognize/CaseFold.h"

#include <algorithm>
#include <numeric>

namespace tavvel {

namespace {

std::string matchOf(const Dictionary& instruction) {
    if (const Value* match = find(instruction, ikey::descriptionMatch))
        return match->text();
    return textOf(instruction, ikey::categoryMatch);
}

std::string categoriesOf(const Dictionary& instruction) {
    const Value* splits = find(instruction, ikey::splits);
    if (!splits || splits->array().empty())
        return textOf(instruction, ikey::category);
    std::string joined;
    for (const Value& split : splits->array())
        joined += (joined.empty() ? "" : ", ") + textOf(split.dictionary(), "category");
    return joined;
}

} // namespace

InstructionList::InstructionList(TvPrefs& prefs) : prefs_(prefs) {
    refresh();
}

void InstructionList::refresh() {
    all_ = Instructions(prefs_).getInstructionsArray();
    foldedCategories_.clear();
    foldedSearchable_.clear();
    foldedCategories_.reserve(all_.size());
    foldedSearchable_.reserve(all_.size());
    for (const Value& entry : all_) {
        const Dictionary& instruction = entry.dictionary();
        foldedCategories_.push_back(foldCase(categoriesOf(instruction)));
        // A tab never stands in a typed search, so a hit cannot straddle two fields.
        foldedSearchable_.push_back(foldCase(matchOf(instruction) + "\t" +
                                             textOf(instruction, ikey::newDescription) + "\t") +
                                    foldedCategories_.back());
    }
    arrange();
}

void InstructionList::search(std::string_view text) {
    search_ = std::string(text);
    arrange();
}

void InstructionList::sortBy(SortBy key) {
    sortBy_ = key;
    arrange();
}

void InstructionList::arrange() {
    rows_.clear();
    std::string folded = foldCase(search_);
    for (std::size_t i = 0; i < all_.size(); ++i)
        if (folded.empty() || foldedSearchable_[i].find(folded) != std::string::npos)
            rows_.push_back(i);
    // The stored list is in match order already; by category, equal categories keep it.
    if (sortBy_ == SortBy::category)
        std::stable_sort(rows_.begin(), rows_.end(), [this](std::size_t a, std::size_t b) {
            return foldedCategories_[a] < foldedCategories_[b];
        });
}

const Dictionary& InstructionList::instructionAt(std::size_t row) const {
    return all_[rows_.at(row)].dictionary();
}

std::string InstructionList::matchText(std::size_t row) const {
    return matchOf(instructionAt(row));
}

std::string InstructionList::matchKind(std::size_t row) const {
    return has(instructionAt(row), ikey::descriptionMatch) ? "description" : "category";
}

std::string InstructionList::categoryText(std::size_t row) const {
    return categoriesOf(instructionAt(row));
}

std::string InstructionList::newDescription(std::size_t row) const {
    return textOf(instructionAt(row), ikey::newDescription);
}

std::size_t InstructionList::numberOfAmounts(std::size_t row) const {
    const Value* amounts = find(instructionAt(row), ikey::amounts);
    return amounts ? amounts->array().size() : 0;
}

std::optional<std::size_t> InstructionList::rowOf(std::string_view match) const {
    for (std::size_t row = 0; row < rows_.size(); ++row)
        if (equalIgnoringCase(matchText(row), match))
            return row;
    return std::nullopt;
}

} // namespace tavvel
