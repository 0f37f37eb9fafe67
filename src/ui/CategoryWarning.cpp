#include "ui/CategoryWarning.h"

#include "knowledge/Categories.h"
#include "ui/InstructionFormTexts.h"

namespace tavvel {

std::string_view categoryWarning(std::string_view category, const Categories& categories) {
    if (!Categories::acceptable(category))
        return text::categoryColonWarning;
    if (!category.empty() && categories.indexOfCategory(category) < 0)
        return text::newCategoryWarning;
    return {};
}

} // namespace tavvel
