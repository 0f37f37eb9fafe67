#include "dialogs/ExistingEntryField.h"

namespace tavvel {

namespace {

// The start of the character before the byte offset.
std::size_t previousCharacter(const std::string& text, std::size_t offset) {
    std::size_t at = offset - 1;
    while (at > 0 && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80)
        --at;
    return at;
}

bool deletesSelectedTail(const FieldEdit& edit) {
    const FieldState& before = edit.original;
    return before.selection.length > 0 && before.selection.end() == before.text.size() &&
           edit.proposed.text == before.text.substr(0, before.selection.start);
}

} // namespace

FieldOutcome editExistingEntry(const FieldEdit& edit, const Completer& complete) {
    if (kindOf(edit) == EditKind::DeletedAtEnd && deletesSelectedTail(edit)) {
        const FieldState& before = edit.original;
        if (before.selection.start == 0)
            return refuse(edit);
        std::size_t from = previousCharacter(before.text, before.selection.start);
        return {true, {before.text, {from, before.text.size() - from}}};
    }
    std::optional<Completion> completion = complete(edit.proposed.text);
    if (!completion)
        return refuse(edit);
    const std::string& typed = edit.proposed.text;
    std::string shown = typed + completion->text.substr(completion->typedLength);
    return showCompleted(std::move(shown), typed.size());
}

} // namespace tavvel
