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
    // In line, with the list kept as texts: options are asked for several times a transaction.
    bool listHolds(const Dictionary& store, std::string_view listKey, std::string_view text) const {
        if (!list_ || !sameBytes(listKey_, listKey))
            keepList(store, listKey);
        for (const std::string& item : *list_)
            if (sameBytes(item, text)) // length first: most names differ in it
                return true;
        return false;
    }
    void clear();

private:
    void keepList(const Dictionary& store, std::string_view listKey) const;
    mutable std::unordered_map<std::string, const Value*, TextHash, SameText> found_;
    mutable std::string listKey_;
    // Option lists are short: looking through them beats hashing the name.
    mutable std::optional<std::vector<std::string>> list_;
};

} // namespace tavvel
