// Process Transactions runs on a thread of its own: the forms it opens are still shown on the
// window's thread and their answers reach the run, a cancelled run writes no output file, and
// the window's controls are held while it works and given back after.

#include "TransactionRun.h"

#include "AnsweringDialogs.h"
#include "ConfirmDialog.h"
#include "MainWindow.h"
#include "NewInstructionDialog.h"
#include "Text.h"
#include "app/AppTexts.h"
#include "app/Controller.h"
#include "app/StartUp.h"
#include "dialogs/DialogTexts.h"
#include "prefs/Files.h"
#include "prefs/Settings.h"
#include "support/TestContext.h"

#include <QFileDialog>
#include <QMenuBar>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

namespace tavvel {

namespace {

QString statement() {
    return QStringLiteral(TAVVEL_SOURCE_DIR "/examples/checking.ofx");
}

using gui::qt;

} // namespace

class TransactionRunTest : public QObject {
    Q_OBJECT

    std::unique_ptr<test::TestContext> t;
    std::unique_ptr<test::AnsweringDialogs> dialogs;
    std::unique_ptr<gui::MainWindow> window;
    QString output;
    QStringList finished;
    bool shownOffWindowThread = false;

    // Notes the closing message, and any form shown off the window's thread.
    int noted(QDialog& d) {
        shownOffWindowThread |= QThread::currentThread() != qApp->thread();
        if (d.windowTitle() == qt(text::finishedTitle))
            finished << qobject_cast<QMessageBox*>(&d)->text();
        return test::pressDefault(d);
    }

    // Processes the opened statement and waits for the run to end.
    bool process() {
        QSignalSpy ran(&window->run(), &gui::TransactionRun::finished);
        window->processTransactions();
        return window->run().busy() && ran.wait(60000);
    }

private slots:
    void init() {
        t = std::make_unique<test::TestContext>();
        dialogs = std::make_unique<test::AnsweringDialogs>(t->ctx.prefs);
        dialogs->otherwise(test::pressDefault); // the first start's questions
        awakeFromNib(t->ctx, *dialogs);
        window = std::make_unique<gui::MainWindow>(t->ctx, *dialogs);
        window->show();
        output = QString::fromStdString((t->folder.path() / "out.qif").string());
        finished.clear();
        shownOffWindowThread = false;
    }

    void cleanup() {
        window.reset();
        dialogs.reset();
        t.reset();
    }

    // Cancel pressed while the run waits on its save panel: the walk never starts, and the
    // file is not written; the window is held meanwhile, and given back after.
    void cancelledRunWritesNothing() {
        QVERIFY(window->openFile(statement()));
        bool heldWhileRunning = false;
        dialogs->then([&](QDialog& d) {
            heldWhileRunning = !window->menuBar()->isEnabled() && !window->openFile(statement()) &&
                               window->run().busy();
            window->run().cancelButton().click();
            return test::choosePath(d, output);
        });
        dialogs->otherwise([this](QDialog& d) { return noted(d); });

        QVERIFY(process());
        QVERIFY(heldWhileRunning);
        QVERIFY(!shownOffWindowThread);
        QCOMPARE(finished, QStringList{qt(text::noTransactionsOutput)});
        QVERIFY(!std::filesystem::exists(output.toStdString()));
        QVERIFY(!window->controller().processing());
        QVERIFY(window->menuBar()->isEnabled());
        QCOMPARE(dialogs->unexpected, QStringList());
    }

    // A window that goes while its run works ends the run first, showing none of its forms:
    // the save panel it would ask goes unanswered, and nothing is written.
    void windowGoingEndsItsRunFirst() {
        QVERIFY(window->openFile(statement()));
        dialogs->titles.clear();
        dialogs->otherwise([this](QDialog& d) { return test::choosePath(d, output); });
        window->processTransactions();
        QVERIFY(window->run().busy());
        window.reset();
        QCOMPARE(dialogs->titles, QStringList());
        QVERIFY(!std::filesystem::exists(output.toStdString()));
    }

    // A statement that runs by itself runs on the thread too, suggesting the name such runs
    // suggest, and writes every transaction.
    void automaticRunRunsOnTheThreadToo() {
        addOption(t->ctx.prefs, option::runAutomatically);
        QString suggested;
        dialogs->then([&](QDialog& d) {
            suggested = qobject_cast<QFileDialog*>(&d)->selectedFiles().value(0);
            return test::choosePath(d, output);
        });
        dialogs->otherwise([this](QDialog& d) { return noted(d); });
        QSignalSpy ran(&window->run(), &gui::TransactionRun::finished);

        QVERIFY(window->openFile(statement()));
        QVERIFY(window->run().busy());
        QVERIFY(ran.wait(60000));
        QVERIFY(!shownOffWindowThread);
        QVERIFY2(suggested.contains(QLatin1String("QIF Import ")), qPrintable(suggested));
        QCOMPARE(finished.size(), 1);
        QVERIFY2(finished.front().contains(QLatin1String("7 transactions output")),
                 qPrintable(finished.front()));
        QVERIFY(std::filesystem::exists(output.toStdString()));
    }

    // Every transaction confirmed: the first one skipped, the rest taken as shown. The forms'
    // answers, given on the window's thread, decide what the run writes.
    void formsAnswerTheRun() {
        QVERIFY(window->openFile(statement()));
        addOption(t->ctx.prefs, option::confirmAllTransactions);
        int confirmations = 0;
        dialogs->then([this](QDialog& d) { return test::choosePath(d, output); });
        dialogs->otherwise([&](QDialog& d) {
            if (dynamic_cast<gui::ConfirmDialog*>(&d))
                return test::press(d, qt(++confirmations == 1 ? text::skipButton : text::okButton));
            if (dynamic_cast<gui::NewInstructionDialog*>(&d))
                return test::press(d, QStringLiteral("Output As Read"));
            return noted(d);
        });

        QVERIFY(process());
        QVERIFY(!shownOffWindowThread);
        QCOMPARE(confirmations, 7);
        QCOMPARE(finished.size(), 1);
        QVERIFY2(finished.front().contains(QLatin1String("6 transactions output")),
                 qPrintable(finished.front()));
        auto written = readWholeFile(output.toStdString());
        QVERIFY(written);
        QCOMPARE(QString::fromStdString(*written).count(QLatin1String("\n^")), 6);
        QCOMPARE(dialogs->unexpected, QStringList());
    }
};

} // namespace tavvel

QTEST_MAIN(tavvel::TransactionRunTest)
#include "TransactionRunTest.moc"
