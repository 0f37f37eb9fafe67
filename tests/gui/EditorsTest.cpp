// The preferences dialog, the list editors and the rename form show their models and forward
// every event; OK stores, Cancel leaves the store as it was.

#include "AnsweringDialogs.h"
#include "ListEditorDialog.h"
#include "PreferencesDialog.h"
#include "forms/EditFormats.h"
#include "forms/ListEditors.h"
#include "knowledge/Accounts.h"
#include "knowledge/Categories.h"
#include "prefs/Settings.h"
#include "support/TestContext.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

namespace tavvel {

class EditorsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<test::TestContext> t;

    TvPrefs& prefs() { return t->ctx.prefs; }

    static QCheckBox* switchOf(QDialog& dialog, PreferencesForm::Switch which) {
        return dialog.findChild<QCheckBox*>(
            QStringLiteral("switch%1").arg(static_cast<int>(which)));
    }

    static QPushButton* button(QDialog& dialog, const QString& text) {
        for (auto* b : dialog.findChildren<QPushButton*>())
            if (b->text() == text)
                return b;
        return nullptr;
    }

private slots:
    void init() { t = std::make_unique<test::TestContext>(); }

    void preferenceSwitchesFollowTheForm() {
        using Switch = PreferencesForm::Switch;
        PreferencesForm form(prefs(), t->ctx.output);
        form.display();
        gui::PreferencesDialog dialog(form, nullptr);
        QCheckBox* append = switchOf(dialog, Switch::append);
        QCheckBox* showAll = switchOf(dialog, Switch::showAllAccountNames);
        QVERIFY(append && showAll);
        QCOMPARE(append->isChecked(), form.switchOn(Switch::append));
        QCOMPARE(showAll->isEnabled(), form.switchEnabled(Switch::showAllAccountNames));

        bool before = append->isChecked();
        append->click();
        QCOMPARE(form.switchOn(Switch::append), !before);
        QCOMPARE(showAll->isEnabled(), form.switchEnabled(Switch::showAllAccountNames));
        QCOMPARE(showAll->isEnabled(), !before);
    }

    void preferenceChoicesReachTheForm() {
        using Choice = PreferencesForm::Choice;
        PreferencesForm form(prefs(), t->ctx.output);
        form.display();
        gui::PreferencesDialog dialog(form, nullptr);
        auto* categories = dialog.findChild<QComboBox*>(
            QStringLiteral("choice%1").arg(static_cast<int>(Choice::categories)));
        QVERIFY(categories);
        QCOMPARE(categories->currentIndex(), form.chosen(Choice::categories));
        emit categories->activated(3);
        QCOMPARE(form.chosen(Choice::categories), 3);
        QCOMPARE(switchOf(dialog, PreferencesForm::Switch::updateCategoryWhenDescriptionChanged)
                     ->isEnabled(),
                 form.switchEnabled(PreferencesForm::Switch::updateCategoryWhenDescriptionChanged));
    }

    void preferencesCancelledWriteNothing() {
        test::AnsweringDialogs dialogs(prefs());
        dialogs.then([](QDialog& d) {
            switchOf(d, PreferencesForm::Switch::append)->click();
            return int(QDialog::Rejected);
        });
        bool before = optionOn(prefs(), option::append);
        gui::PreferencesDialog::edit(prefs(), t->ctx.output, dialogs, nullptr);
        QCOMPARE(optionOn(prefs(), option::append), before);

        dialogs.then([](QDialog& d) {
            switchOf(d, PreferencesForm::Switch::append)->click();
            return int(QDialog::Accepted);
        });
        gui::PreferencesDialog::edit(prefs(), t->ctx.output, dialogs, nullptr);
        QCOMPARE(optionOn(prefs(), option::append), !before);
    }

    void categoryEditorTableIsBoundAndRefusesWhatTheListRefuses() {
        Categories(prefs()).setCategoriesArray({Value(std::string("Food"))});
        test::AnsweringDialogs dialogs(prefs());
        dialogs.then([](QDialog& d) {
            auto* table = d.findChild<QTableWidget*>();
            if (!table || table->rowCount() != 1 || table->item(0, 0)->text() != "Food")
                return -1;
            button(d, QStringLiteral("Add"))->click();
            table->item(1, 0)->setText(QStringLiteral("[Savings]"));
            QCoreApplication::processEvents();
            // Refused: the row keeps its empty text and the message says why.
            if (table->item(1, 0)->text() != QString() ||
                d.findChild<QLabel*>(QStringLiteral("message"))->text().isEmpty())
                return -2;
            table->item(1, 0)->setText(QStringLiteral("Rent"));
            QCoreApplication::processEvents();
            return int(QDialog::Accepted);
        });
        gui::ListEditorDialog::edit(gui::ListEditorDialog::List::categories, prefs(), dialogs,
                                    nullptr);
        QVERIFY(dialogs.done());
        Array stored = Categories(prefs()).getCategoriesArray();
        QCOMPARE(stored.size(), std::size_t{2});
        QCOMPARE(stored[1].text(), std::string("Rent"));
    }

    // The type is a choice of its titles; a changed choice is stored as its type word and an
    // unchanged "Mutual" stays as it was.
    void accountEditorChoosesTheType() {
        Accounts(prefs()).setAccountsArray(
            {Value(Dictionary{{"Name", Value("Checking")}, {"Type", Value("Bank")}}),
             Value(Dictionary{{"Name", Value("Fund")}, {"Type", Value("Mutual")}})});
        test::AnsweringDialogs dialogs(prefs());
        QStringList headers, titles;
        int fundShows = -1;
        dialogs.then([&](QDialog& d) {
            auto* table = d.findChild<QTableWidget*>();
            for (int c = 0; c < table->columnCount(); ++c)
                headers << table->horizontalHeaderItem(c)->text();
            auto* checking = qobject_cast<QComboBox*>(table->cellWidget(0, 1));
            auto* fund = qobject_cast<QComboBox*>(table->cellWidget(1, 1));
            if (!checking || !fund)
                return -1;
            for (int i = 0; i < checking->count(); ++i)
                titles << checking->itemText(i);
            fundShows = fund->currentIndex();
            checking->setCurrentIndex(3);
            emit checking->activated(3);
            return int(QDialog::Accepted);
        });
        gui::ListEditorDialog::edit(gui::ListEditorDialog::List::accounts, prefs(), dialogs,
                                    nullptr);
        QCOMPARE(headers, (QStringList{"Name", "Type"}));
        QCOMPARE(titles, (QStringList{"Bank", "Credit Card", "Investment", "Other"}));
        QCOMPARE(fundShows, 2);
        QCOMPARE(Accounts(prefs()).typeForAccount("Checking"), std::string("Oth A"));
        QCOMPARE(Accounts(prefs()).typeForAccount("Fund"), std::string("Mutual"));
    }

    void formatListEditsMatchAndWarnAndDuplicates() {
        Formats(prefs()).addFormat(
            Dictionary{{"Name", Value("Visa")}, {"Match", Value("VISA STATEMENT")}});
        test::AnsweringDialogs dialogs(prefs());
        gui::FormatListDialog dialog(prefs(), dialogs, nullptr);
        QTableWidget* table = dialog.table();
        QCOMPARE(table->columnCount(), 3);
        QCOMPARE(table->horizontalHeaderItem(1)->text(), QStringLiteral("Match"));
        QCOMPARE(table->rowCount(), 1);
        QCOMPARE(table->item(0, 1)->text(), QStringLiteral("VISA STATEMENT"));
        QVERIFY(!(table->item(0, 0)->flags() & Qt::ItemIsEditable));
        table->item(0, 1)->setText(QStringLiteral("Visa Café"));
        QCOMPARE(EditFormats(prefs()).match(0), std::string("Visa Café"));
        QCOMPARE(table->item(0, 2)->checkState(), Qt::Checked);
        table->item(0, 2)->setCheckState(Qt::Unchecked);
        QVERIFY(!EditFormats(prefs()).warns(0));

        table->selectRow(0);
        button(dialog, QStringLiteral("Duplicate"))->click();
        QCOMPARE(table->rowCount(), 2);
        QCOMPARE(table->item(1, 1)->text(), QStringLiteral("Visa Café"));
        QCOMPARE(Formats(prefs()).numberOfFormats(), std::size_t{2});
    }

    // The learned mappings of the selected format: entries can be removed, nothing else.
    void formatListDeletesLearnedMappings() {
        auto mapping = [](const char* statement, const char* security) {
            return Value(
                Dictionary{{"formatName", Value(statement)}, {"quickenName", Value(security)}});
        };
        Formats(prefs()).addFormat(Dictionary{
            {"Name", Value("Broker")},
            {"SecurityMappings",
             Value(Array{mapping("ACME", "Acme Corp"), mapping("GLOBEX", "Globex Fund")})},
            {"TypeMappings", Value(Array{Value(Dictionary{{"formatType", Value("BUY")},
                                                          {"quickenType", Value(1)}})})}});
        test::AnsweringDialogs dialogs(prefs());
        QStringList headers;
        bool addShown = true, editable = true;
        dialogs.then([&](QDialog& d) {
            auto* table = d.findChild<QTableWidget*>();
            for (int c = 0; c < table->columnCount(); ++c)
                headers << table->horizontalHeaderItem(c)->text();
            addShown = button(d, QStringLiteral("Add"))->isVisibleTo(&d);
            editable = table->editTriggers() != QAbstractItemView::NoEditTriggers;
            if (table->rowCount() != 2 || table->item(1, 0)->text() != "GLOBEX")
                return -1;
            table->selectRow(0);
            button(d, QStringLiteral("Remove"))->click();
            return int(QDialog::Accepted);
        });
        QStringList typeHeaders;
        dialogs.then([&typeHeaders](QDialog& d) {
            auto* table = d.findChild<QTableWidget*>();
            for (int c = 0; c < table->columnCount(); ++c)
                typeHeaders << table->horizontalHeaderItem(c)->text();
            table->selectRow(0);
            button(d, QStringLiteral("Remove"))->click();
            return int(QDialog::Rejected);
        });
        gui::FormatListDialog dialog(prefs(), dialogs, nullptr);
        dialog.table()->selectRow(0);
        button(dialog, QStringLiteral("Delete Securities..."))->click();
        button(dialog, QStringLiteral("Delete Types..."))->click();
        QVERIFY(dialogs.done());
        QCOMPARE(dialogs.titles, (QStringList{"Delete Securities For Input Format: Broker",
                                              "Delete Types For Input Format: Broker"}));
        QCOMPARE(headers, (QStringList{"Statement Security", "Security"}));
        QCOMPARE(typeHeaders, (QStringList{"Statement Type", "Action", "Assumed Security"}));
        QVERIFY(!addShown);
        QVERIFY(!editable);
        EditFormats editor(prefs());
        Array left = editor.mappings(0, EditFormats::Mappings::Securities);
        QCOMPARE(left.size(), std::size_t{1});
        QCOMPARE(textOf(left[0].dictionary(), "formatName"), std::string("GLOBEX"));
        QCOMPARE(editor.mappings(0, EditFormats::Mappings::Types).size(), std::size_t{1});
    }

    void renameFormShowsTheDuplicateNoteAndOk() {
        test::AnsweringDialogs dialogs(prefs());
        RenameFormatForm form("Visa", [](std::string_view name) { return name == "Amex"; });
        bool noteShown = true, okWhileEmpty = true;
        dialogs.then([&](QDialog& d) {
            auto* name = d.findChild<QLineEdit*>(QStringLiteral("name"));
            auto* note = d.findChild<QLabel*>(QStringLiteral("duplicateNote"));
            noteShown = note->isVisibleTo(&d);
            name->clear();
            QTest::keyClicks(name, "Amex");
            if (!note->isVisibleTo(&d))
                return -1;
            name->selectAll();
            QTest::keyClick(name, Qt::Key_Delete);
            okWhileEmpty =
                d.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->isEnabled();
            QTest::keyClicks(name, "Visa Card");
            return int(QDialog::Accepted);
        });
        QVERIFY(dialogs.renameFormat(form));
        QVERIFY(!noteShown);
        QVERIFY(!okWhileEmpty);
        QCOMPARE(form.name(), std::string("Visa Card"));
    }
};

} // namespace tavvel

QTEST_MAIN(tavvel::EditorsTest)
#include "EditorsTest.moc"
