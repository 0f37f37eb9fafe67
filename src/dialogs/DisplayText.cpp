#include "dialogs/DisplayText.h"

namespace tavvel {

std::string displayText(std::string_view bytes) {
    if (isValidUtf8(bytes))
        return std::string(bytes);
    return windows1252ToUtf8(bytes);
}

} // namespace tavvel
