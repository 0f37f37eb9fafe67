// tavvel-cli: the conversion run in a terminal.

#include "CliOptions.h"
#include "TerminalDialogs.h"
#include "app/StartUp.h"
#include "context/Context.h"

#include <filesystem>
#include <iostream>

using namespace tavvel;

namespace {

std::filesystem::path executablePath(const char* argv0) {
    std::error_code ec;
    auto self = std::filesystem::read_symlink("/proc/self/exe", ec);
    return ec ? std::filesystem::absolute(argv0) : self;
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
    if (options.inputFile) {
        std::cerr << "tavvel-cli: converting statements is not available in this build yet.\n";
        return 2;
    }
    return 0;
}
