#pragma once
// The list editors: an editable table each for accounts, categories, descriptions and
// securities (bound to the core's ListEditor and its TableEditor), and the input format list
// (bound to EditFormats).

#include <QDialog>

class QLabel;
class QPushButton;
class QTableWidget;

namespace tavvel {
class ListEditor;
class TableEditor;
class TvPrefs;
} // namespace tavvel

namespace tavvel::gui {

class QtDialogs;

class ListEditorDialog : public QDialog {
    Q_OBJECT
public:
    enum class List { accounts, categories, descriptions, securities, inputFormats };

    // Opens the editor of the list modally; OK stores the list.
    static void edit(List list, TvPrefs& prefs, QtDialogs& dialogs, QWidget* parent);

    ListEditorDialog(TableEditor& table, const QString& title, QWidget* parent);

    QTableWidget* table() const { return view_; }

private:
    void refresh();
    void showCell(int row, int column);
    void cellEdited(int row, int column);
    void chosen(int row, int column, int choice);

    TableEditor& table_;
    QTableWidget* view_;
    QLabel* message_;
    bool filling_ = false;
};

// The input formats: their names, the match text and "Warn" switch of each, duplicate and
// delete, and the lists of learned type and security mappings to delete from.
class FormatListDialog : public QDialog {
    Q_OBJECT
public:
    FormatListDialog(TvPrefs& prefs, QtDialogs& dialogs, QWidget* parent);

    QTableWidget* table() const { return view_; }

private:
    void refresh();
    void itemEdited(int row, int column);
    void trimMappings(bool types);

    TvPrefs& prefs_;
    QtDialogs& dialogs_;
    QTableWidget* view_;
    bool filling_ = false;
};

} // namespace tavvel::gui
