#pragma once
// The keys of the question tables that the dialogue learning an input format walks: names the
// program reads, never shows.

#include <string_view>

namespace tavvel::questionkey {

inline constexpr std::string_view Prompt = "Prompt";
inline constexpr std::string_view Field = "Field";
inline constexpr std::string_view FieldMatch = "FieldMatch";
inline constexpr std::string_view Error = "Error";
inline constexpr std::string_view Yes = "Yes";
inline constexpr std::string_view No = "No";
inline constexpr std::string_view InvertAmount = "InvertAmount";
inline constexpr std::string_view CheckSharesOrPrice = "CheckSharesOrPrice";
inline constexpr std::string_view CheckSecurity = "CheckSecurity";
inline constexpr std::string_view Stop = "Stop";
inline constexpr std::string_view Done = "Done";

// The wrapping of a question list being walked.
inline constexpr std::string_view questions = "questions";
inline constexpr std::string_view index = "index";

} // namespace tavvel::questionkey
