// How long the desktop window goes without turning its event loop while a statement is opened,
// read into the table, scrolled to its end and filtered. Run by bench/gui_responsiveness.sh on a
// virtual display; prints the longest gap and where it happened.

#include "MainWindow.h"
#include "QtDialogs.h"
#include "RunFormView.h"
#include "StatementLoader.h"
#include "StatementView.h"
#include "app/Controller.h"
#include "context/Context.h"
#include "knowledge/Categories.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTableView>
#include <QTimer>
#include <cstdio>
#include <filesystem>

using namespace tavvel;

namespace {

// Ticks as often as the loop lets it and keeps the longest wait between two ticks.
class GapMeter {
public:
    GapMeter() {
        timer_.setTimerType(Qt::PreciseTimer);
        timer_.setInterval(1);
        QObject::connect(&timer_, &QTimer::timeout, [this] { tick(); });
        clock_.start();
        timer_.start();
    }
    void phase(const char* name) {
        phase_ = name;
        last_ = clock_.nsecsElapsed();
    }
    void report() const {
        std::printf("longest gap between event-loop turns: %.1f ms (%s)\n", longest_ / 1e6,
                    longestPhase_);
    }

private:
    void tick() {
        qint64 now = clock_.nsecsElapsed();
        if (now - last_ > longest_) {
            longest_ = now - last_;
            longestPhase_ = phase_;
        }
        last_ = now;
    }
    QTimer timer_;
    QElapsedTimer clock_;
    qint64 last_ = 0, longest_ = 0;
    const char* phase_ = "idle";
    const char* longestPhase_ = "idle";
};

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s STATEMENT.ofx\n", argv[0]);
        return 2;
    }
    auto config = Configuration::load(TAVVEL_CONFIG_FILE);
    if (!config)
        return 1;
    Context ctx(std::move(*config), Clock::system(), Places::forCurrentUser());
    Categories(ctx.prefs).createEmpty();
    gui::QtDialogs dialogs(ctx.prefs);
    gui::MainWindow window(ctx, dialogs);
    window.resize(1200, 800);
    window.show();
    GapMeter meter;
    QElapsedTimer wall;
    QString file = QString::fromLocal8Bit(argv[1]);
    QObject::connect(&window.statement().loader(), &gui::StatementLoader::finished, [&] {
        std::printf("read %lld rows in %lld ms\n",
                    static_cast<long long>(window.statement().rows().allRows()), wall.elapsed());
        meter.phase("scrolling");
        window.statement().table().scrollToBottom();
        QTimer::singleShot(50, [&] {
            meter.phase("filtering");
            RunForm& form = window.controller().form();
            form.chooseRange(2);
            form.setDateFrom("1/1/2000");
            window.runForm().refresh();
            QTimer::singleShot(50, [&] {
                meter.report();
                QApplication::quit();
            });
        });
    });
    QTimer::singleShot(200, [&] {
        meter.phase("opening");
        wall.start();
        window.openFile(file);
        meter.phase("reading");
    });
    return QApplication::exec();
}
