#include "CliOptions.h"

#include "Version.h"
#include "knowledge/KnowledgeListing.h"

#include <CLI/CLI.hpp>
#include <sstream>

namespace tavvel {

CliParse parseCommandLine(const std::vector<std::string>& args) {
    CLI::App app("Converts bank, credit-card and investment statements into QIF.", "tavvel-cli");
    CliOptions options;
    std::string file;
    app.set_version_flag("--version", std::string("tavvel-cli ") + kVersion);
    app.add_flag("--batch", options.batch,
                 "Never ask: questions take their first button, nothing is read from the "
                 "terminal");
    app.add_flag("--show-preferences", options.showPreferences,
                 "Print the preference store after start-up");
    app.add_option("file", file,
                   "Statement to convert (OFX, QFX, QIF or text), or an input format to import "
                   "(.tvfm)");
    std::vector<std::string> exportFormat;
    app.add_option("--export-format", exportFormat, "Save the input format NAME in FILE (.tvfm)")
        ->expected(2)
        ->type_name("NAME FILE");
    std::string list;
    std::vector<std::string> lists(knowledgeLists().begin(), knowledgeLists().end());
    app.add_option("--list", list, "Print a list of the knowledge base")
        ->check(CLI::IsMember(lists));

    std::vector<std::string> reversed(args.rbegin(), args.rend());
    if (!reversed.empty())
        reversed.pop_back(); // the program's own name
    std::ostringstream out, err;
    try {
        app.parse(reversed);
    } catch (const CLI::ParseError& e) {
        CliParse result;
        result.exitCode = app.exit(e, out, err);
        result.output = out.str() + err.str();
        return result;
    }
    if (!file.empty())
        options.inputFile = file;
    if (exportFormat.size() == 2)
        options.exportFormat = std::pair(exportFormat[0], exportFormat[1]);
    if (!list.empty())
        options.list = list;
    return {options, 0, {}};
}

} // namespace tavvel
