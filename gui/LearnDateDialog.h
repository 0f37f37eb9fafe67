#pragma once
// The first window of the learning dialogue, bound to LearnDateForm: the statement from its
// first date on, where the user selects the date that starts a transaction; the whole text,
// where the user selects what identifies the bank; the statement type and the two switches.

#include "LearnWidgets.h"

class QPlainTextEdit;

namespace tavvel::gui {

class LearnDateDialog : public LearnDialog {
public:
    LearnDateDialog(LearnDateForm& form, QWidget* parent);

private:
    QPlainTextEdit* textView(const std::string& text, const char* name);

    LearnDateForm& form_;
    QPlainTextEdit* dateView_ = nullptr;
    QPlainTextEdit* matchView_ = nullptr;
};

} // namespace tavvel::gui
