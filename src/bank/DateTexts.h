#pragma once
// The texts of the dates a statement's records carry: each distinct day is written once, into
// the arena the records point into, so a record holds no date text of its own.

#include "bank/TextArena.h"
#include "prefs/Value.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace tavvel {

class DateTexts {
public:
    DateTexts(TextArena& texts, std::string pattern)
        : texts_(texts), pattern_(std::move(pattern)) {}
    std::string_view of(Date day);

private:
    TextArena& texts_;
    std::string pattern_;
    std::unordered_map<double, std::string_view> written_;
};

} // namespace tavvel
