#pragma once
// --history ACCOUNT and --forget-history ACCOUNT: the conversion history, listed or cleared.

#include "CliOptions.h"

#include <optional>
#include <ostream>

namespace tavvel {

class Context;

// The exit status, or nothing when the command line asked for neither.
std::optional<int> historyCommand(const CliOptions& options, Context& ctx, std::ostream& out,
                                  std::ostream& err);

} // namespace tavvel
