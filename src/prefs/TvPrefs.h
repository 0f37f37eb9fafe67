#pragma once
// The single persistent store: settings, the option list, the run settings record and every
// learned list, as entries of one dictionary saved as one property-list file per identifier.

#include "prefs/DerivedObjects.h"
#include "prefs/LookupCache.h"
#include "prefs/Value.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tavvel {

namespace prefkey {
inline constexpr std::string_view reconstructedAfterCorruption = "reconstructedAfterCorruption";
inline constexpr std::string_view convertedFromPlist = "convertedFromPlist";
} // namespace prefkey

class TvPrefs {
public:
    // A store that lives in memory only: synchronize() succeeds and writes nothing.
    TvPrefs() = default;
    // A copy may stand for another moment than the file's (a store put back as it was before
    // a refused run): the next save writes it whatever it holds.
    TvPrefs(const TvPrefs& other)
        : prefs_(other.prefs_), path_(other.path_), keptAside_(other.keptAside_) {}
    TvPrefs& operator=(const TvPrefs& other) {
        if (this != &other) {
            prefs_ = other.prefs_;
            cache_.clear();
            derived_.allChanged();
            path_ = other.path_;
            keptAside_ = other.keptAside_;
            unsaved_ = true;
        }
        return *this;
    }
    TvPrefs(TvPrefs&&) = default;
    TvPrefs& operator=(TvPrefs&&) = default;

    // initForApplicationID:newApplicationID: — opens <folder>/<id>.prefs. With a new identifier,
    // later saves go to <folder>/<newId>.prefs and the old file is left in place. A file that
    // cannot be decoded is kept aside as <id>.prefs.corrupt-<UTC timestamp> and the store
    // starts empty with reconstructedAfterCorruption set.
    static TvPrefs open(const std::filesystem::path& folder, std::string_view applicationID,
                        std::optional<std::string_view> newApplicationID = std::nullopt,
                        Date now = Date{});

    static std::filesystem::path pathFor(const std::filesystem::path& folder,
                                         std::string_view applicationID);

    bool empty() const { return prefs_.empty(); }
    const Value* objectForKey(std::string_view key) const { return cache_.find(prefs_, key); }
    // Whether the list under listKey holds the text.
    bool listHolds(std::string_view listKey, std::string_view text) const {
        return cache_.listHolds(prefs_, listKey, text);
    }
    bool boolForKey(std::string_view key) const;
    std::int64_t integerForKey(std::string_view key) const;
    std::uint32_t uInt32ForKey(std::string_view key) const;
    float floatForKey(std::string_view key) const;
    double doubleForKey(std::string_view key) const;

    // Values are stored by copy: later changes to the caller's object do not reach the store.
    void setObject(std::string_view key, const Value& value);
    // None removes the key.
    void setObject(std::string_view key, const std::optional<Value>& value);
    void setBool(std::string_view key, bool value) { setObject(key, Value(value)); }
    void setInteger(std::string_view key, std::int64_t value) { setObject(key, Value(value)); }
    void setUInt32(std::string_view key, std::uint32_t value);
    void setFloat(std::string_view key, float value);
    void setDouble(std::string_view key, double value) { setObject(key, Value(value)); }
    void removeObjectForKey(std::string_view key);

    std::string description() const { return Value(prefs_).describe(); }
    Dictionary prefsMutableDictionary() const { return prefs_; }
    const Dictionary& dictionary() const { return prefs_; }

    // Writes the whole dictionary to prefsPath atomically; false when the write failed. A
    // store unchanged since it was read or last written is not written again: a run saves at
    // every step that may have changed something, and each write waits for the disk.
    bool synchronize();

    const std::filesystem::path& prefsPath() const { return path_; }
    // Where a corrupted file was kept aside when the store was opened (empty otherwise).
    const std::filesystem::path& keptAsidePath() const { return keptAside_; }

    // What other parts build from an entry (see DerivedObjects): the changes of the entry under
    // the key so far, and the object every user of this store shares for it.
    std::uint64_t changeCount(std::string_view key) const { return derived_.changeCount(key); }
    std::any& derivedFrom(std::string_view key) { return derived_.objectFor(key); }

private:
    Dictionary prefs_;
    LookupCache cache_;
    DerivedObjects derived_;
    bool unsaved_ = true; // changes the file does not hold yet
    std::filesystem::path path_;
    std::filesystem::path keptAside_;
};

} // namespace tavvel
