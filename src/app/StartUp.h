#pragma once
// The start-up sequence: first run and migration from the predecessor, opening the preference
// store, the first-run questions, legacy conversions and every default, then one save.

namespace tavvel {

class Context;
class Dialogs;

// Runs the whole sequence in order; afterwards ctx.prefs is the opened, saved store.
void awakeFromNib(Context& ctx, Dialogs& dialogs);

} // namespace tavvel
