#include "bank/OfxStatements.h"

#include "recognize/ByteClass.h"

#include <algorithm>
#include <array>

namespace tavvel {

namespace {

struct Opening {
    std::string_view tag;
    OfxStatement::Kind kind;
};

constexpr std::array<Opening, 3> kOpenings{{{"<STMTRS>", OfxStatement::Kind::bank},
                                            {"<CCSTMTRS>", OfxStatement::Kind::card},
                                            {"<INVSTMTRS>", OfxStatement::Kind::investment}}};

// The <ACCTID> between `from` and `to`: up to white space or "<".
std::string accountBetween(std::string_view text, std::size_t from, std::size_t to) {
    constexpr std::string_view tag = "<ACCTID>";
    std::size_t at = text.substr(0, to).find(tag, from);
    if (at == std::string_view::npos)
        return "";
    at += tag.size();
    while (at < to && isSpaceByte(text[at]))
        ++at;
    std::size_t end = at;
    while (end < to && !isSpaceByte(text[end]) && text[end] != '<')
        ++end;
    return std::string(text.substr(at, end - at));
}

} // namespace

std::vector<OfxStatement> ofxStatements(std::string_view text) {
    std::vector<OfxStatement> statements;
    for (const Opening& opening : kOpenings)
        for (std::size_t at = text.find(opening.tag); at != std::string_view::npos;
             at = text.find(opening.tag, at + opening.tag.size()))
            statements.push_back({opening.kind, at, ""});
    std::sort(statements.begin(), statements.end(),
              [](const OfxStatement& a, const OfxStatement& b) { return a.begin < b.begin; });
    for (std::size_t i = 0; i < statements.size(); ++i) {
        std::size_t end = i + 1 < statements.size() ? statements[i + 1].begin : text.size();
        statements[i].account = accountBetween(text, statements[i].begin, end);
    }
    return statements;
}

std::vector<std::string> ofxAccounts(const std::vector<OfxStatement>& statements) {
    std::vector<std::string> accounts;
    for (const OfxStatement& statement : statements)
        if (!statement.account.empty() &&
            std::find(accounts.begin(), accounts.end(), statement.account) == accounts.end())
            accounts.push_back(statement.account);
    return accounts;
}

} // namespace tavvel
