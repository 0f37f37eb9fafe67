#pragma once
// One keystroke in a text field, as a front end reports it to a field model: the field before
// and the field the toolkit proposes after it. The model answers with what the field shows:
// the proposal, a changed text and selection (a completion), or the original (refused).
// Positions are byte offsets into the UTF-8 text.

#include <cstddef>
#include <string>

namespace tavvel {

struct TextSelection {
    std::size_t start = 0;
    std::size_t length = 0;
    std::size_t end() const { return start + length; }
    bool operator==(const TextSelection&) const = default;
};

struct FieldState {
    std::string text;
    TextSelection selection; // an empty selection is the insertion point
    bool operator==(const FieldState&) const = default;
};

struct FieldEdit {
    FieldState original;
    FieldState proposed;
};

struct FieldOutcome {
    bool accepted = true;
    FieldState shown;
};

enum class EditKind {
    AddedAtEnd,   // characters typed at the end (over a selection that ran to the end)
    DeletedAtEnd, // characters taken off the end
    Other,
};

EditKind kindOf(const FieldEdit& edit);

// The field as the toolkit proposed it, accepted.
FieldOutcome acceptAsProposed(const FieldEdit& edit);
// The field left as it was.
FieldOutcome refuse(const FieldEdit& edit);
// The field showing text with the part from typedLength on selected.
FieldOutcome showCompleted(std::string text, std::size_t typedLength);

} // namespace tavvel
