#pragma once
// The knowledge base as plain text, one entry a line with tab-separated fields, for the
// terminal front end's listings.

#include "prefs/TvPrefs.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavvel {

// The lists that can be listed: instructions, descriptions, categories, accounts,
// securities, formats.
const std::vector<std::string_view>& knowledgeLists();

// The list's lines: instructions as match text, "description" or "category" (what is
// matched) and category; accounts as name and type; securities as name and symbol; formats,
// descriptions and categories by name. Nothing for an unknown list.
std::optional<std::string> listKnowledge(const TvPrefs& prefs, std::string_view which);

} // namespace tavvel
