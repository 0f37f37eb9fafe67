#include "app/OfxAccountChoice.h"

#include "app/AppTexts.h"
#include "bank/OfxStatements.h"
#include "context/Context.h"
#include "dialogs/MessageFormat.h"

#include <algorithm>

namespace tavvel {

namespace {

int kindOf(OfxStatement::Kind kind) {
    switch (kind) {
    case OfxStatement::Kind::bank:
        return kTypeBank;
    case OfxStatement::Kind::card:
        return kTypeCreditCard;
    case OfxStatement::Kind::investment:
        return kTypeInvestment;
    }
    return kTypeBank;
}

} // namespace

std::vector<std::string> ofxAccountsToChooseFrom(std::string_view text) {
    std::vector<std::string> accounts = ofxAccounts(ofxStatements(text));
    if (accounts.size() < 2)
        accounts.clear();
    return accounts;
}

std::optional<int> ofxKindOfAccount(std::string_view text, std::string_view account) {
    for (const OfxStatement& statement : ofxStatements(text))
        if (statement.account == account)
            return kindOf(statement.kind);
    return std::nullopt;
}

bool ofxKindsDiffer(std::string_view text) {
    std::vector<OfxStatement> statements = ofxStatements(text);
    return std::any_of(statements.begin(), statements.end(),
                       [&](const OfxStatement& s) { return s.kind != statements.front().kind; });
}

std::string ofxAccountsRefusal(std::string_view source, const std::vector<std::string>& accounts) {
    std::string named;
    for (const std::string& account : accounts)
        named += (named.empty() ? "" : ", ") + account;
    return formatMessage(text::multipleAccounts, source) +
           formatMessage(text::ofxAccountsFound, named);
}

} // namespace tavvel
