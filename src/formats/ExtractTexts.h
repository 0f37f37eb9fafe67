#pragma once
// What the input-format engine says about a transaction it cannot read, word for word.

#include <string_view>

namespace tavvel::text {

// The marker that opens a transaction the engine could not read: it is followed by one of the
// messages below and the transaction's whole text.
inline constexpr std::string_view extractError = "ERROR";

// "%@" stands for the format's field layout ("CSV" or "SSV").
inline constexpr std::string_view invalidSeparatedField =
    "The following transaction has invalid %@ format; it cannot be processed: ";
inline constexpr std::string_view fieldEndsBeforeStart =
    "The transaction cannot be interpreted with the specified format.  Try re-defining the "
    "format, paying very close attention to the instructions.";
inline constexpr std::string_view noReadableDate =
    "The following transaction does not contain a date that can be interpreted; it cannot be "
    "processed: ";

} // namespace tavvel::text
