#pragma once
// What a chooser (a combo box: a text field with a list to pick from) holds, as the core sees
// it: the text shown and the list item selected, if any.

#include <cstddef>
#include <optional>
#include <string>

namespace tavvel {

struct ChooserState {
    std::string text;
    std::optional<std::size_t> selectedIndex;
};

} // namespace tavvel
