// OFX and QFX reading. The statement is not parsed as a tree: it is cut at every <STMTTRN>
// and a handful of tags are pulled out of each piece by plain search, which reads the SGML
// form (no end tags) and the XML form alike.
//
// Stages, in order: find the statements (OfxStatements.h) and the text encoding; cut into
// pieces; per piece: cut off by the end of the file, posting date and range, number (by the
// kind of statement the piece stands in), memo, name, amount (read as a number), type. Values
// are decoded from their entities and CDATA (OfxValues.h).

#include "bank/BankTexts.h"
#include "bank/BankingCreditCardQIF.h"
#include "bank/OfxStatements.h"
#include "bank/OfxValues.h"
#include "context/Context.h"
#include "formats/TransactionKeys.h"
#include "prefs/Settings.h"
#include "recognize/CalendarDate.h"

namespace tavvel {

namespace {

constexpr std::string_view kTransactionTag = "<STMTTRN>";

bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}
bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// Up to `most` digits at `at`; nothing when there is none.
std::optional<int> readDigits(std::string_view text, std::size_t& at, std::size_t most) {
    std::size_t begin = at;
    int value = 0;
    while (at < text.size() && at - begin < most && isDigit(text[at]))
        value = value * 10 + (text[at++] - '0');
    if (at == begin)
        return std::nullopt;
    return value;
}

// The year, month and day that open a <DTPOSTED> value ("20240131120000[-5:EST]"): numbers of
// at most 4, 2 and 2 digits, white space allowed before the year only.
std::optional<CalendarDate> postedDate(std::string_view piece) {
    constexpr std::string_view tag = "<DTPOSTED>";
    std::size_t at = piece.find(tag);
    if (at == std::string_view::npos)
        return std::nullopt;
    at += tag.size();
    while (at < piece.size() && isSpace(piece[at]))
        ++at;
    auto year = readDigits(piece, at, 4);
    auto month = year ? readDigits(piece, at, 2) : std::nullopt;
    auto day = month ? readDigits(piece, at, 2) : std::nullopt;
    if (!day)
        return std::nullopt;
    return CalendarDate{*year, *month, *day};
}

Dictionary errorRecord(std::string_view message, std::string_view piece) {
    return Dictionary{{std::string(txkey::errorMessage), Value(message)},
                      {std::string(txkey::errorText), Value(piece)}};
}

// Credit-card statements number their transactions by reference only; bank statements prefer
// the reference to the check number, which is how it has always been read.
OfxNumbering numberingOf(OfxStatement::Kind kind) {
    return kind == OfxStatement::Kind::card ? OfxNumbering::reference
                                            : OfxNumbering::referenceOrCheck;
}

// A transaction outside any bank or card statement (a fragment, or the bank transactions of an
// investment statement) goes by the words of the whole file.
OfxNumbering wholeFileOfxNumbering(std::string_view text) {
    if (text.find("CREDITCARDMSG") != std::string_view::npos)
        return OfxNumbering::reference;
    if (text.find("BANKMSG") != std::string_view::npos)
        return OfxNumbering::referenceOrCheck;
    return OfxNumbering::none;
}

void addNumber(std::string_view piece, OfxNumbering numbering, bool utf8, Dictionary& record) {
    if (numbering == OfxNumbering::none)
        return;
    if (BankingCreditCardQIF::addField(txkey::number, "<REFNUM>", piece, record, utf8) ||
        numbering == OfxNumbering::reference)
        return;
    BankingCreditCardQIF::addField(txkey::number, "<CHECKNUM>", piece, record, utf8);
}

// The last transaction of a statement that stops inside it: the file opened an OFX document,
// and no end tag of the transaction, its list or the document follows.
bool cutOff(std::string_view text, std::string_view lastPiece) {
    if (text.find("<OFX>") == std::string_view::npos)
        return false;
    for (std::string_view end : {"</STMTTRN>", "</BANKTRANLIST>", "</OFX>"})
        if (lastPiece.find(end) != std::string_view::npos)
            return false;
    return true;
}

} // namespace

bool BankingCreditCardQIF::addField(std::string_view key, std::string_view ofxLabel,
                                    std::string_view transaction, Dictionary& record, bool utf8) {
    constexpr std::string_view cdata = "<![CDATA[";
    std::size_t at = transaction.find(ofxLabel);
    if (at == std::string_view::npos)
        return false;
    at += ofxLabel.size();
    while (at < transaction.size() && isSpace(transaction[at]))
        ++at;
    // CDATA holds its text as it is, "<" and "&" included, up to "]]>".
    if (transaction.substr(at, cdata.size()) == cdata) {
        std::size_t end = transaction.find("]]>", at += cdata.size());
        end = end == std::string_view::npos ? transaction.size() : end;
        record.insert_or_assign(std::string(key), Value(transaction.substr(at, end - at)));
        return true;
    }
    std::size_t end = transaction.find_first_of(std::string_view("\0\n\r<", 4), at);
    if (end == std::string_view::npos)
        end = transaction.size();
    record.insert_or_assign(std::string(key),
                            Value(ofxText(transaction.substr(at, end - at), utf8)));
    return true;
}

void BankingCreditCardQIF::startReading() {
    qif.clear();
    pending_.clear();
    mustConfirm = optionOn(ctx_.prefs, option::confirmAllTransactions);
    doingInvestmentBankingTransaction = false;
    splits.reset();
    splitsOK = true;
}

void BankingCreditCardQIF::finishReading() {
    currentTransactionIndex = 0;
    maxTransactionIndex = qif.size();
}

namespace {

// What every transaction of one file is read with.
struct OfxFile {
    bool utf8 = false;
    std::vector<OfxStatement> statements;
    OfxNumbering outside = OfxNumbering::none;
    std::size_t nextStatement = 0;

    explicit OfxFile(std::string_view text)
        : utf8(ofxDeclaresUtf8(text)), statements(ofxStatements(text)),
          outside(wholeFileOfxNumbering(text)) {}

    // Pieces come in the order of the file, so the statement each stands in is found by
    // walking on from the last one; nothing before the first.
    const OfxStatement* statementAt(std::size_t at) {
        while (nextStatement < statements.size() && statements[nextStatement].begin <= at)
            ++nextStatement;
        return nextStatement == 0 ? nullptr : &statements[nextStatement - 1];
    }

    OfxNumbering numberingOf(const OfxStatement* statement) const {
        if (!statement || statement->kind == OfxStatement::Kind::investment)
            return outside;
        return tavvel::numberingOf(statement->kind);
    }
};

} // namespace

std::optional<Dictionary> BankingCreditCardQIF::readOFXTransaction(std::string_view piece,
                                                                   OfxNumbering numbering,
                                                                   bool utf8, Date fromDate,
                                                                   Date toDate) const {
    auto posted = postedDate(piece);
    if (!posted)
        return errorRecord(text::ofxNoDate, piece);
    Date date = localMidnight(*posted);
    if (date < fromDate || date > toDate)
        return std::nullopt;
    Dictionary record{
        {std::string(txkey::date), Value(formatDate(date, ctx_.output.longDatePattern()))}};
    addNumber(piece, numbering, utf8, record);
    addField(txkey::memo, "<MEMO>", piece, record, utf8);
    addField(txkey::fitid, "<FITID>", piece, record, utf8);
    if (!addField(txkey::description, "<NAME>", piece, record, utf8))
        record.emplace(std::string(txkey::description), Value(""));
    if (!addField(txkey::amount, "<TRNAMT>", piece, record))
        return errorRecord(text::ofxNoAmount, piece);
    auto amount = ofxAmount(textOf(record, txkey::amount));
    if (!amount)
        return errorRecord(text::ofxAmountNotNumber, piece);
    record[std::string(txkey::amount)] = Value(*amount);
    if (!optionOn(ctx_.prefs, option::useOFXTRNTYPE))
        return record;
    if (!addField(txkey::trntype, "<TRNTYPE>", piece, record, utf8))
        return errorRecord(text::ofxNoType, piece);
    // A debit is signed whatever its own sign: an amount already negative gets a second minus.
    if (textOf(record, txkey::trntype) == "DEBIT")
        record[std::string(txkey::amount)] = Value("-" + textOf(record, txkey::amount));
    return record;
}

void BankingCreditCardQIF::fromOFX(std::string_view text, Date fromDate, Date toDate) {
    startReading();
    OfxFile file(text);
    std::size_t at = text.find(kTransactionTag);
    while (at != std::string_view::npos) {
        std::size_t begin = at + kTransactionTag.size();
        std::size_t next = text.find(kTransactionTag, begin);
        std::string_view piece =
            text.substr(begin, (next == std::string_view::npos ? text.size() : next) - begin);
        const OfxStatement* statement = file.statementAt(at);
        at = next;
        // Another account's transactions are left for a run of their own.
        if (ofxAccount && (!statement || statement->account != *ofxAccount))
            continue;
        if (next == std::string_view::npos && cutOff(text, piece))
            qif.push_back(errorRecord(text::ofxCutOff, piece));
        else if (auto record = readOFXTransaction(piece, file.numberingOf(statement), file.utf8,
                                                  fromDate, toDate))
            qif.push_back(std::move(*record));
    }
    finishReading();
}

} // namespace tavvel
