#pragma once
// The Dialogs of the core as Qt windows: message boxes with the program's titles, texts and
// buttons, the error warning, the cancel question, file dialogs, and the larger forms. Every
// window is run through runModal(), which tests override to answer it.

#include "dialogs/Dialogs.h"
#include "knowledge/RenameFormatForm.h"

#include <QString>
#include <functional>

class QDialog;
class QWidget;

namespace tavvel {
class TvPrefs;
}

namespace tavvel::gui {

class QtDialogs : public Dialogs {
public:
    explicit QtDialogs(TvPrefs& prefs) : prefs_(prefs) {}

    // The window the dialogs are modal to.
    void setParentWindow(QWidget* parent) { parent_ = parent; }
    // Told every alert's title and text as it is shown, so the window can keep the last one.
    using AlertEcho = std::function<void(const std::string& title, const std::string& text)>;
    void setAlertEcho(AlertEcho echo) { echo_ = std::move(echo); }

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

    // The rename form of an imported input format; true when confirmed.
    bool renameFormat(RenameFormatForm& form);

    // Runs a window modally and answers its result code (QDialog::exec()).
    virtual int runModal(QDialog& dialog);

protected:
    QWidget* parentWindow() const { return parent_; }

private:
    std::optional<std::string> chooseFile(const FileChoice& choice, bool save);

    TvPrefs& prefs_;
    QWidget* parent_ = nullptr;
    AlertEcho echo_;
};

// The name filters of a file dialog for the allowed extensions ("" is files without one).
QStringList nameFiltersFor(const std::vector<std::string>& extensions);

} // namespace tavvel::gui
