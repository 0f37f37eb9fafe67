#include "knowledge/Amounts.h"

#include "knowledge/KnowledgeKeys.h"
#include "knowledge/StoredList.h"

namespace tavvel {

namespace {

std::string_view amountOf(const Value& entry) {
    return textViewIn(entry, akey::amount);
}

const Array* amountsOf(const Dictionary& instruction) {
    const Value* amounts = find(instruction, ikey::amounts);
    return amounts ? amounts->get<Array>() : nullptr;
}

std::optional<std::size_t> positionOf(const Array& amounts, std::string_view amount) {
    for (std::size_t i = 0; i < amounts.size(); ++i)
        if (const std::string* stored = textIn(amounts[i], akey::amount);
            stored && *stored == amount)
            return i;
    return std::nullopt;
}

} // namespace

const Dictionary* Amounts::amountMatching(std::string_view amount, const Dictionary& instruction) {
    const Array* amounts = amountsOf(instruction);
    if (!amounts)
        return nullptr;
    auto at = positionOf(*amounts, amount);
    return at ? &(*amounts)[*at].dictionary() : nullptr;
}

void Amounts::setAmount(const Dictionary& amountInstruction, Dictionary& instruction) {
    Value* stored = find(instruction, ikey::amounts);
    if (!stored || !stored->isArray()) {
        instruction.insert_or_assign(std::string(ikey::amounts),
                                     Value(Array{Value(amountInstruction)}));
        return;
    }
    Array& amounts = *stored->get<Array>();
    auto at = positionOf(amounts, textOf(amountInstruction, akey::amount));
    if (at)
        amounts[*at] = Value(amountInstruction);
    else
        amounts.emplace_back(amountInstruction);
}

void Amounts::deleteAmount(std::string_view amount, Dictionary& instruction) {
    Value* stored = find(instruction, ikey::amounts);
    Array* amounts = stored ? stored->get<Array>() : nullptr;
    if (!amounts)
        return;
    auto at = positionOf(*amounts, amount);
    if (!at)
        return;
    if (amounts->size() == 1) {
        instruction.erase(instruction.find(ikey::amounts));
        return;
    }
    amounts->erase(amounts->begin() + static_cast<std::ptrdiff_t>(*at));
}

void Amounts::initializeComboBoxForInstruction(const Dictionary& instruction) {
    const Array* amounts = amountsOf(instruction);
    amounts_ = amounts ? *amounts : Array{};
}

std::string Amounts::itemAtIndex(std::int64_t position) const {
    if (position < 0 || static_cast<std::size_t>(position) >= amounts_.size())
        return {};
    return std::string(amountOf(amounts_[static_cast<std::size_t>(position)]));
}

std::optional<std::size_t> Amounts::indexOfItemWithStringValue(std::string_view amount) const {
    return positionOf(amounts_, amount);
}

std::optional<Completion> Amounts::completedString(std::string_view typed) const {
    auto textAt = [&](std::size_t i) { return amountOf(amounts_[i]); };
    return shortestCompletion(amounts_.size(), textAt, typed);
}

} // namespace tavvel
