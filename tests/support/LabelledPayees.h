#pragma once
// A labelled set of card and bank payees, made from a fixed seed, for measuring category
// suggestions: merchants of many categories written the way statements write them (store
// numbers, card-processor prefixes, city and state, case, descriptions cut short at 22
// characters), with merchants that share a word across categories ("SHELL OIL" fuel,
// "SHELLFISH HOUSE" dining; "AMAZON MKTPLACE" shopping, "AMAZON PRIME VIDEO" entertainment).

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tavvel::test {

struct LabelledPayee {
    std::string description;
    std::string category;
};

std::vector<LabelledPayee> labelledPayees(std::size_t count, std::uint32_t seed = 20261125);

} // namespace tavvel::test
