#pragma once
// The investment actions (`TvQuickenTypes` of the configuration) and the type mappings an
// input format learns under `TypeMappings`: from the statement's words for a kind of
// transaction to an action code.

#include "prefs/Configuration.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavvel {

namespace investkey {
inline constexpr std::string_view QuickenName = "QuickenName";
inline constexpr std::string_view DisplayName = "DisplayName";
inline constexpr std::string_view AmountRequired = "AmountRequired";
inline constexpr std::string_view SharesRequired = "SharesRequired";
inline constexpr std::string_view PriceRequired = "PriceRequired";
inline constexpr std::string_view PriceAllowed = "PriceAllowed";
inline constexpr std::string_view SecurityRequired = "SecurityRequired";
inline constexpr std::string_view TypeMappings = "TypeMappings";
inline constexpr std::string_view formatType = "formatType";
inline constexpr std::string_view quickenType = "quickenType";
inline constexpr std::string_view assumedSecurity = "assumedSecurity";
inline constexpr std::string_view AssumedSecurity = "AssumedSecurity";
} // namespace investkey

// Codes the logic relies on.
namespace actioncode {
inline constexpr std::int64_t firstCash = 19;    // from here on: cash actions
inline constexpr std::int64_t checkCash = 22;    // the cash action with a check number
inline constexpr std::int64_t buyOrSell = 23;    // 1 when the amount is negative, else 0
inline constexpr std::int64_t inOrOut = 24;      // 5 when the amount is negative, else 4
inline constexpr std::int64_t alwaysSkip = 100;  // dropped without asking
inline constexpr std::int64_t assumeDollar = 64; // flag: a price of 1.00 is assumed
inline constexpr std::int64_t none = std::numeric_limits<std::int64_t>::max();
} // namespace actioncode

struct QuickenType {
    std::string quickenName;
    std::string displayName;
    bool amountRequired = false;
    bool sharesRequired = false;
    bool priceRequired = false;
    bool priceAllowed = false;
    bool securityRequired = false;
};

// Codes 23 and 24 made the action the amount's sign says; other codes as they are.
std::int64_t bySign(std::int64_t code, bool negative);

// The action table in the order of its codes.
std::vector<QuickenType> quickenTypes(const Configuration& config);

// What the longest matching mapping gives a type (getQuickenTypeAndAssumedSecurityFromFormatType:).
struct TypeLookup {
    std::int64_t quickenType = actioncode::none;
    std::int64_t quickenTypeIndex = -1;
    std::string assumedSecurity;
};

// The longest case-insensitive prefix of the type among the mappings, the earlier of equal
// lengths; an empty mapping matches only an empty type. Codes 23 and 24 go by the sign.
TypeLookup lookUpType(const Array& mappings, std::string_view type, bool amountWasNegative);

// addType:withQuickenType:withAssumedSecurity: on a format's mappings: drops the mapping the
// lookup matched (when one did), then appends the new one, its type cut after its last
// character that is not white space.
void addType(Dictionary& format, std::string_view type, std::int64_t code,
             std::int64_t matchedIndex, std::string_view assumedSecurity);

} // namespace tavvel
