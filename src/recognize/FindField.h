#pragma once
// Stepping from one field of a transaction's text to the next, by the input format's layout
// (its Fields entry: "OFX", "MULTIPLE_BLANKS", "TABS_ONLY", "CSV", "SSV", "COLUMNS", "COUNT",
// "INITIAL_BLANKS" and anything else like the last).

#include "prefs/Value.h"
#include "recognize/BlankCounts.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace tavvel {

// What findField reads of the input format: its Fields entry and whether bytes of 128 and
// more are field characters. Made once, it spares a caller that cuts field after field the
// format lookups.
struct FieldLayout {
    std::string name;
    bool nonUS = false;

    static FieldLayout of(const Dictionary& format);
};

// Where the field after the one starting at pos begins, or text.size() when none does. The
// field at pos ends just before the separator found. In "CSV" layout a quoted last field
// followed by one blank loses that blank: the text is cut there and the cut is returned.
// The default layout reads and updates blanks.initialBlanks; "MULTIPLE_BLANKS" reads
// blanks.multipleBlanks.
std::size_t findField(std::string& text, std::size_t pos, const Dictionary& format,
                      BlankCounts& blanks);
std::size_t findField(std::string& text, std::size_t pos, const FieldLayout& layout,
                      BlankCounts& blanks);

} // namespace tavvel
