#pragma once
// The run form in the main window, bound to RunForm: input, account, transaction range,
// input format, output format, output date and number, appending, and the process button
// that follows the form's rule. Shows the model with refresh(); forwards every user event.

#include <QWidget>

class QAction;
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tavvel {
class Controller;
class RunForm;
class TvPrefs;
} // namespace tavvel

namespace tavvel::gui {

class TypeAheadBinding;

class RunFormView : public QWidget {
    Q_OBJECT
public:
    RunFormView(Controller& controller, TvPrefs& prefs, QAction* learn, QWidget* parent);

    void refresh();

signals:
    void processRequested();
    // Anything the statement table filters by may have changed.
    void formChanged();

private:
    QWidget* buildInputPart(TvPrefs& prefs, QAction* learn);
    QWidget* buildAccountPart(TvPrefs& prefs);
    QWidget* buildRangePart();
    QWidget* buildOutputPart();
    // Tooltips and the names screen readers say (RunFormDescriptions.cpp).
    void describeControls();
    void refreshInput();
    void refreshAccount();
    void refreshRange();
    void refreshOutput();
    void refreshFixedFields();

    Controller& controller_;
    RunForm& form_;
    TvPrefs& prefs_;
    QAction* learn_;
    QLabel* inputFrom_ = nullptr;
    QLabel* accountType_ = nullptr;
    QComboBox* qifType_ = nullptr;
    QComboBox* qfxType_ = nullptr;
    QWidget* inputFormatRow_ = nullptr;
    QComboBox* inputFormat_ = nullptr;
    TypeAheadBinding* inputFormatTyping_ = nullptr;
    QComboBox* account_ = nullptr;
    TypeAheadBinding* accountTyping_ = nullptr;
    QLabel* accountHint_ = nullptr;
    QButtonGroup* range_ = nullptr;
    QLineEdit* dateFrom_ = nullptr;
    QLineEdit* dateTo_ = nullptr;
    QLabel* invalidRange_ = nullptr;
    QComboBox* outputFormat_ = nullptr;
    QCheckBox* sameDate_ = nullptr;
    QLineEdit* outputDate_ = nullptr;
    QCheckBox* sameNumber_ = nullptr;
    QLineEdit* outputNumber_ = nullptr;
    QCheckBox* appendSwitch_ = nullptr;
    QComboBox* appendPopUp_ = nullptr;
    QLabel* outputFile_ = nullptr;
    QPushButton* process_ = nullptr;
};

} // namespace tavvel::gui
