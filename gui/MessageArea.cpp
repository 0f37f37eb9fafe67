#include "MessageArea.h"

#include "Text.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace tavvel::gui {

MessageArea::MessageArea(QWidget* parent) : QFrame(parent) {
    setObjectName(QStringLiteral("messageArea"));
    setFrameShape(QFrame::StyledPanel);
    setAccessibleName(tr("Last message"));
    label_ = new QLabel(this);
    label_->setWordWrap(true);
    label_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    label_->setTextFormat(Qt::PlainText);
    dismiss_ = new QToolButton(this);
    dismiss_->setText(QStringLiteral("×"));
    dismiss_->setAccessibleName(tr("Dismiss message"));
    dismiss_->setToolTip(tr("Dismiss this message"));
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(label_, 1);
    layout->addWidget(dismiss_, 0, Qt::AlignTop);
    connect(dismiss_, &QToolButton::clicked, this, &QWidget::hide);
    hide();
}

// The program's line breaks ("\r") lead some messages; they mean nothing on one band.
void MessageArea::showMessage(const std::string& title, const std::string& text) {
    QString message = qt(text).trimmed();
    label_->setText(message.isEmpty() ? qt(title) : qt(title) + QStringLiteral(": ") + message);
    show();
}

QString MessageArea::text() const {
    return label_->text();
}

} // namespace tavvel::gui
