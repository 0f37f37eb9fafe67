#include "forms/CategoryWarning.h"

#include "forms/InstructionFormTexts.h"
#include "knowledge/Categories.h"

namespace tavvel {

std::string_view categoryWarning(std::string_view category, const Categories& categories) {
    if (!Categories::acceptable(category))
        return text::categoryColonWarning;
    if (!category.empty() && categories.indexOfCategory(category) < 0)
        return text::newCategoryWarning;
    return {};
}

} // namespace tavvel
