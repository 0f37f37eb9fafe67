#pragma once
// The readers of bank and credit-card statements. Each returns the records of one statement in
// the order of the file; the records point into the text read and into `texts` (the dates,
// written once a day), which must both outlive them.

#include "bank/TextArena.h"
#include "bank/TransactionRecord.h"
#include "prefs/Value.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavvel {

class Context;

// A QIF register's records; `badLine` is 0, or the 1-based number of the line whose date
// could not be read, or is no real day (the records read before it are kept). Dates are read
// day first when `dayFirst` says so; unset, in the order the file shows, else as the option
// europeanDates says.
struct QifRegisterRead {
    std::vector<TransactionRecord> records;
    std::size_t badLine = 0;
};
QifRegisterRead readQifRegister(std::span<const std::string_view> lines, Date fromDate, Date toDate,
                                std::optional<bool> dayFirst, const Context& ctx, TextArena& texts);

// Every <STMTTRN> piece of an OFX or QFX statement within the range (both ends inclusive);
// unreadable transactions become error records in their place. With `account`, only that
// account's statements are read.
std::vector<TransactionRecord> readOfxStatement(std::string_view text, Date fromDate, Date toDate,
                                                const std::optional<std::string>& account,
                                                const Context& ctx, TextArena& texts);

// addField:ofxLabel:fromOFXTransaction:toQIFTransaction: — the tag's value in the piece, its
// entities decoded (numeric ones as UTF-8 when `utf8`) or its CDATA as it stands; false
// (record unchanged) when the tag is not in the piece. A value with nothing to decode is
// pointed at, not copied.
bool addOfxField(TxField field, std::string_view ofxLabel, std::string_view transaction,
                 TransactionRecord& record, bool utf8 = false);

} // namespace tavvel
