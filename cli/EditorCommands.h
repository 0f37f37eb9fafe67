#pragma once
// The editors and the output format files from the command line: --edit-output-format,
// --edit-instructions, --export-output-format, --list output-formats and opening a .tvof file.

#include "CliOptions.h"

#include <iostream>
#include <optional>

namespace tavvel {

class Context;
class TerminalDialogs;

// The exit status, or nothing when the command line asked for none of them.
std::optional<int> editorCommand(const CliOptions& options, Context& ctx, TerminalDialogs& dialogs,
                                 std::istream& in, std::ostream& out);

} // namespace tavvel
