#pragma once
// The instruction editor: the list of every instruction (a model/view table searched and
// sorted by the core's InstructionList, so that a hundred thousand rows stay responsive) and
// the form of one instruction bound to the core's InstructionEditor.

#include <QAbstractTableModel>
#include <QDialog>
#include <functional>
#include <memory>
#include <optional>
#include <string>

class QCheckBox;
class QDialogButtonBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace tavvel {
class Dialogs;
class InstructionEditor;
class InstructionList;
class TvPrefs;
} // namespace tavvel

namespace tavvel::gui {

class QtDialogs;
class SplitTableWidget;

class InstructionTableModel : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit InstructionTableModel(InstructionList& list, QObject* parent)
        : QAbstractTableModel(parent), list_(list) {}
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    // Sorting by the match or the category column (the others sort by match).
    void sort(int column, Qt::SortOrder order) override;
    // The list changed under the model (a search, an edit).
    void reset(const std::function<void()>& change);

private:
    InstructionList& list_;
};

class InstructionDialog : public QDialog {
    Q_OBJECT
public:
    InstructionDialog(InstructionEditor& editor, Dialogs& dialogs, QWidget* parent);

    QLineEdit* matchField() const { return match_; }
    QLineEdit* categoryField() const { return category_; }
    QLabel* warningLine() const { return warning_; }
    QPushButton* saveButton() const { return save_; }
    QPushButton* deleteButton() const { return delete_; }
    bool deleted() const { return deleted_; }

private:
    void buildAmountPart(QFormLayout* form);
    SplitTableWidget* splitTable();
    QDialogButtonBox* buildButtons();
    void connectFields();
    void refresh();
    void amountEdited();

    InstructionEditor& editor_;
    Dialogs& dialogs_;
    QLabel *matchLabel_, *help_, *warning_, *categoryNote_, *amountCategoryNote_;
    QLineEdit *match_, *description_, *memo_, *category_;
    QCheckBox *useDescription_, *useMemo_, *confirm_, *number_;
    QPushButton *splitsButton_, *save_, *delete_;
    SplitTableWidget* splits_;
    QLineEdit *amount_, *amountDescription_, *amountCategory_, *amountMemo_;
    QCheckBox *amountUseMemo_, *amountConfirm_;
    bool filling_ = false, deleted_ = false;
};

class InstructionListDialog : public QDialog {
    Q_OBJECT
public:
    InstructionListDialog(TvPrefs& prefs, QtDialogs& dialogs, QWidget* parent);
    ~InstructionListDialog() override;

    QTableView* table() const { return view_; }
    QLineEdit* searchField() const { return search_; }
    // Opens the form of the instruction in the row shown; true when something was stored.
    bool editRow(int row);

private:
    TvPrefs& prefs_;
    QtDialogs& dialogs_;
    std::unique_ptr<InstructionList> list_;
    InstructionTableModel* model_;
    QTableView* view_;
    QLineEdit* search_;
};

// Opens the form for the instruction with this match text, from the confirmation form of a
// transaction whose description the match must keep matching; true when it was saved.
bool editMatchedInstruction(TvPrefs& prefs, QtDialogs& dialogs, const std::string& match,
                            const std::string& description, QWidget* parent);

} // namespace tavvel::gui
