#include "forms/DescriptionMatchFormatter.h"

#include "recognize/CaseFold.h"

namespace tavvel {

void TvDescriptionMatchFormatter::shortenOnly(std::optional<std::string> mustMatch) {
    shortenOnly_ = mustMatch.has_value();
    mustMatch_ = mustMatch.value_or(std::string());
}

bool TvDescriptionMatchFormatter::isPartialStringValid(std::string_view proposed) const {
    if (!shortenOnly_)
        return true;
    return !proposed.empty() && startsWithIgnoringCase(mustMatch_, proposed);
}

} // namespace tavvel
