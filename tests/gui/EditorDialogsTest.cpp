// The output format and instruction editors as dialogs: each widget forwards to its form
// model, the preview and the warnings follow at once, Save stores and Cancel leaves the store
// as it was.

#include "AnsweringDialogs.h"
#include "InstructionDialogs.h"
#include "OutputFormatDialog.h"
#include "formats/OutputFormatStore.h"
#include "knowledge/Instructions.h"
#include "prefs/Settings.h"
#include "support/TestContext.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTableView>
#include <QTest>

namespace tavvel {

class EditorDialogsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<test::TestContext> t;
    TvPrefs& prefs() { return t->ctx.prefs; }

    static Dictionary payee(const char* match, const char* category) {
        return Dictionary{{"descriptionMatch", Value(match)}, {"category", Value(category)}};
    }

    static void checkPairs(const QStringList& seen) {
        QVERIFY(!seen.isEmpty());
        for (int i = 0; i + 1 < seen.size(); i += 2)
            QCOMPARE(seen[i], seen[i + 1]);
    }

private slots:
    void init() {
        t = std::make_unique<test::TestContext>();
        prefs().setObject(prefkey::DescriptionOutput, Value("%d"));
        prefs().setObject(prefkey::MemoOutput, Value("%m"));
    }

    void outputFormatColumnsTickAndDragWithALivePreview() {
        test::AnsweringDialogs dialogs(prefs());
        QStringList seen; // what the dialog showed, each beside what it should be
        gui::OutputFormatListDialog list(t->ctx, dialogs, nullptr);
        QCOMPARE(list.names()->count(), 1); // QIF alone
        dialogs.then([&seen](QDialog& d) -> int {
            auto& dialog = static_cast<gui::OutputFormatDialog&>(d);
            seen << (dialog.windowTitle()) << (QStringLiteral("Define Format"));
            seen << (dialog.confirmButton()->text()) << (QStringLiteral("Create Output Format"));
            auto* name = dialog.findChild<QLineEdit*>();
            name->clear();
            QTest::keyClicks(name, QStringLiteral("Ledger"));
            QListWidget* columns = dialog.columns();
            columns->item(1)->setCheckState(Qt::Unchecked); // Number
            // A drag ends as a move of the model's row; Memo to the front.
            columns->model()->moveRow(QModelIndex(), 5, QModelIndex(), 0);
            auto* separator = dialog.findChildren<QComboBox*>()[1];
            separator->setCurrentText(QStringLiteral("Tab"));
            seen << (dialog.preview()->toPlainText().section('\n', 0, 0))
                 << (QStringLiteral(
                        "Weekly shop\t01/15/2024\tCITY MARKET\tFood:Groceries\t-54.20"));
            dialog.confirmButton()->click();
            return dialog.result();
        });
        QVERIFY(list.editFormat({}));
        QCOMPARE(list.names()->item(0)->text(), QStringLiteral("Ledger"));
        Dictionary stored = *outputFormatNamed(prefs(), "Ledger");
        QCOMPARE(QString::fromStdString(find(stored, "Order")->array()[0].text()),
                 QStringLiteral("Memo"));
        QCOMPARE(QString::fromStdString(textOf(stored, "Separator")), QStringLiteral("Tab"));

        const Value before = *prefs().objectForKey(prefkey::OutputFormats);
        dialogs.then([&seen](QDialog& d) -> int {
            auto& dialog = static_cast<gui::OutputFormatDialog&>(d);
            seen << (dialog.windowTitle()) << (QStringLiteral("Edit Output Format: Ledger"));
            for (int row = 0; row < dialog.columns()->count(); ++row)
                dialog.columns()->item(row)->setCheckState(Qt::Unchecked);
            dialog.confirmButton()->click(); // refused: nothing to write
            auto* problem = dialog.findChild<QLabel*>(QStringLiteral("problem"));
            seen << (problem->text()) << (QStringLiteral("Tick at least one column to write."));
            dialog.reject();
            return dialog.result();
        });
        QVERIFY(!list.editFormat(QStringLiteral("Ledger")));
        QCOMPARE(*prefs().objectForKey(prefkey::OutputFormats), before);
        checkPairs(seen);
        QVERIFY(dialogs.unexpected.isEmpty());
    }

    void instructionFormWarnsWhileTypingAndSavesThroughTheList() {
        Instructions instructions(prefs());
        prefs().setObject(prefkey::Categories, Value(Array{Value("Food")}));
        instructions.setInstruction(payee("ACME STORE", "Food"));
        instructions.setInstruction(payee("BAKERY", "Food"));
        test::AnsweringDialogs dialogs(prefs());
        QStringList seen; // what the dialog showed, each beside what it should be
        gui::InstructionListDialog list(prefs(), dialogs, nullptr);
        QCOMPARE(list.table()->model()->rowCount(), 2);
        QTest::keyClicks(list.searchField(), QStringLiteral("bak"));
        QCOMPARE(list.table()->model()->rowCount(), 1);

        dialogs.then([&seen](QDialog& d) -> int {
            auto& dialog = static_cast<gui::InstructionDialog&>(d);
            seen << (dialog.windowTitle()) << (QStringLiteral("Edit Instruction"));
            QLineEdit* match = dialog.matchField();
            match->selectAll();
            QTest::keyClicks(match, QStringLiteral("ACME STORE"));
            seen << (dialog.warningLine()->text())
                 << (QStringLiteral("WARNING: An instruction with the above match already "
                                    "exists.  If you save changes it will be replaced."));
            dialog.categoryField()->selectAll();
            QTest::keyClicks(dialog.categoryField(), QStringLiteral("Bread:"));
            auto* note = dialog.findChild<QLabel*>(QStringLiteral("categoryNote"));
            seen << (note->text()) << (QStringLiteral("WARNING: a category cannot end with a :"));
            QTest::keyClick(dialog.categoryField(), Qt::Key_Backspace);
            seen << (note->text()) << (QStringLiteral("NEW Category Above"));
            dialog.saveButton()->click();
            return dialog.result();
        });
        QVERIFY(list.editRow(0));
        QCOMPARE(list.table()->model()->rowCount(), 0); // "bak" no longer stands in it
        list.searchField()->clear();
        QCOMPARE(list.table()->model()->rowCount(), 1);
        QCOMPARE(list.table()->model()->index(0, 2).data().toString(), QStringLiteral("Bread"));
        QVERIFY(prefs().listHolds(prefkey::Categories, "Bread"));
        checkPairs(seen);
        QVERIFY(dialogs.unexpected.isEmpty());
    }

    void openedForATransactionSavingNeedsAMatchingText() {
        Instructions(prefs()).setInstruction(payee("ACME STORE", "Food"));
        test::AnsweringDialogs dialogs(prefs());
        QStringList seen; // what the dialog showed, each beside what it should be
        const Value before = *prefs().objectForKey(prefkey::Instructions);
        dialogs.then([&seen](QDialog& d) -> int {
            auto& dialog = static_cast<gui::InstructionDialog&>(d);
            QTest::keyClick(dialog.matchField(), Qt::Key_End);
            for (int i = 0; i < 5; ++i)
                QTest::keyClick(dialog.matchField(), Qt::Key_Backspace);
            QTest::keyClicks(dialog.matchField(), QStringLiteral("SHOP"));
            seen << QString::number((!dialog.saveButton()->isEnabled()) ? 1 : 0)
                 << QStringLiteral("1");
            seen << (dialog.warningLine()->text())
                 << (QStringLiteral("WARNING: the string above no longer matches the "
                                    "description.  The instruction cannot be saved."));
            dialog.reject();
            return dialog.result();
        });
        QVERIFY(!gui::editMatchedInstruction(prefs(), dialogs, "ACME STORE", "ACME STORE 123",
                                             nullptr));
        QCOMPARE(*prefs().objectForKey(prefkey::Instructions), before);
        checkPairs(seen);
    }
};

} // namespace tavvel

QTEST_MAIN(tavvel::EditorDialogsTest)
#include "EditorDialogsTest.moc"
