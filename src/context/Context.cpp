#include "context/Context.h"

#include "recognize/CalendarDate.h"

namespace tavvel {

Context::Context(Configuration configuration, Clock clockIn, Places placesIn)
    : config(std::move(configuration)), clock(clockIn), places(std::move(placesIn)) {
    useProcessTimeZone();
}

} // namespace tavvel
