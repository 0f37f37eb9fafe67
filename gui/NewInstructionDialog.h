#pragma once
// The new-instruction form, bound to NewInstructionForm: the instruction tab (match text,
// new description and memo, category or splits, switches) and the amount tab, shown from the
// model and forwarding every edit.

#include "dialogs/Dialogs.h"
#include "forms/NewInstructionForm.h"

#include <QDialog>
#include <functional>
#include <vector>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;

namespace tavvel::gui {

class SplitTableWidget;

class NewInstructionDialog : public QDialog {
public:
    NewInstructionDialog(NewInstructionForm& form, TvPrefs& prefs, QWidget* parent);

    NewInstructionAction action() const { return action_; }

private:
    QWidget* buildHeader();
    QWidget* buildInstructionTab(TvPrefs& prefs);
    QWidget* buildAmountTab(TvPrefs& prefs);
    QLayout* buildButtons();
    QLineEdit* edit(const char* name, std::function<void(std::string)> set);
    QLineEdit* categoryEdit(const char* name, TvPrefs& prefs, std::function<void(std::string)> set);
    QCheckBox* check(const QString& title, const char* name, std::function<void(bool)> set);
    QLabel* label(const char* name);
    SplitTableWidget* splitTable(NewInstructionForm::Splits which);
    void finish(NewInstructionAction action);
    void show();
    void placeFocus();

    NewInstructionForm& form_;
    NewInstructionAction action_ = NewInstructionAction::cancel;
    // Each shows one part of the model again.
    std::vector<std::function<void()>> shows_;
    QTabWidget* tabs_ = nullptr;
    QLineEdit* match_ = nullptr;
    QLineEdit* category_ = nullptr;
    QLineEdit* amountDescription_ = nullptr;
};

} // namespace tavvel::gui
