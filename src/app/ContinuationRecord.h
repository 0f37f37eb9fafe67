#pragma once
// The continuation record that a run stopped with "finish later" leaves in a .tvcn file, and
// the test that one read back can be resumed: every key of the right type, the transactions a
// list of records, and the position inside that list.

#include "prefs/Value.h"

#include <string_view>

namespace tavvel {

namespace contkey {
inline constexpr std::string_view qif = "qif";
inline constexpr std::string_view fileAsString = "fileAsString";
inline constexpr std::string_view currentTransactionIndex = "currentTransactionIndex";
inline constexpr std::string_view numberOfTransactionsAppended = "numberOfTransactionsAppended";
inline constexpr std::string_view outputFormatText = "outputFormatText";
inline constexpr std::string_view sameDateSwitch = "sameDateSwitch";
inline constexpr std::string_view sameNumberSwitch = "sameNumberSwitch";
inline constexpr std::string_view outputDateString = "outputDateString";
inline constexpr std::string_view outputNumberString = "outputNumberString";
inline constexpr std::string_view account = "account";
// The input type's choices the stopped run was read with (QifInputTypes.h bits); absent in
// files of earlier versions, which read as none.
inline constexpr std::string_view inputTypeTag = "inputTypeTag";
// What the conversion history is to record when the run ends: the transactions written before
// it stopped (each a dictionary of index, category and instruction), and whether the user chose
// to convert a statement converted before again.
inline constexpr std::string_view historyWritten = "historyWritten";
inline constexpr std::string_view historyConvertAgain = "historyConvertAgain";
} // namespace contkey

// Whether the record can be resumed by the bank and credit-card walk, or the investment walk.
bool resumableContinuation(const Dictionary& record);

} // namespace tavvel
