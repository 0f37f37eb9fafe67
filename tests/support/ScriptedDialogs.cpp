#include "support/ScriptedDialogs.h"

#include <gtest/gtest.h>

namespace tavvel::test {

ScriptedDialogs::Step ScriptedDialogs::makeStep(std::string kind, std::string title,
                                                std::size_t answer, std::optional<std::string> path,
                                                bool flag) {
    Step step;
    step.kind = std::move(kind);
    step.title = std::move(title);
    step.answer = answer;
    step.path = std::move(path);
    step.flag = flag;
    return step;
}

ScriptedDialogs::~ScriptedDialogs() {
    if (!script_.empty())
        ADD_FAILURE() << "scripted " << script_.front().kind << " \"" << script_.front().title
                      << "\" was never shown (" << script_.size() << " answers unused)";
}

ScriptedDialogs& ScriptedDialogs::expectAlert(std::string title) {
    script_.push_back(makeStep("alert", std::move(title), 0, {}, false));
    return *this;
}

ScriptedDialogs& ScriptedDialogs::expectAsk(std::string title, std::size_t answer) {
    script_.push_back(makeStep("ask", std::move(title), answer, {}, false));
    return *this;
}

ScriptedDialogs& ScriptedDialogs::expectFile(std::string kind, std::optional<std::string> path) {
    script_.push_back(makeStep(std::move(kind), "", 0, std::move(path), false));
    return *this;
}

ScriptedDialogs& ScriptedDialogs::expectErrorWarning(std::string message, bool pressButton,
                                                     bool dontWarnAgain) {
    script_.push_back(
        makeStep("errorWarning", std::move(message), pressButton ? 1u : 0u, {}, dontWarnAgain));
    return *this;
}

ScriptedDialogs& ScriptedDialogs::expectCancelQuestion(CancelChoice choice, bool makePermanent) {
    script_.push_back(makeStep("cancel", "", static_cast<std::size_t>(choice), {}, makePermanent));
    return *this;
}

ScriptedDialogs&
ScriptedDialogs::expectConfirm(std::function<ConfirmAction(ConfirmForm&)> handler) {
    Step step = makeStep("confirm", "Confirm Transaction", 0, {}, false);
    step.confirm = std::move(handler);
    script_.push_back(std::move(step));
    return *this;
}

ScriptedDialogs& ScriptedDialogs::expectNewInstruction(
    std::function<NewInstructionAction(NewInstructionForm&)> handler) {
    Step step = makeStep("newInstruction", "", 0, {}, false);
    step.newInstruction = std::move(handler);
    script_.push_back(std::move(step));
    return *this;
}

ScriptedDialogs&
ScriptedDialogs::expectLearnDate(std::function<LearnAction(LearnDateForm&)> handler) {
    Step step = makeStep("learnDate", "", 0, {}, false);
    step.learnDate = std::move(handler);
    script_.push_back(std::move(step));
    return *this;
}

ScriptedDialogs&
ScriptedDialogs::expectLearnLayout(std::function<LearnAction(LearnLayoutForm&)> handler) {
    Step step = makeStep("learnLayout", "", 0, {}, false);
    step.learnLayout = std::move(handler);
    script_.push_back(std::move(step));
    return *this;
}

ScriptedDialogs&
ScriptedDialogs::expectLearnQuestion(std::function<LearnAction(LearnQuestionForm&)> handler) {
    Step step = makeStep("learnQuestion", "", 0, {}, false);
    step.learnQuestion = std::move(handler);
    script_.push_back(std::move(step));
    return *this;
}

// The forms' titles change with the statement type and name, so only their kind is checked;
// the handler sees the title and the prompt.
LearnAction ScriptedDialogs::learnDate(LearnDateForm& form) {
    return next({"learnDate", "", form.title, {}}).learnDate(form);
}

LearnAction ScriptedDialogs::learnLayout(LearnLayoutForm& form) {
    return next({"learnLayout", "", form.title, {}}).learnLayout(form);
}

LearnAction ScriptedDialogs::learnQuestion(LearnQuestionForm& form) {
    return next({"learnQuestion", "", form.prompt, {}}).learnQuestion(form);
}

ConfirmAction ScriptedDialogs::confirmTransaction(ConfirmForm& form) {
    Step step = next({"confirm", form.title(), form.description(), {}});
    return step.confirm(form);
}

NewInstructionAction ScriptedDialogs::newInstruction(NewInstructionForm& form) {
    Step step = next({"newInstruction", "", form.setup().description, {}});
    return step.newInstruction(form);
}

ErrorWarningAnswer ScriptedDialogs::errorWarning(const std::string& message,
                                                 const std::string& text,
                                                 const std::string& buttonTitle,
                                                 bool offerDontWarn) {
    Step step = next({"errorWarning", message, text, {buttonTitle, "Cancel"}});
    if (step.flag && !offerDontWarn) {
        ADD_FAILURE() << "\"don't warn again\" ticked but not offered for: " << message;
        throw UnexpectedDialog("switch not offered");
    }
    return {step.answer == 1, step.flag};
}

CancelAnswer ScriptedDialogs::cancelQuestion() {
    Step step = next({"cancel", "", "", {}});
    return {static_cast<CancelChoice>(step.answer), step.flag};
}

std::optional<std::string> ScriptedDialogs::file(const std::string& kind,
                                                 const FileChoice& choice) {
    fileChoices_.push_back(choice);
    return next({kind, "", choice.suggestedName, {}}).path;
}

std::optional<std::string> ScriptedDialogs::chooseFileToOpen(const FileChoice& choice) {
    return file("open", choice);
}

std::optional<std::string> ScriptedDialogs::chooseFileToSave(const FileChoice& choice) {
    return file("save", choice);
}

std::optional<std::string> ScriptedDialogs::chooseFileToAppendTo(const FileChoice& choice) {
    return file("append", choice);
}

const Shown& ScriptedDialogs::last() const {
    if (shown_.empty())
        throw UnexpectedDialog("nothing was shown");
    return shown_.back();
}

ScriptedDialogs::Step ScriptedDialogs::next(const Shown& shown) {
    shown_.push_back(shown);
    std::string what = shown.kind + " \"" + shown.title + "\": " + shown.text;
    if (script_.empty()) {
        ADD_FAILURE() << "unexpected " << what;
        throw UnexpectedDialog("unexpected " + what);
    }
    Step step = script_.front();
    script_.pop_front();
    if (step.kind != shown.kind || step.title != shown.title) {
        ADD_FAILURE() << "expected " << step.kind << " \"" << step.title << "\" but got " << what;
        throw UnexpectedDialog("out of order: " + what);
    }
    return step;
}

void ScriptedDialogs::alert(const std::string& title, const std::string& text) {
    next({"alert", title, text, {}});
}

std::size_t ScriptedDialogs::ask(const std::string& title, const std::string& text,
                                 const std::vector<std::string>& buttons) {
    Step step = next({"ask", title, text, buttons});
    if (step.answer >= buttons.size()) {
        ADD_FAILURE() << "scripted answer " << step.answer << " for \"" << title << "\" but only "
                      << buttons.size() << " buttons";
        throw UnexpectedDialog("no such button");
    }
    return step.answer;
}

} // namespace tavvel::test
