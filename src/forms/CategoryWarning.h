#pragma once
// The warning under every category field and split category cell of the forms: an
// unfinished subcategory level (a trailing ":") before a category the list does not know yet.
// Neither refuses the text; registering a new category asks later, when the form is saved.

#include <string_view>

namespace tavvel {

class Categories;

// "" when the text needs no warning.
std::string_view categoryWarning(std::string_view category, const Categories& categories);

} // namespace tavvel
