#pragma once
// Private to the walk's files: what one walk works with, and the transaction made ready.

#include "bank/BankingCreditCardQIF.h"

#include <optional>
#include <string>

namespace tavvel {

struct BankingCreditCardQIF::Prepared {
    std::string date;
    std::optional<std::string> description;
    std::optional<std::string> memo;
    std::optional<std::string> amount;
};

struct BankingCreditCardQIF::Walk {
    std::string& output;
    OutputFormats& writer;
    ErrorWarning& warning;
    Dialogs& dialogs;
    Instructions& instructions;
    const WalkOptions& options;
};

inline std::optional<std::string> optionalText(const Dictionary& record, std::string_view key) {
    const Value* v = find(record, key);
    return v ? std::optional<std::string>(v->text()) : std::nullopt;
}

} // namespace tavvel
