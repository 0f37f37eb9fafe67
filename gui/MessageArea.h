#pragma once
// The band above the run form that keeps the last message the program showed (a refusal, the
// end of a run), so it can still be read once its alert is gone, until the user dismisses it.

#include <QFrame>
#include <string>

class QLabel;
class QToolButton;

namespace tavvel::gui {

class MessageArea : public QFrame {
public:
    explicit MessageArea(QWidget* parent);

    void showMessage(const std::string& title, const std::string& text);
    QString text() const;
    QToolButton& dismissButton() { return *dismiss_; }

private:
    QLabel* label_ = nullptr;
    QToolButton* dismiss_ = nullptr;
};

} // namespace tavvel::gui
