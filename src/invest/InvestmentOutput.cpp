// Writing an investment transaction: QIF lines in the order the finance program reads them
// (D, N, M, Y, then Q, I, O for actions that take shares, T, C), a cash action as a bank
// transaction inside the investment account, or the user's delimited layout.

#include "formats/OutputFormats.h"
#include "invest/InvestmentWorking.h"

namespace tavvel {

namespace {

std::string withoutFirstMinus(std::string text) {
    if (std::size_t minus = text.find('-'); minus != std::string::npos)
        text.erase(minus, 1);
    return text;
}

bool pricesWritten(const InvestmentQIF::Working& w) {
    return w.record.price != 0 && (w.action.priceAllowed || w.action.priceRequired);
}

} // namespace

void InvestmentQIF::write(const Working& working) {
    outputLength_[index_] = output_->size();
    if (!writer_.QIFOutput())
        writeDelimited(working);
    else if (working.cash())
        writeCashQIF(working);
    else
        writeQIF(working);
    ++result_.appended;
}

void InvestmentQIF::writeQIF(const Working& w) {
    std::string& out = *output_;
    out += "D" + w.date + "\nN" + w.action.quickenName + "\nM" + w.memoField() + "\n";
    if (w.action.securityRequired)
        out += "Y" + w.quickenSecurity + "\n";
    // Price and fees go with shares only: the finance program reads them as a trade's.
    if (w.action.sharesRequired) {
        out += "Q" + w.sharesString + "\n";
        if (pricesWritten(w))
            out += "I" + w.priceString + "\n";
        if (!w.feesString.empty())
            out += "O" + withoutFirstMinus(w.feesString) + "\n";
    }
    // No sign: the action carries the direction.
    if (w.action.amountRequired)
        out += "T" + w.amountString + "\n";
    if (options_.markAsCleared)
        out += "C*\n";
    out += "^\n";
}

void InvestmentQIF::writeCashQIF(const Working& w) {
    std::string& out = *output_;
    out += "!InvstBnk\nN" + w.action.quickenName + "\nD" + w.date + "\nP" +
           (w.record.description.empty() ? w.record.type : w.record.description) + "\nM" +
           w.record.memo + "\nT" + w.amountString + "\nL\n";
    std::string number = !options_.outputNumber.empty()    ? options_.outputNumber
                         : w.code == actioncode::checkCash ? w.record.check
                                                           : std::string();
    if (!number.empty())
        out += "N" + number + "\n";
    if (options_.markAsCleared)
        out += "C*\n";
    out += "^\n!Type:Invst\n";
}

void InvestmentQIF::writeDelimited(const Working& w) {
    std::string sign = w.record.amountWasNegative ? "-" : "";
    InvestmentOutput out;
    out.type = w.action.quickenName;
    out.date = w.date;
    out.category = std::string();
    out.number = w.code == actioncode::checkCash ? w.record.check : std::string();
    if (w.cash()) {
        out.description = w.record.description;
        out.memo = w.record.memo;
        out.amount = sign + w.amountString;
        out.shares = out.security = out.price = out.fees = std::string();
        writer_.produceInvestmentOutput(*output_, out);
        return;
    }
    out.description = std::string();
    out.memo = w.memoField();
    out.amount = w.action.amountRequired ? sign + w.amountString : std::string();
    out.shares = w.action.sharesRequired ? (w.record.sharesWereNegative ? "-" : "") + w.sharesString
                                         : std::string();
    out.security = w.action.securityRequired ? w.quickenSecurity : std::string();
    out.price = pricesWritten(w) ? "I" + w.priceString : std::string();
    out.fees = w.feesString.empty() ? std::string() : "I" + w.feesString;
    writer_.produceInvestmentOutput(*output_, out);
}

} // namespace tavvel
