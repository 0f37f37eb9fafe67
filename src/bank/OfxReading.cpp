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
#include "bank/DateTexts.h"
#include "bank/OfxStatements.h"
#include "bank/OfxValues.h"
#include "bank/StatementReaders.h"
#include "context/Context.h"
#include "formats/TransactionKeys.h"
#include "prefs/Settings.h"
#include "recognize/CalendarDate.h"

namespace tavvel {

namespace {

constexpr std::string_view kTransactionTag = "<STMTTRN>";

// Records are large next to what they point at: the list is sized once rather than grown by
// moving them.
std::size_t countOf(std::string_view text, std::string_view tag) {
    std::size_t count = 0;
    for (std::size_t at = text.find(tag); at != std::string_view::npos;
         at = text.find(tag, at + tag.size()))
        ++count;
    return count;
}

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

void addNumber(std::string_view piece, OfxNumbering numbering, bool utf8,
               TransactionRecord& record) {
    if (numbering == OfxNumbering::none)
        return;
    if (addOfxField(TxField::number, "<REFNUM>", piece, record, utf8) ||
        numbering == OfxNumbering::reference)
        return;
    addOfxField(TxField::number, "<CHECKNUM>", piece, record, utf8);
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

bool addOfxField(TxField field, std::string_view ofxLabel, std::string_view transaction,
                 TransactionRecord& record, bool utf8) {
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
        record.point(field, transaction.substr(at, end - at));
        return true;
    }
    std::size_t end = transaction.find_first_of(std::string_view("\0\n\r<", 4), at);
    if (end == std::string_view::npos)
        end = transaction.size();
    std::string_view value = transaction.substr(at, end - at);
    if (value.find('&') == std::string_view::npos)
        record.point(field, value);
    else
        record.set(field, ofxText(value, utf8));
    return true;
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

namespace {

std::optional<TransactionRecord> readOfxTransaction(std::string_view piece, OfxNumbering numbering,
                                                    bool utf8, Date fromDate, Date toDate,
                                                    const Context& ctx, DateTexts& dates) {
    auto posted = postedDate(piece);
    if (!posted)
        return TransactionRecord::error(text::ofxNoDate, piece);
    Date date = localMidnight(*posted);
    if (date < fromDate || date > toDate)
        return std::nullopt;
    TransactionRecord record;
    record.point(TxField::date, dates.of(date));
    addNumber(piece, numbering, utf8, record);
    addOfxField(TxField::memo, "<MEMO>", piece, record, utf8);
    addOfxField(TxField::fitid, "<FITID>", piece, record, utf8);
    if (!addOfxField(TxField::description, "<NAME>", piece, record, utf8))
        record.point(TxField::description, "");
    if (!addOfxField(TxField::amount, "<TRNAMT>", piece, record))
        return TransactionRecord::error(text::ofxNoAmount, piece);
    auto amount = ofxAmount(record.text(TxField::amount));
    if (!amount)
        return TransactionRecord::error(text::ofxAmountNotNumber, piece);
    if (*amount != record.text(TxField::amount))
        record.set(TxField::amount, *amount);
    if (!optionOn(ctx.prefs, option::useOFXTRNTYPE))
        return record;
    if (!addOfxField(TxField::trntype, "<TRNTYPE>", piece, record, utf8))
        return TransactionRecord::error(text::ofxNoType, piece);
    // A debit is signed whatever its own sign: an amount already negative gets a second minus.
    if (record.text(TxField::trntype) == "DEBIT")
        record.set(TxField::amount, "-" + std::string(record.text(TxField::amount)));
    return record;
}

} // namespace

std::vector<TransactionRecord> readOfxStatement(std::string_view text, Date fromDate, Date toDate,
                                                const std::optional<std::string>& account,
                                                const Context& ctx, TextArena& texts) {
    std::vector<TransactionRecord> records;
    records.reserve(countOf(text, kTransactionTag));
    OfxFile file(text);
    DateTexts dates(texts, ctx.output.longDatePattern());
    std::size_t at = text.find(kTransactionTag);
    while (at != std::string_view::npos) {
        std::size_t begin = at + kTransactionTag.size();
        std::size_t next = text.find(kTransactionTag, begin);
        std::string_view piece =
            text.substr(begin, (next == std::string_view::npos ? text.size() : next) - begin);
        const OfxStatement* statement = file.statementAt(at);
        at = next;
        // Another account's transactions are left for a run of their own.
        if (account && (!statement || statement->account != *account))
            continue;
        if (next == std::string_view::npos && cutOff(text, piece))
            records.push_back(TransactionRecord::error(text::ofxCutOff, piece));
        else if (auto record = readOfxTransaction(piece, file.numberingOf(statement), file.utf8,
                                                  fromDate, toDate, ctx, dates))
            records.push_back(std::move(*record));
    }
    return records;
}

void BankingCreditCardQIF::fromOFX(std::string_view text, Date fromDate, Date toDate) {
    texts_.clear();
    start(readOfxStatement(text, fromDate, toDate, ofxAccount_, ctx_, texts_));
}

} // namespace tavvel
