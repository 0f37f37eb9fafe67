#pragma once
// The front end as the core sees it: one operation per kind of form. Every call is modal and
// returns when the user has answered. Texts are the program's own, shown as given ("\r" is a
// line break).

#include "dialogs/FileChoice.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tavvel {

class ConfirmForm;
class NewInstructionForm;
class LearnDateForm;
class LearnLayoutForm;
class LearnQuestionForm;

// The buttons of the three learning forms. The date form offers OK and Cancel, the layout form
// OK, Back and Cancel, the question form OK (or Yes and No), Back and Cancel.
enum class LearnAction { ok, yes, no, back, cancel };

// What the user did in the confirmation form.
enum class ConfirmAction {
    ok,
    skip,
    skipRemaining,
    back,
    cancel,
    swapDescriptionAndMemo,
    descriptionChanged, // the form asked for it (ConfirmForm::setDescription answered true)
    addInstruction,
    addAmountInstruction,
};

// What the user did in the new-instruction form.
enum class NewInstructionAction {
    save,
    cancel,
    useAsRead, // output this transaction as it was read, and learn nothing from it
};

// The answer to a record-level error warning.
struct ErrorWarningAnswer {
    bool pressedButton = true; // false: the user cancelled instead
    bool dontWarnAgain = false;
};

// What Cancel during a run means.
enum class CancelChoice { stopNow = 0, finishLater = 1, goOn = 2 };
struct CancelAnswer {
    CancelChoice choice = CancelChoice::goOn;
    bool makePermanent = false; // only for stopNow and finishLater
};

class Dialogs {
public:
    virtual ~Dialogs() = default;

    // A message with a title and one OK button.
    virtual void alert(const std::string& title, const std::string& text) = 0;

    // A question; returns the index of the button chosen. The first button is the affirmative
    // one and the default.
    virtual std::size_t ask(const std::string& title, const std::string& text,
                            const std::vector<std::string>& buttons) = 0;

    // A record-level error: the message, the offending text, one default button with the given
    // title (such as "Skip Transaction") and Cancel; the switch not to warn again is offered
    // only when `offerDontWarn`.
    virtual ErrorWarningAnswer errorWarning(const std::string& message, const std::string& text,
                                            const std::string& buttonTitle, bool offerDontWarn) = 0;

    // The cancel question: stop now, finish later, or go on; with a switch to make the choice
    // permanent.
    virtual CancelAnswer cancelQuestion() = 0;

    // The confirmation form of one transaction; returns when the user chose an action. The
    // front end forwards edits to the form model meanwhile. A front end that never asks (a
    // batch run) accepts the form as it stands.
    virtual ConfirmAction confirmTransaction(ConfirmForm& form);
    // The new-instruction form; a front end that never asks outputs the transaction as read.
    virtual NewInstructionAction newInstruction(NewInstructionForm& form);
    // True for a front end that never asks and keeps both forms' defaults: OK for the
    // confirmation form as filled, output as read for the new-instruction form. No answer can
    // then lead back to an earlier transaction or leave the run for later.
    virtual bool acceptsFormsAsShown() const { return false; }

    // The three forms of the dialogue that learns an input format; each returns the button
    // pressed, the front end forwarding selections to the form meanwhile. A front end that
    // never asks cancels, so nothing is learned.
    virtual LearnAction learnDate(LearnDateForm& form);
    virtual LearnAction learnLayout(LearnLayoutForm& form);
    virtual LearnAction learnQuestion(LearnQuestionForm& form);

    // File panels: the chosen path, or nothing when the user cancelled.
    virtual std::optional<std::string> chooseFileToOpen(const FileChoice& choice) = 0;
    virtual std::optional<std::string> chooseFileToSave(const FileChoice& choice) = 0;
    // An existing file to append to (prompt "Append To").
    virtual std::optional<std::string> chooseFileToAppendTo(const FileChoice& choice) = 0;
};

} // namespace tavvel
