#pragma once
// The application configuration dictionary (resources/Info.plist): the tables the program
// reads as data rather than code. A missing key reads as an empty table.

#include "prefs/Value.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace tavvel {

class Configuration {
public:
    Configuration() = default;
    explicit Configuration(Dictionary tables) : tables_(std::move(tables)) {}

    // Reads the dictionary from a file; nothing when it is missing or not a dictionary.
    static std::optional<Configuration> load(const std::filesystem::path& file);
    // Where the dictionary lies for an executable: ../share/tavvel/Info.plist beside its bin/
    // folder, which holds in the build tree and after installation alike.
    static std::filesystem::path locateFor(const std::filesystem::path& executable);
    // The dictionary of the running program, whose argv[0] is given: the executable is
    // found through /proc/self/exe, symbolic links resolved, else from argv[0].
    static std::filesystem::path locateForRunning(const char* argv0);

    const Value* value(std::string_view key) const { return find(tables_, key); }
    const Array& array(std::string_view key) const;
    const Dictionary& dictionary(std::string_view key) const;
    // The strings of an array table, skipping entries that are not text.
    std::vector<std::string> strings(std::string_view key) const;
    const Dictionary& all() const { return tables_; }

private:
    Dictionary tables_;
};

// Keys of the configuration dictionary.
namespace config {
inline constexpr std::string_view TvQuickenTypes = "TvQuickenTypes";
inline constexpr std::string_view TvRemoveFromAmounts = "TvRemoveFromAmounts";
inline constexpr std::string_view TvOFXFormat = "TvOFXFormat";
inline constexpr std::string_view TvLongDateFormats = "TvLongDateFormats";
inline constexpr std::string_view TvLongDateNoYearFormats = "TvLongDateNoYearFormats";
inline constexpr std::string_view TvShortDateFormats = "TvShortDateFormats";
inline constexpr std::string_view TvLongMonths = "TvLongMonths";
inline constexpr std::string_view TvAfterLongMonth = "TvAfterLongMonth";
inline constexpr std::string_view TvExtractBankCreditCard = "TvExtractBankCreditCard";
inline constexpr std::string_view TvExtractInvestment = "TvExtractInvestment";
} // namespace config

} // namespace tavvel
