#include "knowledge/AccountTypes.h"

#include "knowledge/KnowledgeTexts.h"

namespace tavvel {

int typeNumberFor(std::string_view type) {
    if (type == accounttype::Bank)
        return kTypeNumberBank;
    if (type == accounttype::CCard)
        return kTypeNumberCreditCard;
    if (type == accounttype::Port || type == accounttype::Mutual)
        return kTypeNumberInvestment;
    return kTypeNumberOther;
}

std::string_view typeWordFor(int number) {
    switch (number) {
    case kTypeNumberBank:
        return accounttype::Bank;
    case kTypeNumberCreditCard:
        return accounttype::CCard;
    case kTypeNumberInvestment:
        return accounttype::Port;
    default:
        return accounttype::OthA;
    }
}

std::string_view typeTitleFor(int number) {
    switch (number) {
    case kTypeNumberBank:
        return text::accountTypeBank;
    case kTypeNumberCreditCard:
        return text::accountTypeCreditCard;
    case kTypeNumberInvestment:
        return text::accountTypeInvestment;
    default:
        return text::accountTypeOther;
    }
}

bool kindOffers(int kind, std::string_view type) {
    switch (kind) {
    case 0:
        return type == accounttype::Bank;
    case 1:
        return type == accounttype::CCard;
    case 2:
        return type == accounttype::Port;
    case 3:
        return type == accounttype::Bank || type == accounttype::CCard;
    default:
        return false;
    }
}

} // namespace tavvel
