#include "TransactionRun.h"

#include "ProgressRow.h"
#include "app/Controller.h"

#include <QCoreApplication>
#include <QProgressBar>

namespace tavvel::gui {

TransactionRun::TransactionRun(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("runProgress"));
    ProgressRow row = fillProgressRow(*this, tr("Processing progress"), QStringLiteral("cancelRun"),
                                      tr("Stop processing; no output file is written (Esc)"));
    bar_ = row.bar;
    cancel_ = row.cancel;
    hide();
    progressDelay_.setSingleShot(true);
    progressDelay_.setInterval(kProgressDelayMs);
    connect(&progressDelay_, &QTimer::timeout, this, &QWidget::show);
    connect(cancel_, &QPushButton::clicked, this, &TransactionRun::cancel);
}

TransactionRun::~TransactionRun() {
    worker_.request_stop();
}

void TransactionRun::start(Controller& controller, bool mainWindowVisible) {
    busy_ = true;
    bar_->setRange(0, 0);
    progressDelay_.start();
    worker_ = std::jthread([this, &controller, mainWindowVisible](std::stop_token stop) {
        auto progress = [this](std::size_t done, std::size_t total) {
            QMetaObject::invokeMethod(
                this,
                [this, done, total] {
                    showProgress(static_cast<qint64>(done), static_cast<qint64>(total));
                },
                Qt::QueuedConnection);
        };
        controller.watchWalks({stop, progress});
        controller.processTheTransactions(mainWindowVisible);
        controller.watchWalks({});
        QMetaObject::invokeMethod(this, &TransactionRun::ended, Qt::QueuedConnection);
    });
}

void TransactionRun::cancel() {
    worker_.request_stop();
}

void TransactionRun::cancelAndWait() {
    cancel();
    while (busy_)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void TransactionRun::showProgress(qint64 done, qint64 total) {
    if (!busy_)
        return;
    bar_->setRange(0, static_cast<int>(total));
    bar_->setValue(static_cast<int>(done));
}

void TransactionRun::ended() {
    busy_ = false;
    progressDelay_.stop();
    hide();
    emit finished();
}

} // namespace tavvel::gui
