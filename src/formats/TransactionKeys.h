#pragma once
// Keys of the bank and credit-card transaction record and of its split records.

#include <string_view>

namespace tavvel::txkey {

inline constexpr std::string_view date = "date";
inline constexpr std::string_view number = "number";
inline constexpr std::string_view description = "description";
inline constexpr std::string_view memo = "memo";
inline constexpr std::string_view category = "category";
inline constexpr std::string_view cleared = "cleared";
inline constexpr std::string_view amount = "amount";
inline constexpr std::string_view splits = "splits";
inline constexpr std::string_view trntype = "trntype";
// The statement's own id of the transaction (OFX FITID), for the conversion history.
inline constexpr std::string_view fitid = "fitid";
inline constexpr std::string_view errorMessage = "errorMessage";
inline constexpr std::string_view errorText = "errorText";
inline constexpr std::string_view amountAlreadyConverted = "amountAlreadyConverted";
inline constexpr std::string_view outputLength = "outputLength";
inline constexpr std::string_view AlreadySwapped = "AlreadySwapped";
inline constexpr std::string_view userSplits = "userSplits";

} // namespace tavvel::txkey
