#pragma once
// Cutting pasted or read text into lines.

#include <string>
#include <string_view>
#include <vector>

namespace tavvel {

// The lines of the text without their line ends, by whichever of CR LF, CR or LF the text
// uses. A text that mixes CR LF with bare LF is cut at LF and loses every CR, even one inside
// a line. A final empty piece after the last line end is kept.
std::vector<std::string> findLines(std::string_view text);
// The same lines as views into the text, or into `withoutCR` (which it fills) when the text
// mixes CR LF with bare LF: looking at the lines of a large statement then copies nothing.
std::vector<std::string_view> findLineViews(std::string_view text, std::string& withoutCR);

} // namespace tavvel
