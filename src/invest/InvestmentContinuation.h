#pragma once
// The investment walk's part of a continuation record: the transactions as records under
// `iqif`, each number with its sign flag, so that a resumed walk writes exactly what the
// stopped one would have.

#include "invest/InvestmentRecord.h"
#include "prefs/Value.h"

#include <optional>
#include <string_view>

namespace tavvel {

// Keys of the record; the run adds those of its form (ContinuationRecord.h).
namespace icontkey {
inline constexpr std::string_view iqif = "iqif";
inline constexpr std::string_view format = "format";
inline constexpr std::string_view fileAsString = "fileAsString";
inline constexpr std::string_view currentTransactionIndex = "currentTransactionIndex";
inline constexpr std::string_view numberOfTransactionsAppended = "numberOfTransactionsAppended";
} // namespace icontkey

Dictionary investmentRecordAsDictionary(const InvestmentRecord& record);
// Nothing when a key holds a value of the wrong type: a resumed walk must not write a
// transaction with its amount or date lost.
std::optional<InvestmentRecord> investmentRecordFrom(const Value& stored);

// Whether the investment walk's keys of a continuation record (`iqif` and its records, the
// output so far, the position and count) can be trusted by a resumed walk.
bool resumableInvestmentContinuation(const Dictionary& record);

} // namespace tavvel
