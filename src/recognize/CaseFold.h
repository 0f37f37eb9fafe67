#pragma once
// Letter case as the knowledge base ignores it: every list is ordered and searched without
// regard to case. Text is UTF-8; each character folds to one character (simple case folding),
// so a folded text has as many characters as the original and a prefix stays a prefix. Bytes
// that are not UTF-8 (an 8-bit statement's payee) stand for themselves and fold to nothing
// else.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tavvel {

std::string foldCase(std::string_view text);

// Negative, zero or positive as a sorts before, with or after b ignoring case.
int compareIgnoringCase(std::string_view a, std::string_view b);
bool equalIgnoringCase(std::string_view a, std::string_view b);

// How many bytes at the start of text spell prefix ignoring case; nothing when text does not
// begin with it. (The byte counts of the two may differ where case forms differ in length.)
std::optional<std::size_t> prefixIgnoringCase(std::string_view text, std::string_view prefix);
bool startsWithIgnoringCase(std::string_view text, std::string_view prefix);
bool containsIgnoringCase(std::string_view text, std::string_view part);

std::size_t characterCount(std::string_view text);

} // namespace tavvel
