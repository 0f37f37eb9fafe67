#include "invest/QuickenTypes.h"

namespace tavvel {

namespace {

char folded(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool startsWithIgnoringCase(std::string_view text, std::string_view prefix) {
    if (prefix.size() > text.size())
        return false;
    for (std::size_t i = 0; i < prefix.size(); ++i)
        if (folded(text[i]) != folded(prefix[i]))
            return false;
    return true;
}

QuickenType quickenTypeFrom(const Dictionary& entry) {
    auto flag = [&](std::string_view key) { return find(entry, key) != nullptr; };
    return {textOf(entry, investkey::QuickenName), textOf(entry, investkey::DisplayName),
            flag(investkey::AmountRequired),       flag(investkey::SharesRequired),
            flag(investkey::PriceRequired),        flag(investkey::PriceAllowed),
            flag(investkey::SecurityRequired)};
}

} // namespace

std::int64_t bySign(std::int64_t code, bool negative) {
    if (code == actioncode::buyOrSell)
        return negative ? 1 : 0;
    if (code == actioncode::inOrOut)
        return negative ? 5 : 4;
    return code;
}

std::vector<QuickenType> quickenTypes(const Configuration& config) {
    std::vector<QuickenType> types;
    for (const Value& entry : config.array(config::TvQuickenTypes))
        types.push_back(entry.isDictionary() ? quickenTypeFrom(entry.dictionary()) : QuickenType{});
    return types;
}

TypeLookup lookUpType(const Array& mappings, std::string_view type, bool amountWasNegative) {
    TypeLookup found;
    std::size_t longest = 0;
    for (std::size_t i = 0; i < mappings.size(); ++i) {
        if (!mappings[i].isDictionary())
            continue;
        const Dictionary& entry = mappings[i].dictionary();
        std::string formatType = textOf(entry, investkey::formatType);
        if (formatType.empty()) {
            if (type.empty())
                found.quickenTypeIndex = static_cast<std::int64_t>(i);
            if (type.empty())
                break;
            continue;
        }
        if (formatType.size() > longest && startsWithIgnoringCase(type, formatType)) {
            longest = formatType.size();
            found.quickenTypeIndex = static_cast<std::int64_t>(i);
        }
    }
    if (found.quickenTypeIndex < 0)
        return found;
    const Dictionary& entry =
        mappings[static_cast<std::size_t>(found.quickenTypeIndex)].dictionary();
    const Value* code = find(entry, investkey::quickenType);
    found.quickenType = bySign(code ? code->toInteger() : actioncode::none, amountWasNegative);
    found.assumedSecurity = textOf(entry, investkey::assumedSecurity);
    return found;
}

void addType(Dictionary& format, std::string_view type, std::int64_t code,
             std::int64_t matchedIndex, std::string_view assumedSecurity) {
    std::size_t end = type.find_last_not_of(" \t\r\n");
    std::string cut(type.substr(0, end == std::string_view::npos ? 0 : end + 1));
    const Value* stored = find(format, investkey::TypeMappings);
    Array mappings = stored && stored->isArray() ? stored->array() : Array{};
    if (matchedIndex >= 0 && static_cast<std::size_t>(matchedIndex) < mappings.size())
        mappings.erase(mappings.begin() + matchedIndex);
    Dictionary entry{{std::string(investkey::formatType), Value(cut)},
                     {std::string(investkey::quickenType), Value(code)}};
    if (!assumedSecurity.empty())
        entry.emplace(std::string(investkey::assumedSecurity), Value(assumedSecurity));
    mappings.emplace_back(std::move(entry));
    format.insert_or_assign(std::string(investkey::TypeMappings), Value(std::move(mappings)));
}

} // namespace tavvel
