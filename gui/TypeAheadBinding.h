#pragma once
// Binds a line edit to the core's type-ahead field model: every keystroke is reported as the
// field before and the field Qt proposes, and the edit shows what the model answers (the
// completion with its tail selected, or the user's own typing).

#include "dialogs/TypeAheadField.h"

#include <QObject>
#include <functional>

class QLineEdit;

namespace tavvel::gui {

class TypeAheadBinding : public QObject {
public:
    // The binding belongs to the edit. `changed` hears the text after each edit.
    TypeAheadBinding(QLineEdit* edit, Completer complete,
                     std::function<void(const std::string&)> changed);

    // The field shows a new text set by the program (no completion).
    void show(const std::string& text);

private:
    void remember();
    void edited();

    QLineEdit* edit_;
    TypeAheadField field_;
    std::function<void(const std::string&)> changed_;
    FieldState before_;
    bool applying_ = false;
};

// The field state of a line edit, in UTF-8 byte offsets.
FieldState fieldStateOf(const QLineEdit& edit);
// Shows a field state on a line edit.
void applyFieldState(QLineEdit& edit, const FieldState& state);

} // namespace tavvel::gui
