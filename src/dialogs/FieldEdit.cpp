#include "dialogs/FieldEdit.h"

namespace tavvel {

namespace {

bool startsWith(const std::string& text, const std::string& prefix) {
    return text.size() >= prefix.size() && text.compare(0, prefix.size(), prefix) == 0;
}

bool cursorAtEnd(const FieldState& field) {
    return field.selection.length == 0 && field.selection.start == field.text.size();
}

} // namespace

EditKind kindOf(const FieldEdit& edit) {
    const FieldState& before = edit.original;
    const FieldState& after = edit.proposed;
    if (!cursorAtEnd(after))
        return EditKind::Other;
    bool selectionRanToEnd = before.selection.end() >= before.text.size();
    std::string kept = before.text.substr(0, before.selection.start);
    if (selectionRanToEnd && after.text.size() > kept.size() && startsWith(after.text, kept))
        return EditKind::AddedAtEnd;
    if (after.text.size() < before.text.size() && startsWith(before.text, after.text))
        return EditKind::DeletedAtEnd;
    return EditKind::Other;
}

FieldOutcome acceptAsProposed(const FieldEdit& edit) {
    return {true, edit.proposed};
}

FieldOutcome refuse(const FieldEdit& edit) {
    return {false, edit.original};
}

FieldOutcome showCompleted(std::string text, std::size_t typedLength) {
    std::size_t length = text.size() > typedLength ? text.size() - typedLength : 0;
    return {true, {std::move(text), {typedLength, length}}};
}

} // namespace tavvel
