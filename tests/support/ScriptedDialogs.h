#pragma once
// A front end that answers from a script. Every form the core shows must be expected, in
// order; an unexpected or unanswered one fails the test with its title and text and stops
// the run (so a walk can never wait forever for an answer).

#include "dialogs/Dialogs.h"
#include "formats/LearnForms.h"
#include "forms/ConfirmForm.h"
#include "forms/NewInstructionForm.h"

#include <deque>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace tavvel::test {

struct UnexpectedDialog : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct Shown {
    std::string kind; // "alert", "ask", ...
    std::string title;
    std::string text;
    std::vector<std::string> buttons;
};

class ScriptedDialogs : public Dialogs {
public:
    ~ScriptedDialogs() override;

    // Expect an alert with this title.
    ScriptedDialogs& expectAlert(std::string title);
    // Expect a question with this title, answered with the button at `answer`.
    ScriptedDialogs& expectAsk(std::string title, std::size_t answer);
    // Expect a file panel ("open", "save" or "append"), answered with the path (nothing: the
    // user cancelled).
    ScriptedDialogs& expectFile(std::string kind, std::optional<std::string> path);
    // Expect an error warning whose message is `message`; press its button (or cancel), and
    // tick "don't warn again" or not.
    ScriptedDialogs& expectErrorWarning(std::string message, bool pressButton = true,
                                        bool dontWarnAgain = false);
    // Expect the confirmation form; the handler may edit the form and returns the action.
    ScriptedDialogs& expectConfirm(std::function<ConfirmAction(ConfirmForm&)> handler);
    // Expect the new-instruction form, likewise.
    ScriptedDialogs&
    expectNewInstruction(std::function<NewInstructionAction(NewInstructionForm&)> handler);
    // Expect the forms of the dialogue that learns an input format; the handler selects what a
    // user would and returns the button pressed.
    ScriptedDialogs& expectLearnDate(std::function<LearnAction(LearnDateForm&)> handler);
    ScriptedDialogs& expectLearnLayout(std::function<LearnAction(LearnLayoutForm&)> handler);
    ScriptedDialogs& expectLearnQuestion(std::function<LearnAction(LearnQuestionForm&)> handler);
    // Expect the cancel question, answered with the choice.
    ScriptedDialogs& expectCancelQuestion(CancelChoice choice, bool makePermanent = false);

    void alert(const std::string& title, const std::string& text) override;
    std::size_t ask(const std::string& title, const std::string& text,
                    const std::vector<std::string>& buttons) override;
    ErrorWarningAnswer errorWarning(const std::string& message, const std::string& text,
                                    const std::string& buttonTitle, bool offerDontWarn) override;
    CancelAnswer cancelQuestion() override;
    ConfirmAction confirmTransaction(ConfirmForm& form) override;
    NewInstructionAction newInstruction(NewInstructionForm& form) override;
    LearnAction learnDate(LearnDateForm& form) override;
    LearnAction learnLayout(LearnLayoutForm& form) override;
    LearnAction learnQuestion(LearnQuestionForm& form) override;
    std::optional<std::string> chooseFileToOpen(const FileChoice& choice) override;
    std::optional<std::string> chooseFileToSave(const FileChoice& choice) override;
    std::optional<std::string> chooseFileToAppendTo(const FileChoice& choice) override;

    // The file panels shown so far, in order.
    const std::vector<FileChoice>& fileChoices() const { return fileChoices_; }

    // Everything shown so far, in order.
    const std::vector<Shown>& shown() const { return shown_; }
    const Shown& last() const;
    // True when every expectation was met; a test may also let the destructor check.
    bool done() const { return script_.empty(); }

protected:
    struct Step {
        std::string kind;
        std::string title;
        std::size_t answer = 0;
        std::optional<std::string> path;
        bool flag = false;
        std::function<ConfirmAction(ConfirmForm&)> confirm;
        std::function<NewInstructionAction(NewInstructionForm&)> newInstruction;
        std::function<LearnAction(LearnDateForm&)> learnDate;
        std::function<LearnAction(LearnLayoutForm&)> learnLayout;
        std::function<LearnAction(LearnQuestionForm&)> learnQuestion;
    };
    static Step makeStep(std::string kind, std::string title, std::size_t answer,
                         std::optional<std::string> path, bool flag);
    std::optional<std::string> file(const std::string& kind, const FileChoice& choice);
    // Takes the next step, which must be of this kind and title, or fails the test.
    Step next(const Shown& shown);

private:
    std::deque<Step> script_;
    std::vector<Shown> shown_;
    std::vector<FileChoice> fileChoices_;
};

} // namespace tavvel::test
