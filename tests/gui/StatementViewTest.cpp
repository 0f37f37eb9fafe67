// The statement table beside the run form: filled when a statement is read, filtered live by
// the run form, error records marked, and a reading that can be cancelled without a trace.

#include "StatementView.h"

#include "AnsweringDialogs.h"
#include "MainWindow.h"
#include "RunFormView.h"
#include "StatementLoader.h"
#include "app/Controller.h"
#include "knowledge/Categories.h"
#include "knowledge/Instructions.h"
#include "knowledge/KnowledgeKeys.h"
#include "support/TestContext.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>
#include <fstream>

namespace tavvel {

class StatementViewTest : public QObject {
    Q_OBJECT

    std::unique_ptr<test::TestContext> t;
    std::unique_ptr<test::AnsweringDialogs> dialogs;
    std::unique_ptr<gui::MainWindow> window;

    static QString sample() { return QStringLiteral(TAVVEL_SOURCE_DIR "/examples/checking.ofx"); }

    template <class Widget> Widget* child(const char* name) {
        auto* found = window->findChild<Widget*>(QLatin1String(name));
        if (!found)
            qFatal("no widget named %s", name);
        return found;
    }

    gui::StatementView& view() { return window->statement(); }

    // The table as the user sees it, one line per row.
    QString shown() {
        QAbstractItemModel* model = view().table().model();
        QStringList lines;
        for (int row = 0; row < model->rowCount(); ++row) {
            QStringList cells;
            for (int column = 0; column < model->columnCount(); ++column)
                cells << model->index(row, column).data().toString();
            lines << cells.join(QLatin1Char('|'));
        }
        return lines.join(QLatin1Char('\n'));
    }

    void openAndWait(const QString& path) {
        QSignalSpy finished(&view().loader(), &gui::StatementLoader::finished);
        QVERIFY(window->openFile(path));
        QVERIFY(finished.wait(5000));
    }

    QString writeStatement(const std::string& text) {
        auto path = t->folder.path() / "statement.ofx";
        std::ofstream(path, std::ios::binary) << text;
        return QString::fromStdString(path.string());
    }

private slots:
    void init() {
        t = std::make_unique<test::TestContext>();
        Categories(t->ctx.prefs).createEmpty();
        Instructions(t->ctx.prefs)
            .setInstruction({{std::string(ikey::descriptionMatch), Value("CORNER GROCERY")},
                             {std::string(ikey::category), Value("Food:Groceries")}});
        dialogs = std::make_unique<test::AnsweringDialogs>(t->ctx.prefs);
        window = std::make_unique<gui::MainWindow>(t->ctx, *dialogs);
        window->show();
    }

    void cleanup() {
        QVERIFY2(dialogs->unexpected.isEmpty(), qPrintable(dialogs->unexpected.join(", ")));
        window.reset();
        dialogs.reset();
        t.reset();
    }

    void tableFollowsTheRunFormLive() {
        openAndWait(sample());
        QCOMPARE(view().table().model()->rowCount(), 7);
        QCOMPARE(shown().section(QLatin1Char('\n'), 0, 0),
                 QStringLiteral("11/3/2025|-42.17|1041|CORNER GROCERY #12|Weekly shop|"
                                "Food:Groceries"));
        QString all = view().summary().text();
        view().table().selectRow(4);
        window->runForm().refresh(); // shown afresh, nothing the table follows changed
        QCOMPARE(view().table().currentIndex().row(), 4);

        child<QRadioButton>("range2")->click();
        child<QLineEdit>("dateFrom")->clear();
        QTest::keyClicks(child<QLineEdit>("dateFrom"), QStringLiteral("11/7/2025"));
        child<QLineEdit>("dateTo")->clear();
        QTest::keyClicks(child<QLineEdit>("dateTo"), QStringLiteral("11/9/2025"));
        child<QCheckBox>("sameDate")->click();
        child<QLineEdit>("outputDate")->clear();
        QTest::keyClicks(child<QLineEdit>("outputDate"), QStringLiteral("12/1/2025"));
        QCOMPARE(shown(),
                 QStringLiteral("12/1/2025|-120.00|TR88213|TRANSFER TO SAVINGS|Online banking|\n"
                                "12/1/2025|-63.45||CITY POWER & LIGHT|Account 55-1023|"));
        QCOMPARE(view().summary().text(),
                 QStringLiteral("2 transactions to be written, totalling -183.45."));

        child<QRadioButton>("range0")->click();
        QCOMPARE(view().table().model()->rowCount(), 7);
        QCOMPARE(view().summary().text(), all);
    }

    void errorRecordsStandOutWithTheirMessage() {
        openAndWait(writeStatement(
            "OFXHEADER:100\n<OFX><BANKMSGSRSV1><STMTRS><BANKACCTFROM><ACCTID>1</BANKACCTFROM>\n"
            "<STMTTRN><DTPOSTED>20240105<NAME>NO AMOUNT</STMTTRN>\n"
            "<STMTTRN><DTPOSTED>20240106<TRNAMT>3.10<NAME>KIOSK</STMTTRN>\n"
            "</STMTRS></BANKMSGSRSV1></OFX>\n"));
        QAbstractItemModel* model = view().table().model();
        QCOMPARE(model->index(0, 3).data().toString(),
                 QStringLiteral("The following OFX transaction has no amount; it cannot be "
                                "processed: "));
        QVERIFY(model->index(0, 0).data(Qt::BackgroundRole).isValid());
        QVERIFY(!model->index(1, 0).data(Qt::BackgroundRole).isValid());
        QCOMPARE(view().summary().text(),
                 QStringLiteral("1 transaction to be written, totalling 3.10. 1 record cannot be "
                                "read."));
    }

    // A cancelled reading leaves nothing behind: its rows never arrive, not even once the next
    // reading has delivered its own.
    void cancelledReadingLeavesNoRows() {
        std::string big = "OFXHEADER:100\n<OFX><BANKMSGSRSV1><STMTRS>\n";
        for (int i = 0; i < 20000; ++i)
            big += "<STMTTRN><DTPOSTED>20240105<TRNAMT>1.00<NAME>SHOP</STMTTRN>\n";
        QSignalSpy cancelled(&view().loader(), &gui::StatementLoader::cancelled);
        QVERIFY(window->openFile(writeStatement(big + "</STMTRS></BANKMSGSRSV1></OFX>\n")));
        QVERIFY(view().loader().busy());
        view().cancelButton().click();
        QCOMPARE(cancelled.count(), 1);
        QCOMPARE(view().table().model()->rowCount(), 0);
        QCOMPARE(view().summary().text(),
                 QStringLiteral("Reading the statement was cancelled; the table is empty, and "
                                "nothing was written."));
        QVERIFY(!view().progress().isVisible());

        QSignalSpy finished(&view().loader(), &gui::StatementLoader::finished);
        view().load();
        QVERIFY(finished.wait(5000));
        QCoreApplication::processEvents();
        QCOMPARE(finished.count(), 1);
        QCOMPARE(view().table().model()->rowCount(), 20000);
    }

    void readingShowsItsProgressAfterAWhile() {
        QVERIFY(window->openFile(sample()));
        QCOMPARE(view().summary().text(), QStringLiteral("Reading the statement…"));
        QVERIFY(!view().progress().isVisible());
        QSignalSpy finished(&view().loader(), &gui::StatementLoader::finished);
        QVERIFY(finished.wait(5000));
        QVERIFY(!view().progress().isVisible());
    }
};

} // namespace tavvel

QTEST_MAIN(tavvel::StatementViewTest)
#include "StatementViewTest.moc"
