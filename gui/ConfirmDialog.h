#pragma once
// The confirmation form of one transaction, bound to ConfirmForm: it shows the model's state
// and forwards each edit; the button pressed becomes the action the walk goes on with.

#include "dialogs/Dialogs.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

namespace tavvel {
class TvPrefs;
}

namespace tavvel::gui {

class SplitTableWidget;
struct SplitTableBinding;

class ConfirmDialog : public QDialog {
    Q_OBJECT
public:
    ConfirmDialog(ConfirmForm& form, TvPrefs& prefs, QWidget* parent);

    ConfirmAction action() const { return action_; }

private:
    void build(TvPrefs& prefs);
    QPushButton* actionButton(std::string_view title, ConfirmAction action);
    SplitTableBinding splitBinding();
    void finish(ConfirmAction action);
    void show();

    ConfirmForm& form_;
    ConfirmAction action_ = ConfirmAction::cancel;
    QLabel* prompt_ = nullptr;
    QLabel* date_ = nullptr;
    QSpinBox* stepper_ = nullptr;
    QLabel* amount_ = nullptr;
    QLabel* number_ = nullptr;
    QLineEdit* description_ = nullptr;
    QLabel* memoLabel_ = nullptr;
    QLineEdit* memo_ = nullptr;
    QLabel* categoryLabel_ = nullptr;
    QLineEdit* category_ = nullptr;
    QLabel* categoryWarning_ = nullptr;
    SplitTableWidget* splits_ = nullptr;
    QPushButton* splitsButton_ = nullptr;
    QPushButton* back_ = nullptr;
    QPushButton* addInstruction_ = nullptr;
    QPushButton* addAmountInstruction_ = nullptr;
};

} // namespace tavvel::gui
