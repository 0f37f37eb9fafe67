#include "MainWindow.h"

#include "InstructionDialogs.h"
#include "ListEditorDialog.h"
#include "MessageArea.h"
#include "OutputFormatDialog.h"
#include "PreferencesDialog.h"
#include "QtDialogs.h"
#include "RunFormView.h"
#include "StatementLoader.h"
#include "StatementView.h"
#include "Text.h"
#include "TransactionRun.h"
#include "WindowFrame.h"
#include "app/Controller.h"
#include "app/RecentFiles.h"
#include "context/Context.h"
#include "knowledge/FormatFiles.h"
#include "knowledge/Formats.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QSplitter>
#include <QStackedWidget>
#include <QUrl>
#include <QVBoxLayout>

namespace tavvel::gui {

std::optional<std::string> clipboardText() {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    if (!data || !data->hasText())
        return std::nullopt;
    return core(data->text());
}

MainWindow::MainWindow(Context& ctx, QtDialogs& dialogs, QWidget* parent)
    : QMainWindow(parent), ctx_(ctx), dialogs_(dialogs), runDialogs_(dialogs, *this),
      controller_(std::make_unique<Controller>(ctx, runDialogs_)) {
    controller_->leaveAutomaticRunsToFrontEnd();
    setWindowTitle(QStringLiteral("Tavvel"));
    setAcceptDrops(true);
    dialogs_.setParentWindow(this);
    learn_ = new QAction(tr("Learn…"), this);
    learn_->setObjectName(QStringLiteral("learnAction"));
    learn_->setToolTip(tr("Learn a new input format from this statement (Ctrl+Shift+L)"));
    learn_->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_L));
    addAction(learn_);
    pages_ = new QStackedWidget(this);
    waiting_ = new QLabel(tr("Open a statement (File ▸ Open…), drop one on this window, or copy "
                             "one to the clipboard."),
                          pages_);
    waiting_->setAlignment(Qt::AlignCenter);
    waiting_->setWordWrap(true);
    auto* runPage = new QSplitter(Qt::Horizontal, pages_);
    runPage_ = runPage;
    runForm_ = new RunFormView(*controller_, ctx.prefs, learn_, runPage);
    statement_ = new StatementView(ctx, *controller_, runPage);
    runPage->addWidget(runForm_);
    runPage->addWidget(statement_);
    runPage->setStretchFactor(1, 1);
    pages_->addWidget(waiting_);
    pages_->addWidget(runPage_);
    messages_ = new MessageArea(this);
    run_ = new TransactionRun(this);
    connect(run_, &TransactionRun::finished, this, &MainWindow::runEnded);
    dialogs_.setAlertEcho([this](const std::string& title, const std::string& text) {
        messages_->showMessage(title, text);
    });
    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    layout->addWidget(messages_);
    layout->addWidget(run_);
    layout->addWidget(pages_, 1);
    setCentralWidget(central);
    connect(runForm_, &RunFormView::processRequested, this, [this] { processTransactions(); });
    connect(runForm_, &RunFormView::formChanged, statement_, &StatementView::refilter);
    connect(learn_, &QAction::triggered, this, &MainWindow::learnInputFormat);
    clipboardTimer_.setSingleShot(true);
    clipboardTimer_.setInterval(1000);
    connect(&clipboardTimer_, &QTimer::timeout, this, &MainWindow::processNoticedClipboard);
    buildMenus();
    restoreFrame(*this, ctx.prefs);
    showState();
}

MainWindow::~MainWindow() {
    // A run still working uses the controller and this window's forms: it ends first.
    if (run_->busy()) {
        runDialogs_.stopShowing();
        run_->cancelAndWait();
    }
    dialogs_.setAlertEcho({});
}

void MainWindow::buildMenus() {
    buildFileMenu();
    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    const QString lists[] = {tr("&Accounts"), tr("&Categories"), tr("&Descriptions"),
                             tr("&Securities"), tr("&Input Formats")};
    for (int which = 0; which < 5; ++which)
        edit->addAction(lists[which], QKeySequence(Qt::CTRL | (Qt::Key_1 + which)), this,
                        [this, which] { editList(which); });
    edit->addSeparator();
    edit->addAction(tr("&Output Formats…"), QKeySequence(Qt::CTRL | Qt::Key_6), this, [this] {
        OutputFormatListDialog list(ctx_, dialogs_, this);
        dialogs_.runModal(list);
        showState();
    });
    edit->addAction(tr("I&nstructions…"), QKeySequence(Qt::CTRL | Qt::Key_7), this, [this] {
        InstructionListDialog list(ctx_.prefs, dialogs_, this);
        dialogs_.runModal(list);
    });
    QAction* preferences =
        menuBar()->addAction(tr("&Preferences"), this, &MainWindow::editPreferences);
    preferences->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Comma));
    addAction(preferences); // a menu bar item's shortcut works only through the window
}

void MainWindow::buildFileMenu() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("&Open…"), QKeySequence::Open, this, &MainWindow::openWithDialog);
    recentMenu_ = file->addMenu(tr("Open &Recent"));
    recentMenu_->setObjectName(QStringLiteral("recentMenu"));
    connect(recentMenu_, &QMenu::aboutToShow, this, &MainWindow::fillRecentMenu);
    file->addAction(tr("Process &Clipboard"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_V), this,
                    &MainWindow::processClipboard);
    continueFromLast_ = file->addAction(tr("Continue from Where I Stopped &Last Time"),
                                        QKeySequence(Qt::CTRL | Qt::Key_L), this,
                                        &MainWindow::continueFromLastTime);
    continueFromLast_->setObjectName(QStringLiteral("continueFromLast"));
    exportMenu_ = file->addMenu(tr("&Export Input Format"));
    exportMenu_->setObjectName(QStringLiteral("exportMenu"));
    connect(exportMenu_, &QMenu::aboutToShow, this, &MainWindow::fillExportMenu);
    file->addAction(tr("&Import Input Format…"), QKeySequence(Qt::CTRL | Qt::Key_I), this,
                    &MainWindow::importFormat);
    file->addSeparator();
    file->addAction(tr("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), qApp, &QApplication::quit);
}

void MainWindow::fillRecentMenu() {
    recentMenu_->clear();
    std::vector<std::string> paths = RecentFiles(ctx_.prefs).list();
    for (std::size_t i = 0; i < paths.size(); ++i) {
        QString path = qt(paths[i]);
        QString title = QStringLiteral("&%1 %2").arg((i + 1) % 10).arg(QFileInfo(path).fileName());
        QAction* open = recentMenu_->addAction(title, this, [this, path] { openRecent(path); });
        open->setToolTip(path);
        open->setStatusTip(path);
    }
    recentMenu_->addSeparator();
    QAction* clear = recentMenu_->addAction(tr("Clear &Menu"), this,
                                            [this] { RecentFiles(ctx_.prefs).clear(); });
    clear->setEnabled(!paths.empty());
}

void MainWindow::fillExportMenu() {
    exportMenu_->clear();
    Formats formats(ctx_.prefs);
    for (const std::string& name : formats.exportMenuTitles())
        exportMenu_->addAction(qt(name), this, [this, name] {
            exportFormatToChosenFile(Formats(ctx_.prefs), name, dialogs_);
        });
}

void MainWindow::importFormat() {
    Formats formats(ctx_.prefs);
    importFormatFromChosenFile(
        formats, dialogs_, [this](RenameFormatForm& form) { return dialogs_.renameFormat(form); });
    showState();
}

void MainWindow::editList(int which) {
    ListEditorDialog::edit(static_cast<ListEditorDialog::List>(which), ctx_.prefs, dialogs_, this);
    showState();
}

void MainWindow::editPreferences() {
    PreferencesDialog::edit(ctx_.prefs, ctx_.output, dialogs_, this);
    showState();
}

bool MainWindow::openFile(const QString& path) {
    if (run_->busy())
        return false;
    std::string file = core(path);
    if (isFormatFile(file)) {
        Formats formats(ctx_.prefs);
        importFormatFile(formats, file, dialogs_,
                         [this](RenameFormatForm& form) { return dialogs_.renameFormat(form); });
        return true;
    }
    std::optional<Intake> intake = controller_->applicationOpenFile(file);
    if (!intake)
        return false;
    afterFileIntake(intake);
    return true;
}

void MainWindow::openWithDialog() {
    afterFileIntake(controller_->processFile());
}

void MainWindow::openRecent(const QString& path) {
    std::optional<Intake> intake = controller_->applicationOpenFile(core(path));
    if (intake == Intake::refused)
        RecentFiles(ctx_.prefs).remove(core(path));
    afterFileIntake(intake);
}

void MainWindow::afterFileIntake(std::optional<Intake> intake) {
    if (intake == Intake::formReady || intake == Intake::runAtOnce)
        RecentFiles(ctx_.prefs).add(controller_->inputPath());
    afterIntake(intake);
}

void MainWindow::processClipboard() {
    afterIntake(controller_->processClipboard(clipboardText()));
}

void MainWindow::applicationActivated() {
    if (run_->busy())
        return;
    if (controller_->applicationDidBecomeActive(clipboardText()))
        clipboardTimer_.start();
}

void MainWindow::continueFromLastTime() {
    controller_->continueFromWhereIStoppedLastTime();
    showState();
}

void MainWindow::processNoticedClipboard() {
    if (run_->busy())
        return;
    afterIntake(controller_->processInput());
}

void MainWindow::processTransactions(bool startedByItself) {
    if (run_->busy())
        return;
    holdWhileRunning(true);
    // A table still being read would look at the run form and preferences the run now owns:
    // it is read again should the run leave the statement in the window.
    rereadAfterRun_ = statement_->loader().busy();
    statement_->loader().cancel();
    run_->start(*controller_, isVisible() && !startedByItself);
}

void MainWindow::runEnded() {
    holdWhileRunning(false);
    if (rereadAfterRun_ && controller_->processing())
        statement_->load();
    rereadAfterRun_ = false;
    showState();
}

void MainWindow::holdWhileRunning(bool hold) {
    pages_->setEnabled(!hold);
    menuBar()->setEnabled(!hold);
    if (!hold) {
        for (const QPointer<QAction>& action : heldActions_)
            if (action)
                action->setEnabled(true);
        heldActions_.clear();
        return;
    }
    for (QAction* action : findChildren<QAction*>())
        if (action->isEnabled()) {
            heldActions_.push_back(action);
            action->setEnabled(false);
        }
}

void MainWindow::learnInputFormat() {
    controller_->learn(controller_->form().inputFormatName);
    showState();
}

void MainWindow::afterIntake(std::optional<Intake> intake) {
    if (intake == Intake::runAtOnce)
        return processTransactions(true);
    if (intake == Intake::formReady) {
        // Read first, so that the form's refresh finds the rows' account already chosen.
        statement_->load();
        runForm_->refresh();
    }
    showState();
}

void MainWindow::showState() {
    bool running = controller_->processing();
    pages_->setCurrentWidget(running ? runPage_ : waiting_);
    if (!running)
        statement_->clear();
    // Only a form whose range the user may change can continue from the last run.
    if (continueFromLast_)
        continueFromLast_->setEnabled(running && !controller_->form().resuming);
    if (running)
        runForm_->refresh();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    // The run may be waiting on a form of this window: it is stopped, and the window stays.
    if (run_->busy()) {
        run_->cancel();
        event->ignore();
        return;
    }
    saveFrame(*this, ctx_.prefs);
    QMainWindow::closeEvent(event);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    const QMimeData* mime = event->mimeData();
    if (mime->hasUrls() && !mime->urls().isEmpty() && mime->urls().front().isLocalFile())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    const QList<QUrl> urls = event->mimeData()->urls();
    if (urls.isEmpty() || !urls.front().isLocalFile() || !openFile(urls.front().toLocalFile())) {
        event->ignore();
        return;
    }
    event->acceptProposedAction();
}

} // namespace tavvel::gui
