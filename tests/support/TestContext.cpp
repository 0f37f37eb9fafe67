#include "support/TestContext.h"

#include "recognize/CalendarDate.h"

#include <cstdlib>
#include <stdexcept>

namespace tavvel::test {

TempFolder::TempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tavvel-test-XXXXXX").string();
    if (!::mkdtemp(pattern.data()))
        throw std::runtime_error("cannot create a temporary folder");
    path_ = pattern;
}

TempFolder::~TempFolder() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
}

const Configuration& shippedConfiguration() {
    static const Configuration config = [] {
        auto loaded = Configuration::load(TAVVEL_CONFIG_FILE);
        if (!loaded)
            throw std::runtime_error("cannot read " TAVVEL_CONFIG_FILE);
        return *loaded;
    }();
    return config;
}

Places placesIn(const std::filesystem::path& folder) {
    Places places;
    places.prefsFolder = folder / "config" / "Tavvel";
    places.home = folder / "home";
    places.documents = places.home / "Documents";
    std::filesystem::create_directories(places.prefsFolder);
    return places;
}

std::filesystem::path corpusFolder() {
    const char* set = std::getenv("TAVVEL_CORPUS_DIR");
    return set && *set ? std::filesystem::path(set) : std::filesystem::path(TAVVEL_CORPUS_DIR);
}

Clock fixedClock(int year, int month, int day) {
    useProcessTimeZone();
    return Clock::fixed(Date{localMidnight(year, month, day).seconds + 12 * 3600});
}

TestContext::TestContext()
    : ctx(shippedConfiguration(), fixedClock(2024, 6, 1), placesIn(folder.path())) {}

} // namespace tavvel::test
