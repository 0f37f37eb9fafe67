#pragma once
// The terminal front end's command line.

#include <optional>
#include <string>
#include <vector>

namespace tavvel {

struct CliOptions {
    bool batch = false;
    bool showPreferences = false;
    std::optional<std::string> inputFile;
};

struct CliParse {
    std::optional<CliOptions> options; // nothing: exit with `exitCode` after printing `output`
    int exitCode = 0;
    std::string output;
};

CliParse parseCommandLine(const std::vector<std::string>& args);

} // namespace tavvel
