// How long the desktop window goes without turning its event loop while a statement is opened,
// read into the table, scrolled to its end, filtered, and then processed the way a batch run
// processes it (every form taken as shown, the output written to the second argument). Run by
// bench/gui_responsiveness.sh on a virtual display; prints the longest gap and where it
// happened, and the longest while processing.

#include "MainWindow.h"
#include "QtDialogs.h"
#include "RunFormView.h"
#include "StatementLoader.h"
#include "StatementView.h"
#include "TransactionRun.h"
#include "app/Controller.h"
#include "context/Context.h"
#include "knowledge/Categories.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTableView>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstring>
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
        std::printf("longest gap while processing: %.1f ms\n", longestProcessing_ / 1e6);
    }

private:
    void tick() {
        qint64 now = clock_.nsecsElapsed();
        if (now - last_ > longest_) {
            longest_ = now - last_;
            longestPhase_ = phase_;
        }
        if (std::strcmp(phase_, "processing") == 0)
            longestProcessing_ = std::max(longestProcessing_, now - last_);
        last_ = now;
    }
    QTimer timer_;
    QElapsedTimer clock_;
    qint64 last_ = 0, longest_ = 0, longestProcessing_ = 0;
    const char* phase_ = "idle";
    const char* longestPhase_ = "idle";
};

// The forms of a batch run: each taken as shown, the output saved where asked, the closing
// message printed rather than shown.
class BatchLikeDialogs : public gui::QtDialogs {
public:
    BatchLikeDialogs(TvPrefs& prefs, std::string output)
        : gui::QtDialogs(prefs), output_(std::move(output)) {}
    bool acceptsFormsAsShown() const override { return true; }
    ConfirmAction confirmTransaction(ConfirmForm& form) override {
        return Dialogs::confirmTransaction(form);
    }
    NewInstructionAction newInstruction(NewInstructionForm& form) override {
        return Dialogs::newInstruction(form);
    }
    std::optional<std::string> chooseFileToSave(const FileChoice&) override { return output_; }
    void alert(const std::string& title, const std::string& text) override {
        std::printf("%s: %s\n", title.c_str(), text.c_str());
    }

private:
    std::string output_;
};

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc < 3) {
        std::fprintf(stderr, "usage: %s STATEMENT.ofx OUTPUT.qif\n", argv[0]);
        return 2;
    }
    auto config = Configuration::load(TAVVEL_CONFIG_FILE);
    if (!config)
        return 1;
    Context ctx(std::move(*config), Clock::system(), Places::forCurrentUser());
    Categories(ctx.prefs).createEmpty();
    BatchLikeDialogs dialogs(ctx.prefs, argv[2]);
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
                meter.phase("processing");
                wall.start();
                window.processTransactions();
            });
        });
    });
    QObject::connect(&window.run(), &gui::TransactionRun::finished, [&] {
        std::printf("processed in %lld ms\n", wall.elapsed());
        meter.phase("done");
        meter.report();
        QApplication::quit();
    });
    QTimer::singleShot(200, [&] {
        meter.phase("opening");
        wall.start();
        window.openFile(file);
        meter.phase("reading");
    });
    return QApplication::exec();
}
