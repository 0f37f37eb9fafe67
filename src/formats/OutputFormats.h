#pragma once
// The output formats: the store of output format records (`OutputFormats`, always holding the
// built-in "QIF"), and the writer that appends each finished transaction to the run's output
// text, as a QIF record or as one line of the chosen delimited layout.

#include "prefs/Value.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tavvel {

class Context;
class Dialogs;

// One bank or credit-card transaction as it goes out; absent values are left out of QIF and
// written as empty fields.
struct BankOutput {
    std::optional<std::string> date, description, memo, amount, number, category, cleared;
    const Array* splits = nullptr; // split records with category, memo, amount
};

// One investment transaction for a delimited layout.
struct InvestmentOutput {
    std::optional<std::string> type, date, description, memo, amount, number, category, shares,
        security, price, fees;
};

class OutputFormats {
public:
    OutputFormats(Context& ctx, Dialogs& dialogs) : ctx_(ctx), dialogs_(dialogs) {}

    // The stored records; a missing list is created holding "QIF" alone, and saved.
    Array getOutputFormatsArray();
    std::optional<Dictionary> formatForName(std::string_view name);
    // The names of the layouts for a run kind (0 bank, 1 card, 2 investment; other kinds: all),
    // "QIF" first.
    std::vector<std::string> namesForKind(int gType);

    // The layout the run writes; also the account named in "Account" columns.
    void chooseFormat(std::string_view name);
    const std::string& chosenFormatName() const { return chosenName_; }
    // The account written in "Account" columns.
    void setAccount(std::string account) { account_ = std::move(account); }
    // A layout that is not (yet) stored, as the editor previews it.
    void useLayout(std::optional<Dictionary> layout);

    // QIFOutput
    bool QIFOutput() const { return chosenName_ == "QIF"; }

    // produceBankCCOutput:date:description:memo:amount:number:category:cleared:splits:
    void produceBankCCOutput(std::string& output, const BankOutput& transaction);
    // The same without registering the category: nothing is stored (a preview).
    void writeBankCCRecord(std::string& output, const BankOutput& transaction);
    // The category of the transaction produced last, for the conversion history.
    const std::string& lastCategory() const { return lastCategory_; }
    // produceInvestmentOutput:... — only in a delimited layout; QIF investment records are
    // written by the investment engine.
    void produceInvestmentOutput(std::string& output, const InvestmentOutput& transaction);
    // produceNonQIFOutputField:csv:into:position:
    static void produceNonQIFOutputField(std::string field, bool csv, std::string& output,
                                         std::int64_t position);
    // convertedDate: — the date rewritten with the layout's reformat pattern, or unchanged.
    std::string convertedDate(std::string_view date) const;

    // The ICU pattern for a reformat pattern in %-notation ("%d.%m.%Y" gives "d.M.yyyy").
    static std::string reformatPattern(std::string_view percentPattern);

private:
    void noteCategory(const BankOutput& t);
    std::string lastCategory_;
    void writeQIF(std::string& output, const BankOutput& t, const std::string& description,
                  const std::optional<std::string>& memo, const std::string& number);
    void writeDelimited(std::string& output, const BankOutput& t, const std::string& description,
                        const std::optional<std::string>& memo, const std::string& number);

    Context& ctx_;
    Dialogs& dialogs_;
    std::string chosenName_ = "QIF";
    std::string account_;
    std::optional<Dictionary> chosen_;    // the chosen delimited layout
    std::optional<std::string> reformat_; // its reformat pattern (ICU), when it has one
};

} // namespace tavvel
