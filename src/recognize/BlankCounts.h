#pragma once
// The scanners' two process-wide counters. They carry over from statement to statement on
// purpose: a layout measured while learning a format governs later reads in the same process.

#include <cstdint>

namespace tavvel {

struct BlankCounts {
    // The blanks after a separator that findField last saw start a field; -1 until then.
    std::int64_t initialBlanks = -1;
    // The width of the blank gap before a date, measured by findDate while it is -1 (the
    // learning dialogue sets -1); 0 means "never measured".
    std::int64_t multipleBlanks = 0;
};

} // namespace tavvel
