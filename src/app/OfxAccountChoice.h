#pragma once
// An OFX file may hold the statements of several accounts (a bank account and a card, or
// several accounts of one bank). They are never merged into one list: the run form offers
// the accounts by their id, and the run converts the statements of the one chosen.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavvel {

// The accounts of the file, in its order, when it holds more than one; empty otherwise.
std::vector<std::string> ofxAccountsToChooseFrom(std::string_view text);

// The run kind (gType) of the account's first statement; nothing when no statement is for it.
std::optional<int> ofxKindOfAccount(std::string_view text, std::string_view account);

// Whether the statements are of more than one kind (a bank account and a card).
bool ofxKindsDiffer(std::string_view text);

// The refusal of a run whose account is none of the file's, naming them.
std::string ofxAccountsRefusal(std::string_view source, const std::vector<std::string>& accounts);

} // namespace tavvel
