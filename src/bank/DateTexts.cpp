#include "bank/DateTexts.h"

#include "recognize/CalendarDate.h"

namespace tavvel {

std::string_view DateTexts::of(Date day) {
    auto [at, added] = written_.try_emplace(day.seconds);
    if (added)
        at->second = texts_.keep(formatDate(day, pattern_));
    return at->second;
}

} // namespace tavvel
