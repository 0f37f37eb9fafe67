#pragma once
// The words of a payee text that say who was paid: upper case, numbers, store numbers and
// card-processor prefixes ("SQ *", "POS ", "TST*") left out, so that "SQ *BLUE BOTTLE #0412"
// and "BLUE BOTTLE 0977" give the same words.

#include <string>
#include <string_view>
#include <vector>

namespace tavvel {

// In the order of the text, each once.
std::vector<std::string> descriptionWords(std::string_view description);

// The leading words the two texts share, in the first text's spelling ("GROCERY OUTLET" for
// "GROCERY OUTLET #0977" and "Grocery Outlet #0412"), with what stood before the first of them
// (a card prefix) left out; empty when the first words differ.
std::string sharedStem(std::string_view description, std::string_view known);

} // namespace tavvel
