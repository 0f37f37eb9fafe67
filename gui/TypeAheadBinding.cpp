#include "TypeAheadBinding.h"

#include "Text.h"

#include <QLineEdit>

namespace tavvel::gui {

namespace {

std::size_t bytesBefore(const QString& text, qsizetype position) {
    return static_cast<std::size_t>(text.left(position).toUtf8().size());
}

int charactersBefore(const std::string& text, std::size_t bytes) {
    bytes = std::min(bytes, text.size());
    return static_cast<int>(QString::fromUtf8(text.data(), static_cast<qsizetype>(bytes)).size());
}

} // namespace

FieldState fieldStateOf(const QLineEdit& edit) {
    QString text = edit.text();
    FieldState state{core(text), {}};
    if (edit.hasSelectedText()) {
        qsizetype start = edit.selectionStart();
        state.selection.start = bytesBefore(text, start);
        state.selection.length =
            bytesBefore(text, start + edit.selectedText().size()) - state.selection.start;
    } else {
        state.selection.start = bytesBefore(text, edit.cursorPosition());
    }
    return state;
}

void applyFieldState(QLineEdit& edit, const FieldState& state) {
    edit.setText(QString::fromUtf8(state.text.data(), static_cast<qsizetype>(state.text.size())));
    int start = charactersBefore(state.text, state.selection.start);
    int end = charactersBefore(state.text, state.selection.end());
    if (end > start)
        edit.setSelection(start, end - start);
    else
        edit.setCursorPosition(start);
}

TypeAheadBinding::TypeAheadBinding(QLineEdit* edit, Completer complete,
                                   std::function<void(const std::string&)> changed)
    : QObject(edit), edit_(edit), field_(std::move(complete)), changed_(std::move(changed)),
      before_(fieldStateOf(*edit)) {
    connect(edit, &QLineEdit::textEdited, this, &TypeAheadBinding::edited);
    connect(edit, &QLineEdit::cursorPositionChanged, this, &TypeAheadBinding::remember);
    connect(edit, &QLineEdit::selectionChanged, this, &TypeAheadBinding::remember);
    connect(edit, &QLineEdit::editingFinished, this, [this] { field_.entered(); });
}

// Only moves of the caret or selection are remembered here: a changed text is an edit whose
// textEdited has yet to report it against the state before.
void TypeAheadBinding::remember() {
    if (applying_)
        return;
    FieldState now = fieldStateOf(*edit_);
    if (now.text == before_.text)
        before_ = std::move(now);
}

void TypeAheadBinding::show(const std::string& text) {
    applying_ = true;
    applyFieldState(*edit_, {text, {text.size(), 0}});
    applying_ = false;
    field_.entered();
    remember();
}

void TypeAheadBinding::edited() {
    FieldEdit edit{before_, fieldStateOf(*edit_)};
    FieldOutcome outcome = field_.edit(edit);
    applying_ = true;
    applyFieldState(*edit_, outcome.shown);
    applying_ = false;
    remember();
    changed_(outcome.shown.text);
}

} // namespace tavvel::gui
