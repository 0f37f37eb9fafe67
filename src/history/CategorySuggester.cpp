#include "history/CategorySuggester.h"

#include "history/DescriptionWords.h"
#include "history/HistoryDatabase.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tavvel {

namespace {

// How many of the latest payees holding a word are looked at, per word.
constexpr std::size_t kPerWord = 40;
// Below this share of the description's weight, nothing known is similar enough to suggest.
constexpr double kLeast = 0.25;

bool holds(const std::vector<std::string>& words, const std::string& word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

} // namespace

CategorySuggester::CategorySuggester(HistoryDatabase* db) : db_(db) {
    if (db_)
        documents_ = static_cast<double>(db_->filedCount());
}

void CategorySuggester::addInstruction(std::string_view matchText, std::string_view category) {
    if (category.empty())
        return;
    for (const std::string& word : descriptionWords(matchText))
        ++instructionWords_[word];
    instructions_.push_back(
        {std::string(matchText), std::string(category), std::numeric_limits<std::int64_t>::max()});
    documents_ += 1;
    weights_.clear();
}

// The rarer the word among everything known, the more it says.
double CategorySuggester::weight(const std::string& word) {
    if (auto it = weights_.find(word); it != weights_.end())
        return it->second;
    double n = db_ ? static_cast<double>(db_->wordCount(word)) : 0;
    if (auto it = instructionWords_.find(word); it != instructionWords_.end())
        n += static_cast<double>(it->second);
    double w = std::log((documents_ + 1) / (n + 0.5)) + 1;
    weights_.emplace(word, std::max(w, 0.05));
    return weights_[word];
}

std::vector<CategorySuggester::Known>
CategorySuggester::candidates(const std::vector<std::string>& words) {
    std::vector<Known> found;
    if (db_)
        for (auto& f : db_->filedUnder(words, kPerWord))
            found.push_back({std::move(f.description), std::move(f.category), f.convertedAt});
    for (const Known& k : instructions_) {
        auto theirs = descriptionWords(k.description);
        if (std::any_of(words.begin(), words.end(),
                        [&](const std::string& w) { return holds(theirs, w); }))
            found.push_back(k);
    }
    return found;
}

// Weighted Jaccard: the weight of the shared words over that of all words of both.
double CategorySuggester::similarity(const std::vector<std::string>& words, double total,
                                     const Known& known) {
    double shared = 0, theirsOnly = 0;
    for (const std::string& w : descriptionWords(known.description))
        (holds(words, w) ? shared : theirsOnly) += weight(w);
    return shared / (total + theirsOnly);
}

std::optional<Suggestion> CategorySuggester::suggest(std::string_view description) {
    std::vector<std::string> words = descriptionWords(description);
    if (words.empty())
        return std::nullopt;
    double total = 0;
    for (const std::string& w : words)
        total += weight(w);
    const std::vector<Known> known = candidates(words);
    const Known* best = nullptr;
    double bestScore = kLeast;
    for (const Known& k : known) {
        double score = similarity(words, total, k);
        bool better = score > bestScore + 1e-9 ||
                      (best && std::abs(score - bestScore) <= 1e-9 && k.at > best->at);
        if (better) {
            best = &k;
            bestScore = score;
        }
    }
    if (!best)
        return std::nullopt;
    // Without a shared start the whole description stays the match text, as for any payee.
    std::string stem = sharedStem(description, best->description);
    return Suggestion{best->category, stem.empty() ? std::string(description) : stem};
}

} // namespace tavvel
