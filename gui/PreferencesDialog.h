#pragma once
// The preferences dialog, bound to PreferencesForm: a switch per option, a pop-up per choice,
// the description and memo output fields. Every control shows the model's state (enabled
// flags included) and forwards its event; OK writes everything back, Cancel nothing.

#include "forms/PreferencesForm.h"

#include <QDialog>
#include <functional>
#include <vector>

namespace tavvel::gui {

class QtDialogs;

class PreferencesDialog : public QDialog {
public:
    // Opens the dialog modally on the store.
    static void edit(TvPrefs& prefs, OutputFormatting& output, QtDialogs& dialogs, QWidget* parent);

    PreferencesDialog(PreferencesForm& form, QWidget* parent);

private:
    QWidget* switchesPage(const std::vector<PreferencesForm::Switch>& which);
    QWidget* choicesPage();
    void show();

    PreferencesForm& form_;
    std::vector<std::function<void()>> shows_;
};

} // namespace tavvel::gui
