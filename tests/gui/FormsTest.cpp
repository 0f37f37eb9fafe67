// The conversion forms show their models and forward every edit: the confirmation form, the
// new-instruction form with its split tables, and the cancel question and error warning.

#include "AnsweringDialogs.h"
#include "ConfirmDialog.h"
#include "NewInstructionDialog.h"
#include "forms/ConfirmForm.h"
#include "forms/NewInstructionForm.h"
#include "knowledge/Categories.h"
#include "support/TestContext.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

namespace tavvel {

class FormsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<test::TestContext> t;

    TvPrefs& prefs() { return t->ctx.prefs; }

    ConfirmForm::Setup confirmSetup() {
        ConfirmForm::Setup setup;
        setup.recordDate = setup.date = "11/3/2025";
        setup.datePattern = "M/d/yyyy";
        setup.amount = "-42.17";
        setup.description = "CORNER GROCERY #12";
        setup.memo = "Weekly shop";
        return setup;
    }

    NewInstructionForm::Setup instructionSetup() {
        NewInstructionForm::Setup setup;
        setup.amount = "-42.17";
        setup.prompt = "How should these be handled?";
        setup.description = "CORNER GROCERY";
        setup.transaction = Dictionary{{"date", Value(std::string("11/3/2025"))}};
        return setup;
    }

    template <class Widget> static Widget* child(QObject& parent, const char* name) {
        auto* found = parent.findChild<Widget*>(QLatin1String(name));
        if (!found)
            qFatal("no widget named %s", name);
        return found;
    }

private slots:
    void init() {
        t = std::make_unique<test::TestContext>();
        Categories categories(prefs());
        categories.setCategoriesArray(
            {Value(std::string("Groceries")), Value(std::string("Utilities"))});
    }

    void confirmFormShowsItsModel() {
        ConfirmForm form(prefs());
        form.fill(confirmSetup());
        gui::ConfirmDialog dialog(form, prefs(), nullptr);
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Confirm Transaction"));
        QCOMPARE(child<QLabel>(dialog, "prompt")->text(), QString::fromStdString(form.prompt()));
        QCOMPARE(child<QLabel>(dialog, "amount")->text(), QStringLiteral("-42.17"));
        QCOMPARE(child<QLineEdit>(dialog, "description")->text(),
                 QStringLiteral("CORNER GROCERY #12"));
        QCOMPARE(child<QLineEdit>(dialog, "memo")->text(), QStringLiteral("Weekly shop"));
        QVERIFY(child<QPushButton>(dialog, "splitsButton")->isVisibleTo(&dialog));
    }

    void typingANewCategoryShowsTheWarning() {
        ConfirmForm form(prefs());
        form.fill(confirmSetup());
        gui::ConfirmDialog dialog(form, prefs(), nullptr);
        auto* category = child<QLineEdit>(dialog, "category");
        auto* warning = child<QLabel>(dialog, "categoryWarning");

        QTest::keyClicks(category, "Pets");
        QCOMPARE(form.category(), std::string("Pets"));
        QCOMPARE(warning->text(), QStringLiteral("NEW Category Above"));

        category->clear();
        QTest::keyClicks(category, "gro");
        QCOMPARE(category->text(), QStringLiteral("Groceries"));
        QCOMPARE(category->selectedText(), QStringLiteral("ceries"));
        QCOMPARE(form.category(), std::string("Groceries"));
        QCOMPARE(warning->text(), QString());

        QTest::keyClick(category, Qt::Key_End);
        QTest::keyClick(category, ':');
        QCOMPARE(warning->text(), QStringLiteral("WARNING: a category cannot end with a :"));
    }

    void splitsButtonSwapsTheCategoryForTheTable() {
        ConfirmForm form(prefs());
        form.fill(confirmSetup());
        gui::ConfirmDialog dialog(form, prefs(), nullptr);
        auto* button = child<QPushButton>(dialog, "splitsButton");
        QCOMPARE(button->text(), QStringLiteral("Add Splits"));
        button->click();
        QCOMPARE(button->text(), QStringLiteral("Remove Splits"));
        auto* table = dialog.findChild<QTableWidget*>();
        QVERIFY(table->isVisibleTo(&dialog));
        QVERIFY(!child<QLineEdit>(dialog, "category")->isVisibleTo(&dialog));
        QCOMPARE(table->rowCount(), 2);
        QCOMPARE(table->item(0, 2)->text(), QStringLiteral("-42.17"));

        table->item(1, 0)->setText(QStringLiteral("Utilities"));
        QCOMPARE(textOf((*form.splits())[1].dictionary(), "category"), std::string("Utilities"));
    }

    void buttonsAnswerTheirActions() {
        struct Case {
            const char* button;
            ConfirmAction action;
        } cases[] = {{"OK", ConfirmAction::ok},
                     {"Skip", ConfirmAction::skip},
                     {"Skip Remaining", ConfirmAction::skipRemaining},
                     {"Cancel", ConfirmAction::cancel},
                     {"Add Instruction", ConfirmAction::addInstruction},
                     {"Swap Description and Memo", ConfirmAction::swapDescriptionAndMemo}};
        for (const Case& c : cases) {
            ConfirmForm form(prefs());
            form.fill(confirmSetup());
            gui::ConfirmDialog dialog(form, prefs(), nullptr);
            QVERIFY(test::press(dialog, QLatin1String(c.button)) >= 0);
            QCOMPARE(static_cast<int>(dialog.action()), static_cast<int>(c.action));
        }
    }

    void backFollowsTheForm() {
        ConfirmForm::Setup setup = confirmSetup();
        ConfirmForm form(prefs());
        form.fill(setup);
        gui::ConfirmDialog hidden(form, prefs(), nullptr);
        QPushButton* back = nullptr;
        for (auto* b : hidden.findChildren<QPushButton*>())
            if (b->text() == QLatin1String("Back"))
                back = b;
        QVERIFY(back && !back->isVisibleTo(&hidden));

        setup.mustConfirm = true;
        setup.backEnabled = false;
        form.fill(setup);
        gui::ConfirmDialog shown(form, prefs(), nullptr);
        for (auto* b : shown.findChildren<QPushButton*>())
            if (b->text() == QLatin1String("Back"))
                back = b;
        QVERIFY(back->isVisibleTo(&shown));
        QVERIFY(!back->isEnabled());
    }

    void matchFieldOnlyShortens() {
        NewInstructionForm form(prefs());
        form.fill(instructionSetup());
        gui::NewInstructionDialog dialog(form, prefs(), nullptr);
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Create New Instruction"));
        auto* match = child<QLineEdit>(dialog, "matchText");
        QCOMPARE(match->text(), QStringLiteral("CORNER GROCERY"));
        QCOMPARE(child<QLabel>(dialog, "matchLabel")->text(),
                 QStringLiteral("When a description starts with:"));

        match->end(false);
        QTest::keyClick(match, Qt::Key_X);
        QCOMPARE(match->text(), QStringLiteral("CORNER GROCERY"));
        QTest::keyClick(match, Qt::Key_Backspace);
        QCOMPARE(match->text(), QStringLiteral("CORNER GROCER"));
        QCOMPARE(form.matchText(), std::string("CORNER GROCER"));
    }

    void saveFollowsTheAmountPart() {
        NewInstructionForm form(prefs());
        form.fill(instructionSetup());
        gui::NewInstructionDialog dialog(form, prefs(), nullptr);
        auto* save = child<QPushButton>(dialog, "save");
        QVERIFY(save->isEnabled());
        child<QCheckBox>(dialog, "amountSwitch")->click();
        QVERIFY(form.amountSwitchOn());
        QVERIFY(!save->isEnabled());
        QTest::keyClicks(child<QLineEdit>(dialog, "amountDescription"), "Big shop");
        QCOMPARE(form.amountDescription(), std::string("Big shop"));
        QVERIFY(save->isEnabled());
    }

    void instructionCategoryAndSplitsAreBound() {
        NewInstructionForm form(prefs());
        form.fill(instructionSetup());
        gui::NewInstructionDialog dialog(form, prefs(), nullptr);
        QTest::keyClicks(child<QLineEdit>(dialog, "category"), "Toys");
        QCOMPARE(child<QLabel>(dialog, "categoryWarning")->text(),
                 QStringLiteral("NEW Category Above"));

        child<QPushButton>(dialog, "splitsButton")->click();
        const SplitTable& splits = form.splits(NewInstructionForm::Splits::instruction);
        QCOMPARE(splits.numberOfRows(), std::size_t{2});
        QTableWidget* table = nullptr;
        for (auto* candidate : dialog.findChildren<QTableWidget*>())
            if (candidate->isVisibleTo(&dialog))
                table = candidate;
        QVERIFY(table);
        QCOMPARE(table->rowCount(), 2);
        table->item(1, 2)->setText(QStringLiteral("-2.17"));
        QCOMPARE(splits.cellText(1, SplitColumn::amount), std::string("-2.17"));
        // The model balances the first split against the edit; the table shows what it holds.
        QCOMPARE(table->item(0, 2)->text(),
                 QString::fromStdString(splits.cellText(0, SplitColumn::amount)));
        QVERIFY(table->item(0, 2)->text() != QLatin1String("-42.17"));
    }

    void outputAsReadAndCancelAreActions() {
        NewInstructionForm form(prefs());
        form.fill(instructionSetup());
        gui::NewInstructionDialog asRead(form, prefs(), nullptr);
        test::press(asRead, QStringLiteral("Output As Read"));
        QCOMPARE(static_cast<int>(asRead.action()),
                 static_cast<int>(NewInstructionAction::useAsRead));
        gui::NewInstructionDialog save(form, prefs(), nullptr);
        QCOMPARE(test::press(save, QStringLiteral("Save")), int(QDialog::Accepted));
        QCOMPARE(static_cast<int>(save.action()), static_cast<int>(NewInstructionAction::save));
        gui::NewInstructionDialog cancel(form, prefs(), nullptr);
        QCOMPARE(test::press(cancel, QStringLiteral("Cancel")), int(QDialog::Rejected));
        QCOMPARE(static_cast<int>(cancel.action()), static_cast<int>(NewInstructionAction::cancel));
    }

    void sharedQuestionsAnswerWhatWasPressed() {
        test::AnsweringDialogs dialogs(prefs());
        QStringList shown;
        dialogs.then([&shown](QDialog& d) {
            auto* box = qobject_cast<QMessageBox*>(&d);
            shown << box->text();
            for (QAbstractButton* b : box->buttons())
                shown << b->text();
            shown << box->checkBox()->text();
            box->checkBox()->setChecked(true);
            return test::press(d, QStringLiteral("Finish Later"));
        });
        CancelAnswer cancel = dialogs.cancelQuestion();
        QCOMPARE(static_cast<int>(cancel.choice), static_cast<int>(CancelChoice::finishLater));
        QVERIFY(cancel.makePermanent);
        shown.sort();
        QCOMPARE(shown,
                 (QStringList{"Always do this without asking", "Finish Later", "Finish Now",
                              "Go On", "Stop now, or keep what is done so far to finish later?"}));

        QString checkText;
        dialogs.then([&checkText](QDialog& d) {
            auto* box = qobject_cast<QMessageBox*>(&d);
            if (!box->checkBox())
                return -1;
            checkText = box->checkBox()->text();
            box->checkBox()->setChecked(true);
            return test::pressDefault(d);
        });
        ErrorWarningAnswer warned =
            dialogs.errorWarning("Bad line: ", "xyz", "Skip Transaction", true);
        QVERIFY(warned.pressedButton);
        QVERIFY(warned.dontWarnAgain);
        QCOMPARE(checkText, QStringLiteral("Don't warn again for this input format"));

        dialogs.then([](QDialog& d) { return test::press(d, QStringLiteral("NO")); });
        QCOMPARE(dialogs.ask("Question", "Really?", {"YES", "NO"}), std::size_t{1});
        dialogs.then([](QDialog& d) {
            auto* box = qobject_cast<QMessageBox*>(&d);
            return box->defaultButton()->text() == QLatin1String("YES") ? test::pressDefault(d)
                                                                        : -1;
        });
        QCOMPARE(dialogs.ask("Question", "Really?", {"YES", "NO"}), std::size_t{0});
        QVERIFY(dialogs.unexpected.isEmpty());
    }

    void fileDialogsOfferTheExtensionsAndSuggestion() {
        test::AnsweringDialogs dialogs(prefs());
        QString filters, suggested, folder;
        dialogs.then([&](QDialog& d) {
            auto* files = qobject_cast<QFileDialog*>(&d);
            filters = files->nameFilters().join(QLatin1Char('|'));
            folder = files->directory().absolutePath();
            suggested = files->selectedFiles().value(0);
            return int(QDialog::Rejected);
        });
        QString start = QString::fromStdString(t->folder.path().string());
        auto chosen = dialogs.chooseFileToSave({{"qif"}, t->folder.path().string(), "Out.qif", ""});
        QVERIFY(!chosen);
        QCOMPARE(filters, QStringLiteral("*.qif"));
        QCOMPARE(folder, start);
        QVERIFY(suggested.endsWith(QLatin1String("/Out.qif")));
        QCOMPARE(gui::nameFiltersFor({"txt", ""}), QStringList{QStringLiteral("*.txt *")});
    }
};

} // namespace tavvel

QTEST_MAIN(tavvel::FormsTest)
#include "FormsTest.moc"
