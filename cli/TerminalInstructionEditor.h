#pragma once
// --edit-instructions: the list of instructions with search and sort, and the editor of one
// instruction, as typed forms.

#include <istream>
#include <ostream>

namespace tavvel {

class Context;
class TerminalDialogs;

int editInstructions(Context& ctx, TerminalDialogs& dialogs, std::istream& in, std::ostream& out);

} // namespace tavvel
