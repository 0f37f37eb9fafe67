#pragma once
// A chooser field with type-ahead completion that remembers what the user really typed
// (`stringAsTyped`): the security, description and category choosers. The completion shows
// the entry's own spelling; when the typed text no longer leads to an entry, the field shows
// the user's own typing again rather than the entry's letter case.
//
// For each keystroke:
// - typed at the end: the new characters extend the tracked text while the field up to the
//   typing point still spells it (ignoring case); otherwise tracking starts again from the
//   whole proposal, so that moving the cursor or typing over the field never restores a
//   stale text. With a completion the field shows it with its completed tail selected;
//   without one it shows the tracked text with the cursor at its end;
// - deleted at the end: the tracked text loses its last character while longer than the
//   proposal, else tracking stops; the proposal is accepted;
// - any other edit stops tracking and is accepted.

#include "dialogs/Completion.h"
#include "dialogs/FieldEdit.h"

#include <optional>
#include <string>

namespace tavvel {

class TypeAheadField {
public:
    explicit TypeAheadField(Completer complete) : complete_(std::move(complete)) {}

    FieldOutcome edit(const FieldEdit& edit);
    // comboBoxEntered: — the choice is made; nothing is tracked any more.
    void entered() { tracked_.reset(); }
    const std::optional<std::string>& stringAsTyped() const { return tracked_; }

private:
    FieldOutcome typedAtEnd(const FieldEdit& edit);
    void deletedAtEnd(const FieldEdit& edit);

    Completer complete_;
    std::optional<std::string> tracked_;
};

} // namespace tavvel
