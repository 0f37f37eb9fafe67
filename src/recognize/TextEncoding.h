#pragma once
// Text in the encodings statements are saved in, rewritten as UTF-8, the one form the program
// keeps text in.

#include "prefs/Utf8Text.h"

#include <string>
#include <string_view>

namespace tavvel {

// UTF-16 code units in the given byte order, without a byte-order mark. A lone surrogate
// becomes the replacement character; an odd last byte is dropped.
std::string utf16ToUtf8(std::string_view units, bool bigEndian);

} // namespace tavvel
