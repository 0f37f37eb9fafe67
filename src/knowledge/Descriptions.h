#pragma once
// The known payee descriptions (`Descriptions`) that feed the description fields: one list in
// ascending case-insensitive order with no exact duplicates. Descriptions that differ only in
// letter case may both stand in it, deliberately.

#include "knowledge/TextList.h"

#include <string>
#include <string_view>
#include <vector>

namespace tavvel {

class Descriptions : public TextList {
public:
    explicit Descriptions(TvPrefs& prefs);

    // addDescription: — inserts a non-empty description before the first entry that sorts
    // after it ignoring case, in the store only (a run saves it when its walk ends); an exact
    // duplicate changes nothing.
    void addDescription(std::string_view description);
    // The same for each text in turn, at the cost of one pass over the list.
    void addDescriptions(const std::vector<std::string>& texts);

    Array getDescriptionsArray() const { return list(); }
    void setDescriptionsArray(Array descriptions) { write(std::move(descriptions)); }

    // Creates the list from what the instructions know: each one's descriptionMatch and
    // newDescription and the amountDescription of each of its amounts, in list order, as
    // if added one by one, and writes it out once.
    void createFromInstructions(const Array& instructions);
};

} // namespace tavvel
