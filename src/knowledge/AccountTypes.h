#pragma once
// Account types: the type words of the account list ("Bank", "CCard", "Port", "Mutual",
// "Oth A" and others as imported), the account editor's type numbers, and which accounts each
// kind of account chooser offers.

#include <string_view>

namespace tavvel {

namespace accounttype {
inline constexpr std::string_view Bank = "Bank";
inline constexpr std::string_view CCard = "CCard";
inline constexpr std::string_view Port = "Port";
inline constexpr std::string_view Mutual = "Mutual";
inline constexpr std::string_view OthA = "Oth A";
} // namespace accounttype

// The editor's numbers: 0 "Bank", 1 "Credit Card", 2 "Investment", 3 "Other".
enum AccountTypeNumber : int {
    kTypeNumberBank,
    kTypeNumberCreditCard,
    kTypeNumberInvestment,
    kTypeNumberOther
};

// The number a stored type shows as: "Port" and "Mutual" are investments, any unknown word
// is "Other".
int typeNumberFor(std::string_view type);
// The type word written when the user changes an account to this number.
std::string_view typeWordFor(int number);
// The title the editor shows for a number.
std::string_view typeTitleFor(int number);

// Chooser kinds: 0 bank, 1 credit card, 2 investment ("Port" only), 3 bank and credit card,
// 4 none.
bool kindOffers(int kind, std::string_view type);

} // namespace tavvel
