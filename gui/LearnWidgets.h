#pragma once
// What the three windows of the learning dialogue share: the buttons that end a window with the
// action pressed, the table that shows the sample cut into fields, and the crossing from a
// position in a shown text back to a byte of the statement.

#include "formats/LearnForms.h"

#include <QDialog>
#include <QString>
#include <string_view>
#include <vector>

class QDialogButtonBox;
class QPushButton;
class QTableWidget;

namespace tavvel::gui {

// A learning window: a button press closes it with the action the button stands for.
class LearnDialog : public QDialog {
public:
    explicit LearnDialog(QWidget* parent) : QDialog(parent) {}
    LearnAction action() const { return action_; }

protected:
    QPushButton* addButton(QDialogButtonBox* box, const QString& title, LearnAction action);

private:
    LearnAction action_ = LearnAction::cancel;
};

// A table for the sample: as large as its cells, up to what fits beside the window's other
// parts; never edited.
void setUpPreview(QTableWidget& table);

// Fills the table with the rows of the sample; each column is headed by its number and, below
// it, its title when it has one.
void showPreview(QTableWidget& table, const PreviewTable& preview,
                 const std::vector<std::string>& titles = {});

// The byte of the statement text shown at this position of qt(text).
std::size_t byteOffset(std::string_view text, qsizetype position);

} // namespace tavvel::gui
