#include "prefs/TvPrefs.h"

#include "prefs/Files.h"
#include "prefs/PropertyList.h"
#include "prefs/StorableText.h"

#include <cmath>
#include <limits>

namespace tavvel {

namespace {

// Copies the undecodable file aside (rather than moving it) so that the store's own file stays
// where the next start looks for it until the next save replaces it.
std::filesystem::path keepAside(const std::filesystem::path& file, Date now) {
    std::filesystem::path aside = asideName(file, now.seconds);
    // Whole or not at all, like every other file the program writes.
    return copyFileAtomically(file, aside) ? aside : std::filesystem::path();
}

} // namespace

std::filesystem::path TvPrefs::pathFor(const std::filesystem::path& folder,
                                       std::string_view applicationID) {
    return folder / (std::string(applicationID) + ".prefs");
}

TvPrefs TvPrefs::open(const std::filesystem::path& folder, std::string_view applicationID,
                      std::optional<std::string_view> newApplicationID, Date now) {
    TvPrefs store;
    store.path_ = pathFor(folder, applicationID);
    PlistRead read = readPropertyListFile(store.path_);
    if (read.ok()) {
        // A file written before every text was stored as UTF-8 is taken clean at once, so
        // that its payees meet the same texts from statements, and is rewritten at the next
        // save.
        store.unsaved_ = makeTextsStorable(read.value);
        store.prefs_ = std::move(*read.value.get<Dictionary>());
    } else if (read.status != PlistReadStatus::Missing) {
        store.keptAside_ = keepAside(store.path_, now);
        store.prefs_[std::string(prefkey::reconstructedAfterCorruption)] = Value(true);
    }
    // There is no per-user defaults domain to take over here: only the marker is set.
    if (!store.prefs_.contains(prefkey::convertedFromPlist)) {
        store.prefs_[std::string(prefkey::convertedFromPlist)] = Value(true);
        store.unsaved_ = true;
    }
    if (newApplicationID) {
        store.path_ = pathFor(folder, *newApplicationID);
        store.unsaved_ = true;
    }
    return store;
}

bool TvPrefs::boolForKey(std::string_view key) const {
    const Value* v = objectForKey(key);
    return v && v->toBool();
}

std::int64_t TvPrefs::integerForKey(std::string_view key) const {
    const Value* v = objectForKey(key);
    return v ? v->toInteger() : 0;
}

std::uint32_t TvPrefs::uInt32ForKey(std::string_view key) const {
    return static_cast<std::uint32_t>(integerForKey(key));
}

float TvPrefs::floatForKey(std::string_view key) const {
    return static_cast<float>(doubleForKey(key));
}

double TvPrefs::doubleForKey(std::string_view key) const {
    const Value* v = objectForKey(key);
    return v ? v->toDouble() : 0.0;
}

void TvPrefs::setObject(std::string_view key, const Value& value) {
    if (auto it = prefs_.find(key); it != prefs_.end() && it->second == value)
        return;
    prefs_.insert_or_assign(std::string(key), value);
    cache_.clear();
    derived_.changed(key);
    unsaved_ = true;
}

void TvPrefs::setObject(std::string_view key, const std::optional<Value>& value) {
    if (value)
        setObject(key, *value);
    else
        removeObjectForKey(key);
}

void TvPrefs::setUInt32(std::string_view key, std::uint32_t value) {
    setObject(key, Value(static_cast<std::int64_t>(value)));
}

void TvPrefs::setFloat(std::string_view key, float value) {
    setObject(key, Value(static_cast<double>(value)));
}

void TvPrefs::removeObjectForKey(std::string_view key) {
    auto it = prefs_.find(key);
    if (it == prefs_.end())
        return;
    prefs_.erase(it);
    cache_.clear();
    derived_.changed(key);
    unsaved_ = true;
}

bool TvPrefs::synchronize() {
    if (path_.empty() || !unsaved_)
        return true;
    std::error_code ec;
    std::filesystem::create_directories(path_.parent_path(), ec);
    Value written(prefs_);
    makeTextsStorable(written);
    if (!writePropertyListFile(path_, written))
        return false;
    unsaved_ = false;
    return true;
}

} // namespace tavvel
