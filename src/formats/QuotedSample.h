#pragma once
// Telling a sample written as a bank's CSV export, every field in double quotes, from other
// text: the learning dialogue then offers the comma or semicolon layout first.

#include <optional>
#include <string_view>
#include <vector>

namespace tavvel {

// The separator (',' or ';') of a sample whose records are all double-quoted fields, a field
// left empty aside, with at least two fields a record and one separator throughout; nothing
// for any other sample. A transaction that does not begin with a quote is taken to have lost
// its opening quote to the cut when `dateAfterQuote` says the dates follow one.
std::optional<char> quotedFieldSeparator(const std::vector<std::string_view>& transactions,
                                         bool dateAfterQuote);

} // namespace tavvel
