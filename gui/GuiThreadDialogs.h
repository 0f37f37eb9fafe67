#pragma once
// The dialogs as a run on another thread sees them: every form is shown on the window's thread,
// the run waiting for the answer. Called on the window's thread, they are the Qt dialogs as
// they are.

#include "QtDialogs.h"

#include <QMetaObject>
#include <QObject>
#include <QThread>
#include <optional>

namespace tavvel::gui {

class GuiThreadDialogs : public Dialogs {
public:
    // `home` lives on the window's thread and outlives every run.
    GuiThreadDialogs(QtDialogs& dialogs, QObject& home) : dialogs_(dialogs), home_(home) {}

    void alert(const std::string& title, const std::string& text) override;
    std::size_t ask(const std::string& title, const std::string& text,
                    const std::vector<std::string>& buttons) override;
    ErrorWarningAnswer errorWarning(const std::string& message, const std::string& text,
                                    const std::string& buttonTitle, bool offerDontWarn) override;
    CancelAnswer cancelQuestion() override;
    ConfirmAction confirmTransaction(ConfirmForm& form) override;
    NewInstructionAction newInstruction(NewInstructionForm& form) override;
    bool acceptsFormsAsShown() const override { return dialogs_.acceptsFormsAsShown(); }
    LearnAction learnDate(LearnDateForm& form) override;
    LearnAction learnLayout(LearnLayoutForm& form) override;
    LearnAction learnQuestion(LearnQuestionForm& form) override;
    std::optional<std::string> chooseFileToOpen(const FileChoice& choice) override;
    std::optional<std::string> chooseFileToSave(const FileChoice& choice) override;
    std::optional<std::string> chooseFileToAppendTo(const FileChoice& choice) override;

    // The window is going: forms asked from now on are not shown, and get the answer a
    // default-constructed one gives (no file chosen, the first button), which ends a stopped
    // run without writing. Called on the window's thread.
    void stopShowing() { forwarding_ = false; }

private:
    // What `show` answers, asked on the window's thread. The forms and texts it reads stay put:
    // their owner is the caller, who waits.
    template <class Show> auto onWindowThread(Show show) -> decltype(show()) {
        using Answer = decltype(show());
        if (QThread::currentThread() == home_.thread())
            return show();
        if constexpr (std::is_void_v<Answer>) {
            QMetaObject::invokeMethod(
                &home_, [&] { forwarding_ ? show() : void(); }, Qt::BlockingQueuedConnection);
        } else {
            std::optional<Answer> answer;
            QMetaObject::invokeMethod(
                &home_, [&] { answer.emplace(forwarding_ ? show() : Answer{}); },
                Qt::BlockingQueuedConnection);
            return std::move(*answer);
        }
    }

    QtDialogs& dialogs_;
    QObject& home_;
    bool forwarding_ = true; // read and written on the window's thread only
};

} // namespace tavvel::gui
