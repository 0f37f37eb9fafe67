#pragma once
// The statements opened lately, newest first, for File ▸ Open Recent. Kept in the preference
// store so they outlive the program; a damaged or foreign entry is passed over, never trusted.

#include "prefs/TvPrefs.h"

#include <string>
#include <string_view>
#include <vector>

namespace tavvel {

inline constexpr std::string_view kRecentFilesKey = "RecentFiles";

class RecentFiles {
public:
    static constexpr std::size_t kMost = 10;

    explicit RecentFiles(TvPrefs& prefs) : prefs_(prefs) {}

    std::vector<std::string> list() const;
    // The path goes to the front; an earlier entry for it goes, and the oldest beyond kMost.
    void add(const std::string& path);
    void remove(const std::string& path);
    void clear();

private:
    void store(const std::vector<std::string>& paths);

    TvPrefs& prefs_;
};

} // namespace tavvel
