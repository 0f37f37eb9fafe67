#pragma once
// Signs of what kind of statement a text is, for the intake to classify it by.

#include <string_view>

namespace tavvel {

// OFX or QFX: "OFXHEADER" anywhere, or an <OFX> root element (in any case) after no more
// than a byte-order mark, blank space, an XML prolog, processing instructions, comments and
// the "NAME:VALUE" lines of an OFX 1 header. Banks and tools write OFX without the header.
bool looksLikeOfx(std::string_view text);

// A QIF cleared-status line: "C" alone or with one status mark ("*", "c", "X", "R"),
// possibly followed by blanks.
bool isQifClearedLine(std::string_view line);

} // namespace tavvel
