#pragma once
// Amount instructions (`Amounts`): within an instruction, other treatment for particular
// amounts, kept under `amounts` in the order they were learned and compared as exact text
// ("12.50" and "12.5" are different amounts). These operations change the instruction given
// and write nothing; the caller stores the instruction afterwards (Instructions::setInstruction).

#include "dialogs/Completion.h"
#include "prefs/Value.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tavvel {

class Amounts {
public:
    // amountMatching:forInstruction: — the first amount instruction whose `amount` equals the
    // text exactly; null when there is none. Points into the instruction.
    static const Dictionary* amountMatching(std::string_view amount, const Dictionary& instruction);
    // setAmount:forInstruction: — replaces the first entry with the same amount or appends.
    static void setAmount(const Dictionary& amountInstruction, Dictionary& instruction);
    // deleteAmount:forInstruction: — removes the first entry with that amount; the `amounts`
    // key goes with the last entry rather than staying as an empty list.
    static void deleteAmount(std::string_view amount, Dictionary& instruction);

    // The amount chooser over the instruction being edited.
    void initializeComboBoxForInstruction(const Dictionary& instruction);
    const Array& amounts() const { return amounts_; }
    std::size_t numberOfItems() const { return amounts_.size(); }
    std::string itemAtIndex(std::int64_t position) const;
    std::optional<std::size_t> indexOfItemWithStringValue(std::string_view amount) const;
    std::optional<Completion> completedString(std::string_view typed) const;

private:
    Array amounts_;
};

} // namespace tavvel
