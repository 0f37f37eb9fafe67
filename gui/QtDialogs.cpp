#include "QtDialogs.h"

#include "ConfirmDialog.h"
#include "LearnDateDialog.h"
#include "LearnLayoutDialog.h"
#include "LearnQuestionDialog.h"
#include "NewInstructionDialog.h"
#include "Text.h"
#include "dialogs/DialogTexts.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavvel::gui {

namespace {

// A message box whose buttons answer their index; the first is the default.
std::vector<QPushButton*> addButtons(QMessageBox& box, const std::vector<std::string>& titles) {
    std::vector<QPushButton*> buttons;
    for (const std::string& title : titles)
        buttons.push_back(box.addButton(qt(title), QMessageBox::AcceptRole));
    if (!buttons.empty())
        box.setDefaultButton(buttons.front());
    return buttons;
}

std::size_t indexOf(const std::vector<QPushButton*>& buttons, const QAbstractButton* clicked) {
    for (std::size_t i = 0; i < buttons.size(); ++i)
        if (buttons[i] == clicked)
            return i;
    return 0; // closed without a button: the default
}

QString fileDialogTitle(const FileChoice& choice, bool save) {
    if (!choice.prompt.empty())
        return qt(choice.prompt);
    return save ? QStringLiteral("Save") : QStringLiteral("Open");
}

// A form's window run modally; the button pressed in it is the answer.
template <class Window, class Form> auto answerOf(QtDialogs& dialogs, Form& form, QWidget* parent) {
    Window window(form, parent);
    dialogs.runModal(window);
    return window.action();
}

template <class Window, class Form>
auto answerOf(QtDialogs& dialogs, Form& form, TvPrefs& prefs, QWidget* parent) {
    Window window(form, prefs, parent);
    dialogs.runModal(window);
    return window.action();
}

} // namespace

QStringList nameFiltersFor(const std::vector<std::string>& extensions) {
    QStringList patterns;
    bool withoutExtension = false;
    for (const std::string& extension : extensions) {
        if (extension.empty())
            withoutExtension = true;
        else
            patterns << QStringLiteral("*.") + qt(extension);
    }
    // A name filter cannot say "no extension"; offering every file keeps those selectable.
    if (withoutExtension)
        patterns << QStringLiteral("*");
    if (patterns.isEmpty())
        return {};
    return {patterns.join(QLatin1Char(' '))};
}

int QtDialogs::runModal(QDialog& dialog) {
    return dialog.exec();
}

void QtDialogs::alert(const std::string& title, const std::string& text) {
    if (echo_)
        echo_(title, text);
    ask(title, text, {std::string(text::okButton)});
}

std::size_t QtDialogs::ask(const std::string& title, const std::string& text,
                           const std::vector<std::string>& buttons) {
    QMessageBox box(QMessageBox::NoIcon, qt(title), qt(text), QMessageBox::NoButton, parent_);
    std::vector<QPushButton*> shown = addButtons(box, buttons);
    runModal(box);
    return indexOf(shown, box.clickedButton());
}

ErrorWarningAnswer QtDialogs::errorWarning(const std::string& message, const std::string& text,
                                           const std::string& buttonTitle, bool offerDontWarn) {
    QMessageBox box(QMessageBox::Warning, qt(text::errorWarningTitle), qt(message + text),
                    QMessageBox::NoButton, parent_);
    QPushButton* pressed = box.addButton(qt(buttonTitle), QMessageBox::AcceptRole);
    box.addButton(qt(text::cancelButton), QMessageBox::RejectRole);
    box.setDefaultButton(pressed);
    if (offerDontWarn)
        box.setCheckBox(new QCheckBox(qt(text::dontWarnAgain), &box));
    runModal(box);
    bool pressedButton = box.clickedButton() == pressed;
    bool dontWarn = pressedButton && box.checkBox() && box.checkBox()->isChecked();
    return {pressedButton, dontWarn};
}

CancelAnswer QtDialogs::cancelQuestion() {
    QMessageBox box(QMessageBox::Question, qt(text::cancelQuestionTitle), qt(text::cancelQuestion),
                    QMessageBox::NoButton, parent_);
    std::vector<QPushButton*> buttons =
        addButtons(box, {std::string(text::finishNowButton), std::string(text::finishLaterButton),
                         std::string(text::goOnButton)});
    box.setCheckBox(new QCheckBox(qt(text::alwaysDoThis), &box));
    runModal(box);
    auto choice = static_cast<CancelChoice>(indexOf(buttons, box.clickedButton()));
    bool permanent = choice != CancelChoice::goOn && box.checkBox()->isChecked();
    return {choice, permanent};
}

ConfirmAction QtDialogs::confirmTransaction(ConfirmForm& form) {
    return answerOf<ConfirmDialog>(*this, form, prefs_, parent_);
}

NewInstructionAction QtDialogs::newInstruction(NewInstructionForm& form) {
    return answerOf<NewInstructionDialog>(*this, form, prefs_, parent_);
}

LearnAction QtDialogs::learnDate(LearnDateForm& form) {
    return answerOf<LearnDateDialog>(*this, form, parent_);
}

LearnAction QtDialogs::learnLayout(LearnLayoutForm& form) {
    return answerOf<LearnLayoutDialog>(*this, form, parent_);
}

LearnAction QtDialogs::learnQuestion(LearnQuestionForm& form) {
    return answerOf<LearnQuestionDialog>(*this, form, parent_);
}

std::optional<std::string> QtDialogs::chooseFile(const FileChoice& choice, bool save) {
    QFileDialog dialog(parent_, fileDialogTitle(choice, save), qt(choice.startFolder));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setNameFilters(nameFiltersFor(choice.extensions));
    if (save && !choice.extensions.empty() && !choice.extensions.front().empty())
        dialog.setDefaultSuffix(qt(choice.extensions.front()));
    if (!choice.suggestedName.empty())
        dialog.selectFile(qt(choice.suggestedName));
    if (!choice.prompt.empty())
        dialog.setLabelText(QFileDialog::Accept, qt(choice.prompt));
    if (runModal(dialog) != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return core(dialog.selectedFiles().front());
}

std::optional<std::string> QtDialogs::chooseFileToOpen(const FileChoice& choice) {
    return chooseFile(choice, false);
}

std::optional<std::string> QtDialogs::chooseFileToSave(const FileChoice& choice) {
    return chooseFile(choice, true);
}

std::optional<std::string> QtDialogs::chooseFileToAppendTo(const FileChoice& choice) {
    return chooseFile(choice, false);
}

bool QtDialogs::renameFormat(RenameFormatForm& form) {
    QDialog dialog(parent_);
    dialog.setWindowTitle(qt(RenameFormatForm::prompt()));
    auto* layout = new QVBoxLayout(&dialog);
    auto* prompt = new QLabel(qt(RenameFormatForm::prompt()), &dialog);
    auto* name = new QLineEdit(qt(form.name()), &dialog);
    name->setObjectName(QStringLiteral("name"));
    auto* note = new QLabel(qt(RenameFormatForm::duplicateNote()), &dialog);
    note->setObjectName(QStringLiteral("duplicateNote"));
    note->setWordWrap(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    layout->addWidget(prompt);
    layout->addWidget(name);
    layout->addWidget(note);
    layout->addWidget(buttons);
    auto show = [&] {
        note->setVisible(form.duplicateNoteShown());
        buttons->button(QDialogButtonBox::Ok)->setEnabled(form.okEnabled());
    };
    QObject::connect(name, &QLineEdit::textEdited, &dialog, [&](const QString& text) {
        form.nameChanged(core(text));
        show();
    });
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    show();
    return runModal(dialog) == QDialog::Accepted && form.okEnabled();
}

} // namespace tavvel::gui
