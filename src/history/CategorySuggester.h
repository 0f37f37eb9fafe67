#pragma once
// A category for a payee no instruction matches: the one that the history and the instructions
// give for the most similar known descriptions. Descriptions are compared by their words
// (DescriptionWords.h), each weighted by its rarity, so "SEATTLE WA" on every line counts for
// little and "OUTLET" for much; ties go to the most recent. The match text suggested is the
// stem the new description shares with the one it was found by.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tavvel {

class HistoryDatabase;

struct Suggestion {
    std::string category;
    std::string matchText;
};

class CategorySuggester {
public:
    // Without a database only the instructions added are drawn on.
    explicit CategorySuggester(HistoryDatabase* db);

    // An instruction's match text and category; an instruction counts as the most recent.
    void addInstruction(std::string_view matchText, std::string_view category);

    std::optional<Suggestion> suggest(std::string_view description);

private:
    struct Known {
        std::string description;
        std::string category;
        std::int64_t at = 0;
    };
    double weight(const std::string& word);
    std::vector<Known> candidates(const std::vector<std::string>& words);
    double similarity(const std::vector<std::string>& words, double total, const Known& known);

    HistoryDatabase* db_;
    std::vector<Known> instructions_;
    std::unordered_map<std::string, std::int64_t> instructionWords_; // word: instructions with it
    std::unordered_map<std::string, double> weights_;
    double documents_ = 0;
};

} // namespace tavvel
