#include "prefs/Places.h"

#include "prefs/Files.h"

#include <cstdlib>
#include <pwd.h>
#include <string_view>
#include <unistd.h>

namespace tavvel {

namespace {

std::filesystem::path homeFolder() {
    if (const char* home = std::getenv("HOME"); home && *home)
        return home;
    if (const passwd* pw = getpwuid(getuid()); pw && pw->pw_dir)
        return pw->pw_dir;
    return "/";
}

// A relative XDG folder is to be ignored, as the base directory rules say.
std::filesystem::path xdgHome(const char* variable, const std::filesystem::path& fallback) {
    const char* xdg = std::getenv(variable);
    if (xdg && *xdg && std::filesystem::path(xdg).is_absolute())
        return xdg;
    return fallback;
}

// user-dirs.dirs holds lines such as XDG_DOCUMENTS_DIR="$HOME/Documents".
std::filesystem::path xdgDocuments(const std::filesystem::path& config,
                                   const std::filesystem::path& home) {
    auto text = readWholeFile(config / "user-dirs.dirs", 1 << 16);
    if (!text)
        return {};
    constexpr std::string_view key = "XDG_DOCUMENTS_DIR=\"";
    std::size_t at = text->find(key);
    if (at == std::string::npos)
        return {};
    std::size_t begin = at + key.size();
    std::size_t end = text->find('"', begin);
    if (end == std::string::npos)
        return {};
    std::string value = text->substr(begin, end - begin);
    if (value.rfind("$HOME", 0) == 0)
        return home.string() + value.substr(5);
    return value;
}

} // namespace

Places Places::forCurrentUser() {
    Places places;
    places.home = homeFolder();
    std::filesystem::path config = xdgHome("XDG_CONFIG_HOME", places.home / ".config");
    places.prefsFolder = config / "Tavvel";
    places.dataFolder = xdgHome("XDG_DATA_HOME", places.home / ".local" / "share") / "Tavvel";
    std::filesystem::path docs = xdgDocuments(config, places.home);
    std::error_code ec;
    places.documents = (!docs.empty() && std::filesystem::is_directory(docs, ec))
                           ? docs
                           : places.home / "Documents";
    return places;
}

} // namespace tavvel
