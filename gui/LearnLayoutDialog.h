#pragma once
// The second window of the learning dialogue, bound to LearnLayoutForm: the layout pop-up and
// its two switches, and the preview of the sample cut with the layout chosen, rebuilt by the
// model after every change.

#include "LearnWidgets.h"

class QTableWidget;

namespace tavvel::gui {

class LearnLayoutDialog : public LearnDialog {
public:
    LearnLayoutDialog(LearnLayoutForm& form, QWidget* parent);

private:
    void showState();

    LearnLayoutForm& form_;
    QTableWidget* preview_ = nullptr;
};

} // namespace tavvel::gui
