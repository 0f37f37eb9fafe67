#pragma once
// The row a long piece of work shows: a bar, and a Cancel on Esc beside it.

#include <QString>

class QProgressBar;
class QPushButton;
class QWidget;

namespace tavvel::gui {

struct ProgressRow {
    QProgressBar* bar = nullptr;
    QPushButton* cancel = nullptr;
};

// Lays the bar and its Cancel out in `row`; `work` names the bar for assistive tools, and the
// button is found by `cancelName`.
ProgressRow fillProgressRow(QWidget& row, const QString& work, const QString& cancelName,
                            const QString& cancelTip);

} // namespace tavvel::gui
