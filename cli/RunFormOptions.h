#pragma once
// The run form filled in from the command line: each option becomes the event a user would
// make in the form, and what the options leave out takes the plain default (all
// transactions, QIF output, the normal input type, no fixed date or number, no appending).

#include "CliOptions.h"

#include <optional>
#include <ostream>
#include <string>

namespace tavvel {

class Controller;
struct OutputFormatting;

struct RunProblem {
    int status = kExitUsage;
    std::string message;
};

// What the command line alone shows to be wrong, before anything is read or changed.
std::optional<std::string> checkRunOptions(const CliOptions& options);

// After classification: the form set from the options, or why they cannot apply to this
// input. Notes about options that have no use here go to `err`.
std::optional<RunProblem> fillRunForm(Controller& controller, const RunOptions& run,
                                      const OutputFormatting& output, std::ostream& err);

// The index of the input-type choice named (ignoring case) among the titles; nothing when
// none has the name.
std::optional<int> qifTypeIndex(std::string_view name);
std::optional<int> ofxTypeIndex(std::string_view name);

} // namespace tavvel
