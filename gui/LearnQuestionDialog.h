#pragma once
// The third window of the learning dialogue, bound to LearnQuestionForm: the question over the
// table of the sample's fields. A column is selected by clicking in it; a text inside a cell by
// selecting it in the cell field under the table. The buttons are those the model offers.

#include "LearnWidgets.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace tavvel::gui {

class LearnQuestionDialog : public LearnDialog {
public:
    LearnQuestionDialog(LearnQuestionForm& form, QWidget* parent);

private:
    void build();
    void cellClicked(int row, int column);
    void cellTextSelected();
    void showState();

    LearnQuestionForm& form_;
    QLabel* prompt_ = nullptr;
    QTableWidget* table_ = nullptr;
    QLineEdit* cell_ = nullptr;
    QLabel* summary_ = nullptr;
    QLabel* securityLabel_ = nullptr;
    QLineEdit* security_ = nullptr;
    QPushButton* ok_ = nullptr;
    QPushButton* yes_ = nullptr;
    QPushButton* no_ = nullptr;
    int cellRow_ = -1, cellColumn_ = -1;
};

} // namespace tavvel::gui
