#include "ProgressRow.h"

#include <QHBoxLayout>
#include <QProgressBar>
#include <QPushButton>

namespace tavvel::gui {

ProgressRow fillProgressRow(QWidget& row, const QString& work, const QString& cancelName,
                            const QString& cancelTip) {
    ProgressRow made{new QProgressBar(&row), new QPushButton(QObject::tr("Cancel"), &row)};
    made.bar->setAccessibleName(work);
    made.cancel->setObjectName(cancelName);
    made.cancel->setShortcut(Qt::Key_Escape);
    made.cancel->setToolTip(cancelTip);
    auto* layout = new QHBoxLayout(&row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(made.bar, 1);
    layout->addWidget(made.cancel);
    return made;
}

} // namespace tavvel::gui
