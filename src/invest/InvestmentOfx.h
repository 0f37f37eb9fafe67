#pragma once
// Investment statements in OFX or QFX, read aggregate by aggregate: each transaction's fields
// come from its own aggregate only, so a neighbour's type, amount or name never leaks in.
//
// Stages, in order: the statement's security list (<SECINFO>: id, ticker, name); the
// transaction aggregates of the investment transaction list in the order of the file, each
// bounded by its end tag or the next aggregate; per aggregate: the statement it stands in (a
// chosen account keeps its own), date (<DTTRADE>, else <DTPOSTED> for cash), the type (the
// aggregate's name and its subtype, "INCOME DIV"), security, numbers, texts.

#include "invest/InvestmentRecord.h"
#include "recognize/CalendarDate.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavvel {

struct OfxSecurity {
    std::string name;
    std::string ticker;
};

// <UNIQUEID> → what the statement's <SECLIST> says of it; a later entry with the same id wins.
std::map<std::string, OfxSecurity> ofxSecurities(std::string_view text, bool utf8);

struct InvestmentOfxRead {
    Date fromDate = kDistantPast;
    Date toDate = kDistantFuture;
    std::string datePattern;            // the run's long output date format
    std::optional<std::string> account; // only this account's statement, when chosen
};

// The transactions in the date range, in the order of the file; unreadable ones as error
// records.
std::vector<InvestmentRecord> readInvestmentOfx(std::string_view text,
                                                const InvestmentOfxRead& read);

} // namespace tavvel
