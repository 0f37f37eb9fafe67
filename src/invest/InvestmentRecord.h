#pragma once
// One investment transaction as read from a statement: texts as found, and numbers as a
// magnitude with the sign kept apart (an absent number reads as 0). A transaction the reader
// could not make sense of carries its message and text instead, and is shown, never written.

#include <optional>
#include <string>

namespace tavvel {

struct InvestmentRecord {
    std::string date; // already in the run's long output date format
    std::string type; // the statement's own words for the kind of transaction
    std::string security;
    std::string symbol;
    std::string memo;
    std::string description;
    std::string check;
    std::string category;
    // A number's text that is no number ("Invalid: ..." on the form); the transaction cannot
    // be written.
    std::string badValue;
    double amount = 0;
    double price = 0;
    double shares = 0;
    // What the statement itself says the trade cost in commission, fees, taxes and load;
    // without it the fees are what the amount holds beyond price times shares.
    std::optional<double> fees;
    bool amountWasNegative = false;
    bool sharesWereNegative = false;
    // Set instead of the fields above when the transaction cannot be read.
    std::string errorMessage;
    std::string errorText;
};

} // namespace tavvel
