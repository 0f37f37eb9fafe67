#include "prefs/Clock.h"

#include <chrono>

namespace tavvel {

Date Clock::now() const {
    if (fixed_)
        return *fixed_;
    using namespace std::chrono;
    return Date{duration<double>(system_clock::now().time_since_epoch()).count()};
}

} // namespace tavvel
