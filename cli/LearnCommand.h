#pragma once
// Learning an input format before a run: asked for with --learn NAME, or offered when a text
// statement fits no stored format (not under --batch). The learned format becomes the run's.

#include "CliOptions.h"
#include "RunFormOptions.h"

#include <optional>

namespace tavvel {

class Controller;
class TerminalDialogs;

// Nothing when the run may go on (with the learned format, or without one when none was
// wanted); otherwise why it cannot.
std::optional<RunProblem> learnWhenWanted(Controller& controller, const CliOptions& options,
                                          TerminalDialogs& dialogs);

} // namespace tavvel
