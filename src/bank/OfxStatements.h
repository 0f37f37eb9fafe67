#pragma once
// The statements of an OFX file. One file may hold several (a bank account and a card, or
// several accounts of one bank), each an <STMTRS>, <CCSTMTRS> or <INVSTMTRS> with the account
// it is for; a run converts one account, so a file is read statement by statement.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tavvel {

struct OfxStatement {
    enum class Kind { bank, card, investment };
    Kind kind = Kind::bank;
    std::size_t begin = 0; // where its opening tag stands
    std::string account;   // its <ACCTID>, "" when it names none
};

// How the numbers of a statement's transactions are read.
enum class OfxNumbering { none, reference, referenceOrCheck };

// Every statement in the order of the file, found in one pass over it.
std::vector<OfxStatement> ofxStatements(std::string_view text);

// The accounts the statements name, each once, in the order of the file.
std::vector<std::string> ofxAccounts(const std::vector<OfxStatement>& statements);

} // namespace tavvel
