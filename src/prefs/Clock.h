#pragma once
// The one source of "now". Tests fix it so that rules about today (yearless dates, the
// default range end) are checked on chosen days.

#include "prefs/Value.h"

#include <optional>

namespace tavvel {

class Clock {
public:
    static Clock system() { return Clock(); }
    static Clock fixed(Date instant) { return Clock(instant); }

    Date now() const;
    bool isFixed() const { return fixed_.has_value(); }

private:
    Clock() = default;
    explicit Clock(Date instant) : fixed_(instant) {}
    std::optional<Date> fixed_;
};

} // namespace tavvel
