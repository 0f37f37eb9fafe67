#pragma once
// A conversion run from the command line: the statement read and classified, the run form
// filled in from the options, the run itself, and the exit status.

#include "CliOptions.h"

#include <ostream>

namespace tavvel {

class Context;
class TerminalDialogs;

// Converts options.inputFile. The output goes to its file (to `out` for "-o -"); messages go
// through the dialogs and to `err`. Returns the exit status.
int runConversion(Context& ctx, TerminalDialogs& dialogs, const CliOptions& options,
                  std::ostream& out, std::ostream& err);

} // namespace tavvel
