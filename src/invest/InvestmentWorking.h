#pragma once
// The transaction the investment engine is working on: the record as read, the action it
// resolved to, the security, and the numbers as they will be written. Shared by the walk and
// the writers of InvestmentQIF.

#include "invest/InvestmentQIF.h"

namespace tavvel {

struct InvestmentQIF::Working {
    InvestmentRecord record;
    std::int64_t code = actioncode::none;
    QuickenType action;
    std::string quickenSecurity;
    double fees = 0;
    // The number fields as shown, in the display formats of the settings.
    std::string amountString, priceString, sharesString, feesString;
    std::string date; // the date written: the record's, or the run's fixed one

    bool cash() const { return code >= actioncode::firstCash; }
    // The memo field: the statement's memo, or its type when it has none.
    std::string memoField() const { return record.memo.empty() ? record.type : record.memo; }
};

} // namespace tavvel
