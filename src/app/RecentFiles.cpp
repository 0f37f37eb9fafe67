#include "app/RecentFiles.h"

#include <algorithm>

namespace tavvel {

std::vector<std::string> RecentFiles::list() const {
    std::vector<std::string> paths;
    const Value* stored = prefs_.objectForKey(kRecentFilesKey);
    if (!stored || !stored->isArray())
        return paths;
    for (const Value& item : stored->array())
        if (item.isString() && !item.text().empty() && paths.size() < kMost)
            paths.push_back(item.text());
    return paths;
}

void RecentFiles::add(const std::string& path) {
    std::vector<std::string> paths = list();
    std::erase(paths, path);
    paths.insert(paths.begin(), path);
    if (paths.size() > kMost)
        paths.resize(kMost);
    store(paths);
}

void RecentFiles::remove(const std::string& path) {
    std::vector<std::string> paths = list();
    std::erase(paths, path);
    store(paths);
}

void RecentFiles::clear() {
    store({});
}

void RecentFiles::store(const std::vector<std::string>& paths) {
    Array items;
    for (const std::string& path : paths)
        items.emplace_back(path);
    prefs_.setObject(kRecentFilesKey, Value(std::move(items)));
    prefs_.synchronize();
}

} // namespace tavvel
