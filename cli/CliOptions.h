#pragma once
// The terminal front end's command line.

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tavvel {

struct CliOptions {
    bool batch = false;
    bool showPreferences = false;
    std::optional<std::string> inputFile;
    // --export-format NAME FILE
    std::optional<std::pair<std::string, std::string>> exportFormat;
    // --list instructions|descriptions|categories|accounts|securities|formats
    std::optional<std::string> list;
};

struct CliParse {
    std::optional<CliOptions> options; // nothing: exit with `exitCode` after printing `output`
    int exitCode = 0;
    std::string output;
};

CliParse parseCommandLine(const std::vector<std::string>& args);

} // namespace tavvel
