#pragma once
// The field in which the user edits the match text of a new instruction
// (`TvDescriptionMatchFormatter`). In shorten-only mode the user may only cut characters off
// the end (and change their letter case): the field never becomes empty and its other
// characters never change, as "(You can shorten the string above for future matches)"
// promises.

#include <optional>
#include <string>
#include <string_view>

namespace tavvel {

class TvDescriptionMatchFormatter {
public:
    // shortenOnly: — with a text, shorten-only mode on that text; with nothing, mode off.
    void shortenOnly(std::optional<std::string> mustMatch);
    bool isShortenOnly() const { return shortenOnly_; }

    // The edit check on every keystroke: whether the proposed field text is accepted.
    bool isPartialStringValid(std::string_view proposed) const;

private:
    bool shortenOnly_ = false;
    std::string mustMatch_;
};

} // namespace tavvel
