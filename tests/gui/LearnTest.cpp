// The windows of the learning dialogue: each shows its form model and forwards the user's
// selections and switches to it, and the learn action runs the dialogue from the main window.

#include "AnsweringDialogs.h"
#include "LearnDateDialog.h"
#include "LearnLayoutDialog.h"
#include "LearnQuestionDialog.h"
#include "LearnWidgets.h"
#include "MainWindow.h"
#include "app/Controller.h"
#include "app/StartUp.h"
#include "support/TestContext.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

namespace tavvel {

namespace {

// Selects the occurrence of the text in the view, counted from 0.
bool selectIn(QPlainTextEdit& view, const QString& text, int occurrence) {
    int at = -1;
    for (int i = 0; i <= occurrence; ++i) {
        at = view.toPlainText().indexOf(text, at + 1);
        if (at < 0)
            return false;
    }
    QTextCursor cursor = view.textCursor();
    cursor.setPosition(at);
    cursor.setPosition(at + static_cast<int>(text.size()), QTextCursor::KeepAnchor);
    view.setTextCursor(cursor);
    return true;
}

PreviewTable sampleTable() {
    PreviewTable table;
    table.rows = {{"01/02/2024", "ACME PAYROLL", "2,150.00"},
                  {"01/04/2024", "CITY WATER", "-63.18"}};
    table.columns = 3;
    return table;
}

QPushButton* button(QWidget& dialog, const char* name) {
    return dialog.findChild<QPushButton*>(QLatin1String(name));
}

} // namespace

class LearnTest : public QObject {
    Q_OBJECT

private slots:
    void learnActionSelectsTheDateAndReachesTheLayoutForm() {
        test::TestContext t;
        test::AnsweringDialogs dialogs(t.ctx.prefs);
        dialogs.otherwise(test::pressDefault);
        awakeFromNib(t.ctx, dialogs);
        dialogs.otherwise({});
        gui::MainWindow window(t.ctx, dialogs);
        QVERIFY(window.openFile(QStringLiteral(TAVVEL_SOURCE_DIR "/examples/web-page.txt")));
        QVERIFY(!window.learnAction()->isEnabled());
        auto* name = window.findChild<QComboBox*>(QStringLiteral("inputFormat"));
        QVERIFY(name);
        QTest::keyClicks(name->lineEdit(), QStringLiteral("Summit"));
        QVERIFY(window.learnAction()->isEnabled());

        QString dateTitle, datePicked;
        bool layoutReached = false;
        dialogs.then([&](QDialog& d) {
            dateTitle = d.windowTitle();
            auto* view = d.findChild<QPlainTextEdit*>(QStringLiteral("dateView"));
            if (!view || !selectIn(*view, QStringLiteral("01/05/2024"), 0))
                return -1;
            datePicked = view->textCursor().selectedText();
            return test::press(d, QStringLiteral("OK"));
        });
        dialogs.then([&](QDialog& d) {
            layoutReached = dynamic_cast<gui::LearnLayoutDialog*>(&d) != nullptr;
            return test::press(d, QStringLiteral("Cancel"));
        });
        window.learnAction()->trigger();

        QCOMPARE(dialogs.unexpected, QStringList());
        QCOMPARE(dateTitle, QStringLiteral("Create Input Format: Summit"));
        QCOMPARE(datePicked, QStringLiteral("01/05/2024"));
        QVERIFY(layoutReached);
        QVERIFY(dialogs.done());
        QCOMPARE(window.controller().form().inputFormatName, std::string("Summit"));
    }

    void dateFormForwardsSelectionsAndSwitches() {
        LearnDateForm form;
        form.title = "Create Input Format: Bank";
        form.matchView = "Caf\xE9 Bank\r\n01/02/2024 Rent\r\n01/03/2024 Food\r\n";
        form.dateView = form.matchView.substr(form.matchView.find("01/02"));
        gui::LearnDateDialog dialog(form, nullptr);
        auto* date = dialog.findChild<QPlainTextEdit*>(QStringLiteral("dateView"));
        auto* match = dialog.findChild<QPlainTextEdit*>(QStringLiteral("matchView"));
        QVERIFY(date && match);
        QVERIFY(selectIn(*date, QStringLiteral("01/03/2024"), 0));
        QCOMPARE(form.selectedDate(), std::string_view("01/03/2024"));
        // A Windows-1252 byte and the CR LF pairs shown as single characters still map back
        QVERIFY(selectIn(*match, QStringLiteral("Bank"), 0));
        QCOMPARE(form.selectedMatch(), std::string_view("Bank"));
        QVERIFY(selectIn(*match, QStringLiteral("Food"), 0));
        QCOMPARE(form.selectedMatch(), std::string_view("Food"));
        date->moveCursor(QTextCursor::End);
        QVERIFY(!form.dateSelection);

        dialog.findChild<QCheckBox*>(QStringLiteral("dayBeforeMonth"))->click();
        dialog.findChild<QCheckBox*>(QStringLiteral("firstLineStartsWithDate"))->click();
        QVERIFY(form.dayBeforeMonth && form.firstLineStartsWithTransactionDate);
        auto* type = dialog.findChild<QComboBox*>(QStringLiteral("statementType"));
        QCOMPARE(type->count(), 3);
        type->setFocus();
        QTest::keyClick(type, Qt::Key_Down);
        QCOMPARE(form.typeIndex, std::size_t(1));
    }

    void byteOffsetsFollowTheShownText() {
        QCOMPARE(gui::byteOffset("ab\r\ncd", 3), std::size_t(4));
        QCOMPARE(gui::byteOffset("\xE2\x82\xAC"
                                 "x",
                                 1),
                 std::size_t(3)); // UTF-8 euro sign
        QCOMPARE(gui::byteOffset("\xF0\x9F\x98\x80"
                                 "x",
                                 2),
                 std::size_t(4)); // a surrogate pair
        QCOMPARE(gui::byteOffset("\x80"
                                 "x",
                                 1),
                 std::size_t(1)); // Windows-1252 euro sign
        QCOMPARE(gui::byteOffset("ab", 9), std::size_t(2));
    }

    void layoutPreviewFollowsTheChosenLayout() {
        LearnLayoutForm form;
        form.title = "Create Bank Input Format: Bank";
        std::vector<LayoutChoice> asked;
        form.rebuild = [&](const LayoutChoice& layout) {
            asked.push_back(layout);
            PreviewTable table;
            table.columns = static_cast<std::size_t>(layout.choice) + 1;
            table.rows.assign(layout.oneTransactionPerLine ? 4 : 2,
                              std::vector<std::string>(table.columns, "cell"));
            return table;
        };
        form.refresh();
        gui::LearnLayoutDialog dialog(form, nullptr);
        auto* preview = dialog.findChild<QTableWidget*>(QStringLiteral("preview"));
        auto* layout = dialog.findChild<QComboBox*>(QStringLiteral("layout"));
        QVERIFY(preview && layout);
        QCOMPARE(preview->columnCount(), 1);
        QCOMPARE(layout->count(), 8);
        layout->setFocus();
        QTest::keyClick(layout, Qt::Key_End); // the last layout: semicolons
        QCOMPARE(form.layout.choice, 7);
        QCOMPARE(preview->columnCount(), 8);
        QCOMPARE(preview->horizontalHeaderItem(7)->text(), QStringLiteral("8"));
        dialog.findChild<QCheckBox*>(QStringLiteral("oneTransactionPerLine"))->click();
        QCOMPARE(preview->rowCount(), 4);
        dialog.findChild<QCheckBox*>(QStringLiteral("nonUScharacters"))->click();
        QVERIFY(asked.back().nonUScharacters && asked.back().oneTransactionPerLine);

        QVERIFY(button(dialog, "back"));
        button(dialog, "back")->click();
        QCOMPARE(dialog.action(), LearnAction::back);
    }

    void questionFormForwardsColumnAndCellText() {
        LearnQuestionForm form;
        form.title = "Create Bank Input Format: Bank";
        form.prompt = "Select the column of the amount.";
        form.table = sampleTable();
        form.columnTitles = {"Date", "", ""};
        form.expectsColumn = true;
        gui::LearnQuestionDialog dialog(form, nullptr);
        dialog.show();
        auto* table = dialog.findChild<QTableWidget*>(QStringLiteral("sample"));
        QVERIFY(table);
        QCOMPARE(table->horizontalHeaderItem(0)->text(), QStringLiteral("1\nDate"));
        QCOMPARE(dialog.findChild<QLabel*>(QStringLiteral("prompt"))->text(),
                 QStringLiteral("Select the column of the amount."));
        QVERIFY(button(dialog, "ok")->isVisible() && !button(dialog, "yes")->isVisible());

        const QRect cell = table->visualItemRect(table->item(1, 2));
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, cell.center());
        QCOMPARE(form.selectedColumn, std::optional<std::size_t>(2));
        auto* text = dialog.findChild<QLineEdit*>(QStringLiteral("cellText"));
        QCOMPARE(text->text(), QStringLiteral("-63.18"));
        text->setSelection(0, 1);
        QVERIFY(form.selectedText);
        QCOMPARE(form.selectedText->text, std::string("-"));
        QCOMPARE(form.selectedText->row, std::size_t(1));
        QCOMPARE(form.selectedText->column, std::size_t(2));

        button(dialog, "ok")->click();
        QCOMPARE(dialog.action(), LearnAction::ok);
    }

    void questionButtonsAndSecurityFollowTheModel() {
        LearnQuestionForm form;
        form.table = sampleTable();
        form.columnTitles = {"", "", ""};
        form.answersYesNo = true;
        {
            gui::LearnQuestionDialog dialog(form, nullptr);
            dialog.show();
            QVERIFY(button(dialog, "yes")->isVisible() && button(dialog, "no")->isVisible());
            QVERIFY(!button(dialog, "ok")->isVisible());
            button(dialog, "no")->click();
            QCOMPARE(dialog.action(), LearnAction::no);
        }
        form.answersYesNo = false;
        form.securityVisible = true;
        form.okEnabled = false;
        gui::LearnQuestionDialog dialog(form, nullptr);
        dialog.show();
        auto* security = dialog.findChild<QLineEdit*>(QStringLiteral("security"));
        QVERIFY(security->isVisible());
        QVERIFY(!button(dialog, "ok")->isEnabled());
        QTest::keyClicks(security, QStringLiteral("ACME"));
        QCOMPARE(form.securityText, std::string("ACME"));
        QVERIFY(button(dialog, "ok")->isEnabled());
        button(dialog, "cancel")->click();
        QCOMPARE(dialog.action(), LearnAction::cancel);
    }
};

} // namespace tavvel

QTEST_MAIN(tavvel::LearnTest)
#include "LearnTest.moc"
