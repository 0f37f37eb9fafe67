#include "dialogs/DisplayText.h"

namespace tavvel {

std::string displayText(std::string_view bytes) {
    return asUtf8(bytes);
}

} // namespace tavvel
