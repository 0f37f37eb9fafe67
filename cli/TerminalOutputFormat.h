#pragma once
// --edit-output-format NAME: the output format editor as a typed form. An existing format is
// edited, any other name defines a new one; "QIF" is refused.

#include <istream>
#include <ostream>
#include <string_view>

namespace tavvel {

class Context;
class TerminalDialogs;

// The exit status: 0 when the form was saved, cancelled or the format deleted, 1 when refused.
int editOutputFormat(Context& ctx, TerminalDialogs& dialogs, std::string_view name,
                     std::istream& in, std::ostream& out);

} // namespace tavvel
