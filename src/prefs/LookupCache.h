#pragma once
// Answers kept beside the preference store: a run asks for the same few settings and options
// for every transaction, and a dictionary lookup compares the key with several others each
// time. What it holds points into one store's dictionary, so the store clears it on every
// change and a copy starts empty. A lookup writes to it: like the store, it is for one
// thread at a time.

#include "prefs/Value.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tavvel {

class LookupCache {
public:
    LookupCache() = default;
    LookupCache(const LookupCache&) {}
    LookupCache& operator=(const LookupCache&) {
        clear();
        return *this;
    }
    LookupCache(LookupCache&&) noexcept {}
    LookupCache& operator=(LookupCache&&) noexcept {
        clear();
        return *this;
    }

    const Value* find(const Dictionary& store, std::string_view key) const;
    // Whether the list under listKey holds the text (entries that are not text never match).
    bool listHolds(const Dictionary& store, std::string_view listKey, std::string_view text) const;
    void clear();

private:
    mutable std::unordered_map<std::string, const Value*, TextHash, SameText> found_;
    mutable std::string listKey_;
    // Option lists are short: looking through them, length first, beats hashing the name.
    mutable std::optional<std::vector<std::string>> list_;
};

} // namespace tavvel
