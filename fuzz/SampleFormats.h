#pragma once
// Input formats of different layouts, as the learning dialogue would have stored them: one
// transaction a line or many lines a transaction, every field layout, each date delimiter, and
// day-before-month dates.

#include "prefs/Value.h"

#include <optional>
#include <string_view>
#include <vector>

namespace tavvel::fuzz {

const std::vector<Dictionary>& sampleFormats();

// A fuzz input for a target that reads through a format: the first byte picks the sample
// format, so the fuzzer steers the layout too; the rest is the text.
struct FormattedInput {
    const Dictionary* format;
    std::string_view text;
};
std::optional<FormattedInput> formattedInput(std::string_view input);

} // namespace tavvel::fuzz
