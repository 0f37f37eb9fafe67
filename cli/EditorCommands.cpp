#include "EditorCommands.h"

#include "CliTexts.h"
#include "TerminalDialogs.h"
#include "TerminalInstructionEditor.h"
#include "TerminalOutputFormat.h"
#include "context/Context.h"
#include "formats/OutputFormatFiles.h"
#include "formats/OutputFormatKeys.h"
#include "formats/OutputFormatStore.h"
#include "formats/OutputFormatTexts.h"

namespace tavvel {

namespace {

void listOutputFormats(const TvPrefs& prefs, std::ostream& out) {
    for (const Value& format : storedOutputFormats(prefs)) {
        const Dictionary& record = format.dictionary();
        std::string name = textOf(record, outkey::Name);
        if (isBuiltInOutputFormat(name)) {
            out << terminalText(name) << "\n";
            continue;
        }
        out << terminalText(name) << "\t" << textOf(record, outkey::Type, outkey::Bank) << "\t"
            << textOf(record, outkey::Separator) << "\n";
    }
}

int exportTo(Context& ctx, Dialogs& dialogs, const std::string& name, const std::string& file) {
    if (!exportOutputFormat(ctx.prefs, name, file)) {
        dialogs.alert(std::string(text::outputFormatExportedTitle),
                      formatMessage(text::noOutputFormatNamed, name));
        return kExitRefused;
    }
    dialogs.alert(std::string(text::outputFormatExportedTitle),
                  formatMessage(text::outputFormatExportedText, {name, file}));
    return kExitOK;
}

int importFrom(Context& ctx, Dialogs& dialogs, const std::string& file) {
    std::optional<std::string> name = importOutputFormat(ctx.prefs, file);
    if (!name) {
        dialogs.alert(std::string(text::outputFormatImportedTitle),
                      formatMessage(text::outputFormatFileRefused, file));
        return kExitRefused;
    }
    dialogs.alert(std::string(text::outputFormatImportedTitle),
                  formatMessage(text::outputFormatImportedText, *name));
    return kExitOK;
}

} // namespace

std::optional<int> editorCommand(const CliOptions& options, Context& ctx, TerminalDialogs& dialogs,
                                 std::istream& in, std::ostream& out) {
    if (options.list == kOutputFormatsList) {
        listOutputFormats(ctx.prefs, std::cout);
        return kExitOK;
    }
    if (options.exportOutputFormat)
        return exportTo(ctx, dialogs, options.exportOutputFormat->first,
                        options.exportOutputFormat->second);
    if (options.inputFile && isOutputFormatFile(*options.inputFile))
        return importFrom(ctx, dialogs, *options.inputFile);
    if (options.editOutputFormat)
        return editOutputFormat(ctx, dialogs, *options.editOutputFormat, in, out);
    if (options.editInstructions)
        return editInstructions(ctx, dialogs, in, out);
    return std::nullopt;
}

} // namespace tavvel
