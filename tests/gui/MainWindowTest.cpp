// The main window shows the run form's state and forwards its events; files arrive from the
// open dialog and drops, the clipboard is noticed on activation, and the menus hold what the
// application offers.

#include "MainWindow.h"

#include "AnsweringDialogs.h"
#include "RunFormView.h"
#include "app/Controller.h"
#include "knowledge/Categories.h"
#include "knowledge/Formats.h"
#include "prefs/Settings.h"
#include "recognize/CalendarDate.h"
#include "support/TestContext.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

namespace tavvel {

class MainWindowTest : public QObject {
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

    QList<QString> actionTexts(QMenu* menu) {
        QList<QString> texts;
        for (QAction* action : menu->actions())
            if (!action->isSeparator())
                texts << action->text();
        return texts;
    }

    QMenu* menu(const QString& title) {
        for (QAction* action : window->menuBar()->actions())
            if (action->text() == title)
                return action->menu();
        return nullptr;
    }

private slots:
    void init() {
        t = std::make_unique<test::TestContext>();
        Categories(t->ctx.prefs).createEmpty();
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

    void openedStatementFillsTheRunForm() {
        QVERIFY(!window->runForm().isVisible());
        QVERIFY(window->openFile(sample()));
        QVERIFY(window->runForm().isVisible());
        QCOMPARE(child<QLabel>("inputFrom")->text(), QStringLiteral("checking.ofx"));
        QCOMPARE(child<QLabel>("accountType")->text(), QStringLiteral("Bank"));
        QVERIFY(child<QComboBox>("qfxType")->isVisible());
        QVERIFY(!child<QComboBox>("qifType")->isVisible());
        QVERIFY(!child<QComboBox>("inputFormat")->isVisible());
        QCOMPARE(child<QComboBox>("outputFormat")->currentText(), QStringLiteral("QIF"));
    }

    void processButtonFollowsTheForm() {
        window->openFile(sample());
        auto* process = child<QPushButton>("process");
        RunForm& form = window->controller().form();
        QCOMPARE(process->isEnabled(), form.processEnabled());
        QVERIFY(process->isEnabled());
        QCOMPARE(process->text(), QStringLiteral("Process Transactions"));

        child<QRadioButton>("range2")->click();
        QCOMPARE(form.whichTransactions, 2);
        auto* from = child<QLineEdit>("dateFrom");
        auto* to = child<QLineEdit>("dateTo");
        QVERIFY(from->isEnabled());
        from->setText(QStringLiteral("5/2/2024"));
        emit from->editingFinished();
        to->setText(QStringLiteral("5/1/2024"));
        emit to->editingFinished();
        QCOMPARE(form.dateFrom, std::string("5/2/2024"));
        QVERIFY(!form.processEnabled());
        QVERIFY(!process->isEnabled());
        QVERIFY(child<QLabel>("invalidRange")->isVisible());
        QCOMPARE(child<QLabel>("invalidRange")->text(), QStringLiteral("Invalid date range"));

        to->setText(QStringLiteral("5/9/24"));
        emit to->editingFinished();
        QCOMPARE(to->text(), QString::fromStdString(form.dateTo));
        QVERIFY(process->isEnabled());
        QVERIFY(!child<QLabel>("invalidRange")->isVisible());

        child<QRadioButton>("range0")->click();
        QVERIFY(!from->isEnabled());
    }

    void continueFromLastTimeSetsTheRange() {
        auto* action = window->findChild<QAction*>(QStringLiteral("continueFromLast"));
        QVERIFY(action && !action->isEnabled()); // no run form yet
        window->openFile(sample());
        Dictionary settings = t->ctx.prefs.objectForKey(prefkey::ControlSettings)->dictionary();
        settings.insert_or_assign("dateTo", Value(localMidnight(2024, 5, 20)));
        t->ctx.prefs.setObject(prefkey::ControlSettings, Value(settings));
        QVERIFY(action->isEnabled());
        action->trigger();
        QVERIFY(child<QRadioButton>("range2")->isChecked());
        QCOMPARE(child<QLineEdit>("dateFrom")->text(), QStringLiteral("5/21/2024"));
        QCOMPARE(child<QLineEdit>("dateTo")->text(), QStringLiteral("6/1/2024"));
        QVERIFY(child<QPushButton>("process")->isEnabled());
    }

    void sameDateAndNumberReachTheForm() {
        window->openFile(sample());
        RunForm& form = window->controller().form();
        child<QCheckBox>("sameNumber")->click();
        QTest::keyClicks(child<QLineEdit>("outputNumber"), "77");
        QVERIFY(form.sameNumber);
        QCOMPARE(form.outputNumber, std::string("77"));
    }

    void resumedRunShowsItsFixedSettingsReadOnly() {
        window->openFile(sample());
        RunForm& form = window->controller().form();
        const char* fixed[] = {"account",    "outputFormat", "sameDate",
                               "outputDate", "sameNumber",   "outputNumber"};
        for (const char* name : fixed)
            QVERIFY2(child<QWidget>(name)->isEnabled(), name);
        form.resuming = true;
        window->runForm().refresh();
        for (const char* name : fixed)
            QVERIFY2(!child<QWidget>(name)->isEnabled(), name);
        QVERIFY(child<QPushButton>("process")->isEnabled());
    }

    void fileOpenedDuringARunIsRefused() {
        QVERIFY(window->openFile(sample()));
        QVERIFY(!window->openFile(sample()));
        window->controller().applicationDidBecomeActive(std::nullopt);
        QVERIFY(window->openFile(sample()));
    }

    void droppedFileIsOpenedButNotDuringARun() {
        QMimeData mime;
        mime.setUrls({QUrl::fromLocalFile(sample())});
        auto drop = [&] {
            QDropEvent event(QPointF(5, 5), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(window.get(), &event);
            return event.isAccepted();
        };
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window.get(), &enter);
        QVERIFY(enter.isAccepted());
        QVERIFY(drop());
        QVERIFY(window->runForm().isVisible());
        QVERIFY(!drop());
    }

    void clipboardWithADateIsProcessedOnceAfterASecond() {
        QGuiApplication::clipboard()->setText(QStringLiteral("no date in here"));
        window->applicationActivated();
        QVERIFY(!window->clipboardTimer().isActive());

        QGuiApplication::clipboard()->setText(
            QStringLiteral("!Type:Bank\nD1/2/2024\nPSHOP\nT-1.00\n^\n"));
        window->applicationActivated();
        QTimer& timer = window->clipboardTimer();
        QVERIFY(timer.isActive());
        QVERIFY(timer.isSingleShot());
        QCOMPARE(timer.interval(), 1000);
        QVERIFY(!window->runForm().isVisible());
        timer.stop();
        window->processNoticedClipboard();
        QVERIFY(window->runForm().isVisible());
        QCOMPARE(child<QLabel>("inputFrom")->text(), QStringLiteral("Clipboard"));
    }

    void clipboardAlreadyProcessedIsLeftAlone() {
        const QString text = QStringLiteral("!Type:Bank\nD1/2/2024\nPSHOP\nT-1.00\n^\n");
        QGuiApplication::clipboard()->setText(text);
        window->controller().rememberProcessedClipboard(text.toStdString());
        window->applicationActivated();
        QVERIFY(!window->clipboardTimer().isActive());
    }

    void menusOfferFileEditAndPreferences() {
        QMenu* file = menu(QStringLiteral("&File"));
        QVERIFY(file);
        QCOMPARE(actionTexts(file),
                 (QList<QString>{"&Open…", "Open &Recent", "Process &Clipboard",
                                 "Continue from Where I Stopped &Last Time", "&Export Input Format",
                                 "&Import Input Format…", "&Quit"}));
        QCOMPARE(actionTexts(menu(QStringLiteral("&Edit"))),
                 (QList<QString>{"&Accounts", "&Categories", "&Descriptions", "&Securities",
                                 "&Input Formats", "&Output Formats…", "I&nstructions…"}));
        bool preferences = false;
        for (QAction* action : window->menuBar()->actions())
            preferences = preferences || action->text() == QLatin1String("&Preferences");
        QVERIFY(preferences);
    }

    void exportMenuListsTheStoredFormats() {
        Formats formats(t->ctx.prefs);
        formats.addFormat(Dictionary{{"Name", Value(std::string("Visa"))}});
        formats.addFormat(Dictionary{{"Name", Value(std::string("Amex"))}});
        QMenu* exportMenu = window->findChild<QMenu*>(QStringLiteral("exportMenu"));
        emit exportMenu->aboutToShow();
        QCOMPARE(actionTexts(exportMenu), (QList<QString>{"Amex", "Visa"}));
    }

    void openDialogCancelledStartsNothing() {
        QString filter;
        dialogs->then([&](QDialog& d) {
            filter = qobject_cast<QFileDialog*>(&d)->nameFilters().value(0);
            return int(QDialog::Rejected);
        });
        window->openWithDialog();
        QVERIFY(filter.contains(QLatin1String("*.ofx")));
        QVERIFY(filter.contains(QLatin1String("*.tvcn")));
        QVERIFY(!window->runForm().isVisible());
    }

    void clipboardWithoutTextIsRefusedWithTheMessage() {
        QGuiApplication::clipboard()->clear();
        QString shown;
        dialogs->then([&](QDialog& d) {
            shown = d.windowTitle();
            return test::pressDefault(d);
        });
        window->processClipboard();
        QCOMPARE(shown, QStringLiteral("Clipboard Empty"));
    }
};

} // namespace tavvel

QTEST_MAIN(tavvel::MainWindowTest)
#include "MainWindowTest.moc"
