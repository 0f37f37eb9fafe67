#pragma once
// The list of every instruction as the instruction editor shows it: searched and sorted in
// the model, so that a front end's table only asks for the rows it draws. A hundred thousand
// instructions are read once per refresh; a search is one pass and a sort one n log n pass.

#include "prefs/TvPrefs.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavvel {

class InstructionList {
public:
    enum class SortBy { match, category };

    explicit InstructionList(TvPrefs& prefs);
    // Reads the stored list again (after an edit), keeping the search and the sort.
    void refresh();

    // Rows whose match text, new description or category holds the text, ignoring case.
    void search(std::string_view text);
    const std::string& searchText() const { return search_; }
    void sortBy(SortBy key);
    SortBy sortedBy() const { return sortBy_; }

    std::size_t numberOfRows() const { return rows_.size(); }
    const Dictionary& instructionAt(std::size_t row) const;
    std::string matchText(std::size_t row) const;
    // "description" or "category": what the instruction matches.
    std::string matchKind(std::size_t row) const;
    // The category, or the split categories joined by ", ".
    std::string categoryText(std::size_t row) const;
    std::string newDescription(std::size_t row) const;
    std::size_t numberOfAmounts(std::size_t row) const;
    // The row showing the instruction with this match text (ignoring case), if shown.
    std::optional<std::size_t> rowOf(std::string_view match) const;

private:
    void arrange();

    TvPrefs& prefs_;
    Array all_;
    std::vector<std::string> foldedCategories_, foldedSearchable_;
    std::vector<std::size_t> rows_;
    std::string search_;
    SortBy sortBy_ = SortBy::match;
};

} // namespace tavvel
