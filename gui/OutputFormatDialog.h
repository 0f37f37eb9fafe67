#pragma once
// The output format editor: the form of one output format (columns ticked and dragged into
// order, separator, type, amount style, splits, date pattern, and a live preview), and the
// list of output formats with new, edit, duplicate, delete, export and import.

#include "formats/OutputFormatForm.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

namespace tavvel {
class Context;
class Dialogs;
} // namespace tavvel

namespace tavvel::gui {

class QtDialogs;

class OutputFormatDialog : public QDialog {
    Q_OBJECT
public:
    OutputFormatDialog(OutputFormatForm& form, Context& ctx, Dialogs& dialogs, QWidget* parent);

    QListWidget* columns() const { return columns_; }
    QPlainTextEdit* preview() const { return preview_; }
    QPushButton* confirmButton() const { return confirm_; }

private:
    QFormLayout* buildFields();
    void connectFields();
    void refresh();
    void showPreview();
    void columnsReordered();
    void columnTicked(int row);
    void confirm();

    OutputFormatForm& form_;
    Context& ctx_;
    Dialogs& dialogs_;
    QLineEdit* name_;
    QComboBox *type_, *separator_, *amount_;
    QCheckBox *splits_, *reformat_;
    QLineEdit* pattern_;
    QListWidget* columns_;
    QPlainTextEdit* preview_;
    QLabel* problem_;
    QPushButton* confirm_;
    bool filling_ = false;
};

class OutputFormatListDialog : public QDialog {
    Q_OBJECT
public:
    OutputFormatListDialog(Context& ctx, QtDialogs& dialogs, QWidget* parent);

    QListWidget* names() const { return names_; }
    // Opens the form for a new format (no name) or the named one; true when it was saved.
    bool editFormat(const QString& name);

private:
    void refresh(const QString& select = {});
    QString selected() const;
    void duplicate();
    void remove();
    void exportSelected();
    void import();

    Context& ctx_;
    QtDialogs& dialogs_;
    QListWidget* names_;
};

} // namespace tavvel::gui
