// The preference file at start-up holding any bytes: a store that cannot be read is kept aside
// byte for byte and the store starts empty; one that can is saved and reopened unchanged.
#include "../FuzzSupport.h"
#include "../Targets.h"
#include "prefs/Files.h"
#include "prefs/PropertyList.h"
#include "prefs/TvPrefs.h"

namespace tavvel::fuzz {

int preferenceFile(const std::uint8_t* data, std::size_t size) {
    auto bytes = capped(data, size);
    if (!bytes)
        return 0;
    Scratch scratch;
    constexpr std::string_view id = "TavvelMain";
    std::filesystem::path file = TvPrefs::pathFor(scratch.path(), id);
    scratch.write(file.filename().string(), *bytes);
    Date now = day(2024, 6, 1);
    TvPrefs prefs = TvPrefs::open(scratch.path(), id, std::nullopt, now);
    if (!prefs.keptAsidePath().empty()) {
        for (const auto& [key, value] : prefs.dictionary())
            check(key == prefkey::reconstructedAfterCorruption ||
                      key == prefkey::convertedFromPlist,
                  "a corrupt store did not start empty", key);
        check(readWholeFile(prefs.keptAsidePath()) == std::string(*bytes),
              "a corrupt store was not kept aside as it was");
    }
    std::string before = encodePropertyList(Value(prefs.dictionary()));
    check(prefs.synchronize(), "the store cannot be saved");
    TvPrefs reopened = TvPrefs::open(scratch.path(), id, std::nullopt, now);
    check(reopened.keptAsidePath().empty(), "a saved store does not reopen");
    check(encodePropertyList(Value(reopened.dictionary())) == before,
          "a store changed when saved and reopened");
    return 0;
}

} // namespace tavvel::fuzz
