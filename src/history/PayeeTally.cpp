#include "history/PayeeTally.h"

#include "history/DescriptionWords.h"

namespace tavvel {

void PayeeTally::add(std::string_view description, std::string_view category, std::int64_t at) {
    if (category.empty())
        return;
    std::string joined;
    for (const std::string& word : descriptionWords(description)) {
        joined += joined.empty() ? word : " " + word;
        ++words_[word];
    }
    if (joined.empty())
        return;
    TalliedPayee& p = payees_[{joined, std::string(category)}];
    ++p.count;
    if (at >= p.lastAt) {
        p.lastAt = at;
        p.description = std::string(description);
    }
}

} // namespace tavvel
