#pragma once
// Runs Process Transactions on a thread of its own, so that a long walk leaves the window
// repainting and answering; the forms the walk opens are shown on the window's thread by the
// controller's dialogs while the run waits. A run that lasts shows this row: its progress and a
// Cancel that ends it as Stop Now does, so the output file is never written.

#include <QPushButton>
#include <QTimer>
#include <QWidget>
#include <thread>

class QProgressBar;

namespace tavvel {
class Controller;
}

namespace tavvel::gui {

class TransactionRun : public QWidget {
    Q_OBJECT
public:
    explicit TransactionRun(QWidget* parent = nullptr);
    ~TransactionRun() override;

    // Starts the run; the controller is the run's alone until finished() is heard.
    void start(Controller& controller, bool mainWindowVisible);
    void cancel();
    // Cancels the run and waits for its end, answering the calls it makes to this thread
    // meanwhile; for a window that goes while a run works.
    void cancelAndWait();
    bool busy() const { return busy_; }
    QPushButton& cancelButton() { return *cancel_; }
    // How long a run goes before its progress is shown.
    static constexpr int kProgressDelayMs = 500;

signals:
    void finished();

private:
    void showProgress(qint64 done, qint64 total);
    void ended();

    QProgressBar* bar_ = nullptr;
    QPushButton* cancel_ = nullptr;
    QTimer progressDelay_;
    bool busy_ = false;
    std::jthread worker_; // last: joined before the rest goes
};

} // namespace tavvel::gui
