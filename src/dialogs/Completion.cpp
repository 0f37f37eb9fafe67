#include "dialogs/Completion.h"

namespace tavvel {

Completion completionTo(std::string_view entry, std::string_view typed) {
    return Completion{std::string(entry), prefixIgnoringCase(entry, typed).value_or(0)};
}

} // namespace tavvel
