#pragma once
// The Qt dialogs with the user replaced: each window that would run modally is handed to the
// next queued answer, which may look at it, press its buttons and return its result. With no
// answer queued, the window is recorded as unexpected and rejected, so a test never waits.

#include "QtDialogs.h"

#include <QAbstractButton>
#include <QDialog>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <deque>
#include <functional>

namespace tavvel::test {

class AnsweringDialogs : public gui::QtDialogs {
public:
    using Answer = std::function<int(QDialog&)>;
    using gui::QtDialogs::QtDialogs;

    AnsweringDialogs& then(Answer answer) {
        answers_.push_back(std::move(answer));
        return *this;
    }
    // Every window without its own answer gets this one.
    void otherwise(Answer answer) { fallback_ = std::move(answer); }

    int runModal(QDialog& dialog) override {
        titles << dialog.windowTitle();
        if (!answers_.empty()) {
            Answer answer = std::move(answers_.front());
            answers_.pop_front();
            return answer(dialog);
        }
        if (fallback_)
            return fallback_(dialog);
        unexpected << dialog.windowTitle();
        return QDialog::Rejected;
    }

    bool done() const { return answers_.empty(); }

    QStringList titles;
    QStringList unexpected;

private:
    std::deque<Answer> answers_;
    Answer fallback_;
};

// Presses the push button with this text; the dialog's result afterwards.
inline int press(QDialog& dialog, const QString& text) {
    for (QAbstractButton* button : dialog.findChildren<QAbstractButton*>())
        if (button->text() == text) {
            button->click();
            return dialog.result();
        }
    return -1;
}

// A message box's default button.
inline int pressDefault(QDialog& dialog) {
    auto* box = qobject_cast<QMessageBox*>(&dialog);
    if (!box || !box->defaultButton())
        return -1;
    box->defaultButton()->click();
    return dialog.result();
}

// A file dialog answered with the path.
inline int choosePath(QDialog& dialog, const QString& path) {
    auto* files = qobject_cast<QFileDialog*>(&dialog);
    if (!files)
        return QDialog::Rejected;
    files->selectFile(path);
    return QDialog::Accepted;
}

} // namespace tavvel::test
