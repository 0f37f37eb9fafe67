#pragma once
// Objects that other parts of the program build from one entry of the preference store (the
// index of a learned list), kept beside the store so that every user of the store shares one,
// with a count of the entry's changes that tells them when it is out of date. The store
// counts a change of an entry when it writes a different value under its key, and counts a
// change of every entry when it is given another store's contents. Like the store, it is for
// one thread at a time.

#include "prefs/Value.h"

#include <any>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tavvel {

class DerivedObjects {
public:
    DerivedObjects() = default;
    // A copy of the store has its own objects, built when first asked for.
    DerivedObjects(const DerivedObjects&) {}
    DerivedObjects(DerivedObjects&&) = default;
    // A store given other contents keeps its objects, which its users hold, and rebuilds them.
    DerivedObjects& operator=(const DerivedObjects&) {
        allChanged();
        return *this;
    }
    DerivedObjects& operator=(DerivedObjects&&) noexcept {
        allChanged();
        return *this;
    }

    // Changes of the entry under the key so far: the same number means the same value.
    std::uint64_t changeCount(std::string_view key) const {
        auto it = changes_.find(key);
        return everyEntry_ + (it == changes_.end() ? 0 : it->second);
    }
    void changed(std::string_view key);
    // The store's contents were replaced whole; the objects stay and rebuild when next used.
    void allChanged() { ++everyEntry_; }

    // The object kept for the key: empty until a user fills it.
    std::any& objectFor(std::string_view key);

private:
    std::unordered_map<std::string, std::uint64_t, TextHash, SameText> changes_;
    std::unordered_map<std::string, std::any, TextHash, SameText> objects_;
    std::uint64_t everyEntry_ = 0;
};

} // namespace tavvel
