#pragma once
// Statement bytes decoded for display: UTF-8 when they are valid UTF-8, otherwise
// Windows-1252, the encoding of most 8-bit statements. The bytes themselves are never changed.

#include "prefs/Utf8Text.h"

#include <string>
#include <string_view>

namespace tavvel {

std::string displayText(std::string_view bytes);

} // namespace tavvel
