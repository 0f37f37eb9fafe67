#pragma once
// The values of OFX tags as the statement means them. SGML and XML statements escape "&", "<"
// and ">" as entities and may wrap text in CDATA; amounts are written with a decimal point or,
// by European banks, a decimal comma.

#include <optional>
#include <string>
#include <string_view>

namespace tavvel {

// Whether the statement's header declares UTF-8 (an XML statement without a declaration is
// UTF-8 too); numeric entities are then written as UTF-8, otherwise as one byte when they fit.
bool ofxDeclaresUtf8(std::string_view text);

// The text of a value with &amp; &lt; &gt; &quot; &apos; and &#N; &#xN; decoded. An "&" that
// begins no entity stays as it is, as does an entity the statement's encoding cannot hold.
std::string ofxText(std::string_view value, bool utf8);

// The amount with a decimal point: blanks around it dropped, a decimal comma made a point,
// grouping marks between groups of three digits dropped ("-1.234,50" gives "-1234.50").
// Nothing when the value does not read as a number.
std::optional<std::string> ofxAmount(std::string_view value);

} // namespace tavvel
