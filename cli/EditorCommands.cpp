#include "EditorCommands.h"

#include "CliTexts.h"
#include "TerminalDialogs.h"
#include "TerminalInstructionEditor.h"
#include "TerminalOutputFormat.h"
#include "context/Context.h"
#include "formats/OutputFormatFiles.h"
#include "formats/OutputFormatKeys.h"
#include "formats/OutputFormatStore.h"

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

} // namespace

std::optional<int> editorCommand(const CliOptions& options, Context& ctx, TerminalDialogs& dialogs,
                                 std::istream& in, std::ostream& out) {
    if (options.list == kOutputFormatsList) {
        listOutputFormats(ctx.prefs, std::cout);
        return kExitOK;
    }
    if (options.exportOutputFormat)
        return exportOutputFormatTelling(ctx.prefs, options.exportOutputFormat->first,
                                         options.exportOutputFormat->second, dialogs)
                   ? kExitOK
                   : kExitRefused;
    if (options.inputFile && isOutputFormatFile(*options.inputFile))
        return importOutputFormatTelling(ctx.prefs, *options.inputFile, dialogs) ? kExitOK
                                                                                 : kExitRefused;
    if (options.editOutputFormat)
        return editOutputFormat(ctx, dialogs, *options.editOutputFormat, in, out);
    if (options.editInstructions)
        return editInstructions(ctx, dialogs, in, out);
    return std::nullopt;
}

} // namespace tavvel
