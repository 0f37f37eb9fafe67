// What a desktop window is expected to do besides its job: remember the statements opened and
// its own frame, reach every action from the keyboard, name its controls for screen readers,
// and keep the last message in view once its alert is gone.

#include "AnsweringDialogs.h"
#include "MainWindow.h"
#include "MessageArea.h"
#include "RunFormView.h"
#include "StatementLoader.h"
#include "StatementView.h"
#include "WindowFrame.h"
#include "app/RecentFiles.h"
#include "knowledge/Categories.h"
#include "support/TestContext.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <fstream>

namespace tavvel {

class WindowHabitsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<test::TestContext> t;
    std::unique_ptr<test::AnsweringDialogs> dialogs;
    std::unique_ptr<gui::MainWindow> window;

    static QString sample() { return QStringLiteral(TAVVEL_SOURCE_DIR "/examples/checking.ofx"); }

    void makeWindow() {
        window = std::make_unique<gui::MainWindow>(t->ctx, *dialogs);
        window->show();
    }

    QMenu* recentMenu() {
        auto* menu = window->findChild<QMenu*>(QStringLiteral("recentMenu"));
        emit menu->aboutToShow();
        return menu;
    }

    void allActions(QMenu* menu, QList<QAction*>& into) {
        for (QAction* action : menu->actions()) {
            if (action->menu())
                allActions(action->menu(), into);
            else if (!action->isSeparator())
                into << action;
        }
    }

private slots:
    void init() {
        t = std::make_unique<test::TestContext>();
        Categories(t->ctx.prefs).createEmpty();
        dialogs = std::make_unique<test::AnsweringDialogs>(t->ctx.prefs);
        makeWindow();
    }

    void cleanup() {
        QVERIFY2(dialogs->unexpected.isEmpty(), qPrintable(dialogs->unexpected.join(", ")));
        window.reset();
        dialogs.reset();
        t.reset();
    }

    void openedStatementsAreOfferedAgainAndVanishedOnesLeave() {
        auto gone = t->folder.path() / "gone.ofx";
        std::ifstream in(sample().toStdString(), std::ios::binary);
        std::ofstream(gone, std::ios::binary) << in.rdbuf();
        QSignalSpy finished(&window->statement().loader(), &gui::StatementLoader::finished);
        QVERIFY(window->openFile(QString::fromStdString(gone.string())));
        QVERIFY(finished.wait(5000));
        QCOMPARE(RecentFiles(t->ctx.prefs).list(), std::vector<std::string>{gone.string()});
        QList<QAction*> items = recentMenu()->actions();
        QCOMPARE(items.front()->text(), QStringLiteral("&1 gone.ofx"));

        // The window starts afresh, as after a restart; the file has gone meanwhile.
        window.reset();
        std::filesystem::remove(gone);
        makeWindow();
        dialogs->then([](QDialog&) { return 0; });
        recentMenu()->actions().front()->trigger();
        QVERIFY(RecentFiles(t->ctx.prefs).list().empty());
        QVERIFY(window->messages().isVisible());
        QCOMPARE(window->messages().text(),
                 QStringLiteral(
                     "Cannot Read File: File \"gone.ofx\" cannot be read.  Check that it is a "
                     "file and that you may open it."));
        window->messages().dismissButton().click();
        QVERIFY(!window->messages().isVisible());
        QVERIFY2(!recentMenu()->actions().last()->isEnabled(), "nothing left to clear");
    }

    void recentListKeepsTheNewestTenOnce() {
        RecentFiles recent(t->ctx.prefs);
        for (int i = 0; i < 12; ++i)
            recent.add("/statements/" + std::to_string(i) + ".qif");
        recent.add("/statements/5.qif");
        std::vector<std::string> list = recent.list();
        QCOMPARE(list.size(), RecentFiles::kMost);
        QCOMPARE(list.front(), std::string("/statements/5.qif"));
        QCOMPARE(std::count(list.begin(), list.end(), "/statements/5.qif"), 1);
        QCOMPARE(list.back(), std::string("/statements/2.qif"));
        t->ctx.prefs.setObject(kRecentFilesKey, Value(std::string("not a list")));
        QVERIFY(recent.list().empty());
    }

    void windowFrameOutlivesTheWindow() {
        window->setGeometry(40, 50, 900, 640);
        window->close();
        QSize size = window->size();
        window.reset();
        makeWindow();
        QCOMPARE(window->size(), size);
        t->ctx.prefs.setObject(gui::kWindowFrameKey, Value(std::string("%%% damaged")));
        window.reset();
        makeWindow(); // a damaged frame is passed over
        QVERIFY(window->isVisible());
    }

    void everyActionHasAShortcutAndEveryRunControlAName() {
        QList<QAction*> actions;
        for (QAction* top : window->menuBar()->actions())
            top->menu() ? allActions(top->menu(), actions) : void(actions << top);
        actions << window->learnAction();
        for (QAction* action : actions)
            QVERIFY2(!action->shortcut().isEmpty(), qPrintable(action->text()));
        QSet<QString> keys;
        for (QAction* action : actions)
            keys << action->shortcut().toString();
        QCOMPARE(keys.size(), actions.size()); // no two actions share one

        for (QWidget* control : window->runForm().findChildren<QWidget*>()) {
            if (control->objectName().isEmpty() || qobject_cast<QLabel*>(control) ||
                control->objectName().startsWith(QLatin1String("qt_")) ||
                control->objectName() == QLatin1String("learn"))
                continue;
            QVERIFY2(!control->accessibleName().isEmpty(), qPrintable(control->objectName()));
            QVERIFY2(!control->toolTip().isEmpty(), qPrintable(control->objectName()));
        }
    }
};

} // namespace tavvel

QTEST_MAIN(tavvel::WindowHabitsTest)
#include "WindowHabitsTest.moc"
