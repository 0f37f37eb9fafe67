#pragma once
// The main window: the run form, and the menus File (open, process the clipboard, export
// and import of input formats, quit), Edit (the list editors) and Preferences. Files come
// from the open dialog, the command line and drops; the clipboard is looked at when the
// application becomes active.

#include "GuiThreadDialogs.h"

#include <QMainWindow>
#include <QPointer>
#include <QTimer>
#include <memory>
#include <optional>
#include <vector>

class QAction;
class QLabel;
class QMenu;
class QStackedWidget;
class QCloseEvent;

namespace tavvel {
class Context;
class Controller;
enum class Intake;
} // namespace tavvel

namespace tavvel::gui {

class MessageArea;
class QtDialogs;
class RunFormView;
class StatementView;
class TransactionRun;

class MainWindow : public QMainWindow {
public:
    MainWindow(Context& ctx, QtDialogs& dialogs, QWidget* parent = nullptr);
    ~MainWindow() override;

    Controller& controller() { return *controller_; }
    RunFormView& runForm() { return *runForm_; }
    StatementView& statement() { return *statement_; }
    MessageArea& messages() { return *messages_; }
    TransactionRun& run() { return *run_; }
    // The place the learning dialogue is started from, beside the input format.
    QAction* learnAction() const { return learn_; }
    // The one-shot timer that processes a noticed clipboard.
    QTimer& clipboardTimer() { return clipboardTimer_; }

    // A file from the command line or a drop: false when refused during a run.
    bool openFile(const QString& path);
    // The application became active: a clipboard with new dated text is processed shortly.
    void applicationActivated();
    // What the timer does when it fires: the noticed clipboard is classified.
    void processNoticedClipboard();

    void openWithDialog();
    // File ▸ Open Recent: a file that is refused now leaves the list.
    void openRecent(const QString& path);
    void processClipboard();
    // The run form's range from the day after the last run's range ended to today.
    void continueFromLastTime();
    // Starts the run on a thread of its own; the window waits for it, its controls held.
    // `startedByItself`: the input asked for an automatic run.
    void processTransactions(bool startedByItself = false);
    // The learn action: learns the input format named in the run form from the statement.
    void learnInputFormat();

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void buildMenus();
    void buildFileMenu();
    void fillExportMenu();
    void fillRecentMenu();
    // A file's intake: a statement that was taken joins the recent files.
    void afterFileIntake(std::optional<Intake> intake);
    void importFormat();
    void editList(int which);
    void editPreferences();
    void afterIntake(std::optional<Intake> intake);
    void showState();
    // While a run works, nothing else may reach its controller: every control and action but
    // the run's Cancel is held, and given back as it was.
    void holdWhileRunning(bool hold);
    void runEnded();

    Context& ctx_;
    QtDialogs& dialogs_;
    GuiThreadDialogs runDialogs_; // what the controller asks through, from either thread
    std::unique_ptr<Controller> controller_;
    std::vector<QPointer<QAction>> heldActions_;
    bool rereadAfterRun_ = false;
    QAction* learn_ = nullptr;
    QAction* continueFromLast_ = nullptr;
    QMenu* exportMenu_ = nullptr;
    QMenu* recentMenu_ = nullptr;
    MessageArea* messages_ = nullptr;
    TransactionRun* run_ = nullptr;
    QStackedWidget* pages_ = nullptr;
    QLabel* waiting_ = nullptr;
    RunFormView* runForm_ = nullptr;
    StatementView* statement_ = nullptr;
    QWidget* runPage_ = nullptr; // the run form beside the statement
    QTimer clipboardTimer_;
};

// The clipboard's plain text, or nothing when it holds none.
std::optional<std::string> clipboardText();

} // namespace tavvel::gui
