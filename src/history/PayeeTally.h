#pragma once
// The payees a batch of written transactions adds to what suggestions are drawn from, counted
// in memory first: a run of 100,000 transactions then writes one row per payee and word, not
// one per transaction and word.

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace tavvel {

struct TalliedPayee {
    std::string description; // the latest spelling
    std::int64_t count = 0;
    std::int64_t lastAt = 0;
};

class PayeeTally {
public:
    // A transaction without category or without words says nothing about a payee.
    void add(std::string_view description, std::string_view category, std::int64_t at);

    // Keyed by the description's words (joined by spaces) and the category.
    const std::map<std::pair<std::string, std::string>, TalliedPayee>& payees() const {
        return payees_;
    }
    const std::map<std::string, std::int64_t>& words() const { return words_; }

private:
    std::map<std::pair<std::string, std::string>, TalliedPayee> payees_;
    std::map<std::string, std::int64_t> words_;
};

} // namespace tavvel
