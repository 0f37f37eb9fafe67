#pragma once
// The list editors: an editable table each for accounts, categories, descriptions and
// securities (bound to the core's ListEditor and its TableEditor), and the input format list
// (bound to EditFormats).

#include <QDialog>

class QLabel;
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
    void cellEdited(int row, int column);

    TableEditor& table_;
    QTableWidget* view_;
    QLabel* message_;
    bool filling_ = false;
};

// The input formats: their names, the "Warn" switch of each, duplicate and delete.
class FormatListDialog : public QDialog {
    Q_OBJECT
public:
    FormatListDialog(TvPrefs& prefs, QWidget* parent);

    QTableWidget* table() const { return view_; }

private:
    void refresh();

    TvPrefs& prefs_;
    QTableWidget* view_;
    bool filling_ = false;
};

} // namespace tavvel::gui
