#include "dialogs/TypeAheadField.h"

#include "recognize/CaseFold.h"

namespace tavvel {

FieldOutcome TypeAheadField::edit(const FieldEdit& edit) {
    switch (kindOf(edit)) {
    case EditKind::AddedAtEnd:
        return typedAtEnd(edit);
    case EditKind::DeletedAtEnd:
        deletedAtEnd(edit);
        return acceptAsProposed(edit);
    case EditKind::Other:
        break;
    }
    tracked_.reset();
    return acceptAsProposed(edit);
}

FieldOutcome TypeAheadField::typedAtEnd(const FieldEdit& edit) {
    const std::string& proposal = edit.proposed.text;
    std::size_t typingAt = edit.original.selection.start;
    if (tracked_ && equalIgnoringCase(edit.original.text.substr(0, typingAt), *tracked_))
        *tracked_ += proposal.substr(typingAt);
    else
        tracked_ = proposal;
    if (auto completion = complete_(proposal))
        return showCompleted(completion->text, completion->typedLength);
    if (tracked_)
        return {true, {*tracked_, {tracked_->size(), 0}}};
    return acceptAsProposed(edit);
}

void TypeAheadField::deletedAtEnd(const FieldEdit& edit) {
    if (tracked_ && tracked_->size() > edit.proposed.text.size())
        tracked_->pop_back();
    else
        tracked_.reset();
}

} // namespace tavvel
