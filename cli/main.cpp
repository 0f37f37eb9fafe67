// tavvel-cli: the conversion run in a terminal.

#include "CliOptions.h"
#include "TerminalDialogs.h"
#include "app/StartUp.h"
#include "context/Context.h"
#include "knowledge/FormatFiles.h"
#include "knowledge/Formats.h"
#include "knowledge/KnowledgeListing.h"

#include <cctype>
#include <filesystem>
#include <iostream>

using namespace tavvel;

namespace {

std::filesystem::path executablePath(const char* argv0) {
    std::error_code ec;
    auto self = std::filesystem::read_symlink("/proc/self/exe", ec);
    return ec ? std::filesystem::absolute(argv0) : self;
}

bool isFormatFile(const std::string& file) {
    std::string extension = std::filesystem::path(file).extension().string();
    for (char& c : extension)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return extension == ".tvfm";
}

// --list, --export-format and opening a .tvfm file: the exit status, or nothing when the
// command line asked for none of them.
std::optional<int> knowledgeCommand(const CliOptions& options, Context& ctx,
                                    TerminalDialogs& dialogs) {
    Formats formats(ctx.prefs);
    if (options.list) {
        std::cout << terminalText(listKnowledge(ctx.prefs, *options.list).value_or(""));
        return 0;
    }
    if (options.exportFormat) {
        const auto& [name, file] = *options.exportFormat;
        if (!formats.formatForName(name)) {
            std::cerr << "tavvel-cli: there is no input format named \"" << name << "\".\n";
            return 1;
        }
        if (exportFormat(formats, name, file, dialogs))
            return 0;
        std::cerr << "tavvel-cli: the input format could not be written to " << file << ".\n";
        return 1;
    }
    if (options.inputFile && isFormatFile(*options.inputFile)) {
        auto rename = [&](RenameFormatForm& form) { return dialogs.renameFormat(form); };
        ImportOutcome outcome = importFormatFile(formats, *options.inputFile, dialogs, rename);
        return outcome == ImportOutcome::Refused ? 1 : 0;
    }
    return std::nullopt;
}

} // namespace

int main(int argc, char** argv) {
    CliParse parse = parseCommandLine(std::vector<std::string>(argv, argv + argc));
    if (!parse.options) {
        std::cout << parse.output;
        return parse.exitCode;
    }
    const CliOptions& options = *parse.options;

    auto configFile = Configuration::locateFor(executablePath(argv[0]));
    auto config = Configuration::load(configFile);
    if (!config) {
        std::cerr << "tavvel-cli: the configuration file " << configFile
                  << " is missing or damaged; reinstall Tavvel.\n";
        return 1;
    }
    Context ctx(std::move(*config), Clock::system(), Places::forCurrentUser());
    TerminalDialogs dialogs(std::cin, std::cout, options.batch);
    awakeFromNib(ctx, dialogs);

    if (options.showPreferences)
        std::cout << terminalText(ctx.prefs.description()) << "\n";
    if (auto status = knowledgeCommand(options, ctx, dialogs))
        return *status;
    if (options.inputFile) {
        std::cerr << "tavvel-cli: converting statements is not available in this build yet.\n";
        return 2;
    }
    return 0;
}
