// tavvel-screenshots: the desktop application's windows saved as PNG files for the README.
// It starts the application on fresh preferences in a temporary folder, opens the sample
// statement with every transaction to be confirmed, and saves each kind of window the run
// shows the first time it shows it, answering it as a user taking the defaults would. Given a
// text statement too, it then learns a format from it, saving the three learning windows
// (the second date selected, the guessed layout, the first question) before cancelling.
//
//   tavvel-screenshots STATEMENT OUTPUT-FOLDER [FONT-SCALE] [SUFFIX] [TEXT-STATEMENT]

#include "ConfirmDialog.h"
#include "InstructionDialogs.h"
#include "LearnDateDialog.h"
#include "LearnLayoutDialog.h"
#include "LearnQuestionDialog.h"
#include "MainWindow.h"
#include "NewInstructionDialog.h"
#include "OutputFormatDialog.h"
#include "QtDialogs.h"
#include "StatementLoader.h"
#include "StatementView.h"
#include "TransactionRun.h"
#include "app/Controller.h"
#include "app/StartUp.h"
#include "context/Context.h"
#include "formats/OutputFormatForm.h"
#include "forms/InstructionEditor.h"
#include "knowledge/Instructions.h"
#include "prefs/Settings.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QEventLoop>
#include <QFileDialog>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <set>

using namespace tavvel;

namespace {

class ScreenshotDialogs : public gui::QtDialogs {
public:
    ScreenshotDialogs(TvPrefs& prefs, QString folder, QString suffix, QString output)
        : QtDialogs(prefs), folder_(std::move(folder)), suffix_(std::move(suffix)),
          output_(std::move(output)) {}

    void save(QWidget& window, const QString& name) {
        window.adjustSize();
        window.show();
        QApplication::processEvents();
        window.grab().save(folder_ + QLatin1Char('/') + name + suffix_ + QStringLiteral(".png"));
    }

    int runModal(QDialog& dialog) override {
        if (auto* files = qobject_cast<QFileDialog*>(&dialog)) {
            files->selectFile(output_);
            return QDialog::Accepted;
        }
        // The first confirmation asks for a new instruction, whose form then goes back to it.
        if (dynamic_cast<gui::NewInstructionDialog*>(&dialog))
            return answer(dialog, QStringLiteral("new-instruction"), QStringLiteral("Cancel"),
                          QStringLiteral("Output As Read"));
        if (dynamic_cast<gui::ConfirmDialog*>(&dialog))
            return answer(dialog, QStringLiteral("confirmation"), QStringLiteral("Add Instruction"),
                          QStringLiteral("OK"));
        if (dynamic_cast<gui::LearnDateDialog*>(&dialog)) {
            selectSecondDate(dialog);
            return answer(dialog, QStringLiteral("learn-date"), QStringLiteral("OK"),
                          QStringLiteral("Cancel"));
        }
        if (dynamic_cast<gui::LearnLayoutDialog*>(&dialog))
            return answer(dialog, QStringLiteral("learn-layout"), QStringLiteral("OK"),
                          QStringLiteral("Cancel"));
        if (dynamic_cast<gui::LearnQuestionDialog*>(&dialog))
            return answer(dialog, QStringLiteral("learn-question"), QStringLiteral("Cancel"),
                          QStringLiteral("Cancel"));
        if (auto* box = qobject_cast<QMessageBox*>(&dialog))
            box->defaultButton()->click();
        return dialog.result();
    }

private:
    // The first date shown cannot start a transaction, so the second one is selected.
    static void selectSecondDate(QDialog& dialog) {
        auto* view = dialog.findChild<QPlainTextEdit*>(QStringLiteral("dateView"));
        static const QRegularExpression date(QStringLiteral("\\d{1,2}/\\d{1,2}/\\d{4}"));
        auto matches = date.globalMatch(view->toPlainText());
        if (matches.hasNext())
            matches.next();
        if (!matches.hasNext())
            return;
        const QRegularExpressionMatch second = matches.next();
        QTextCursor cursor = view->textCursor();
        cursor.setPosition(static_cast<int>(second.capturedStart()));
        cursor.setPosition(static_cast<int>(second.capturedEnd()), QTextCursor::KeepAnchor);
        view->setTextCursor(cursor);
        view->centerCursor();
    }

    int answer(QDialog& dialog, const QString& name, const QString& first, const QString& later) {
        QString button = later;
        if (saved_.insert(name).second) {
            save(dialog, name);
            button = first;
        }
        for (QAbstractButton* pushed : dialog.findChildren<QAbstractButton*>())
            if (pushed->text() == button) {
                pushed->click();
                break;
            }
        dialog.hide();
        return dialog.result();
    }

    QString folder_, suffix_, output_;
    std::set<QString> saved_;
};

// The editors of the Edit menu: a new output format with credit and debit columns, and the
// instruction list and one instruction, over a few instructions as a user would have them.
void saveEditors(Context& ctx, ScreenshotDialogs& dialogs) {
    OutputFormatForm format = OutputFormatForm::newFormat(ctx.prefs, "Spreadsheet");
    format.setAmountStyle("Credit/Debit");
    format.setReformatDate(true);
    format.setReformatDateFormat("%d.%m.%Y");
    gui::OutputFormatDialog formatDialog(format, ctx, dialogs, nullptr);
    dialogs.save(formatDialog, QStringLiteral("output-format"));

    Instructions instructions(ctx.prefs);
    const char* const payees[][3] = {{"CITY POWER", "City Power & Water", "Utilities:Electric"},
                                     {"FRESH FOODS", "Fresh Foods", "Groceries"},
                                     {"SUMMIT CARD PAYMENT", "Summit Card", "[Summit Card]"},
                                     {"NEWSAGENT", "Newsagent", "Leisure:Papers"}};
    for (const auto& [match, description, category] : payees)
        instructions.setInstruction(Dictionary{{"descriptionMatch", Value(match)},
                                               {"newDescription", Value(description)},
                                               {"category", Value(category)}});
    gui::InstructionListDialog list(ctx.prefs, dialogs, nullptr);
    dialogs.save(list, QStringLiteral("instructions"));
    InstructionEditor editor(ctx.prefs, *instructions.instructionFor("FRESH FOODS"));
    editor.setMatch("FRESH FOODS MARKET");
    gui::InstructionDialog instruction(editor, dialogs, nullptr);
    dialogs.save(instruction, QStringLiteral("instruction"));
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 3)
        return 2;
    if (arguments.size() > 3) {
        QFont font = QApplication::font();
        font.setPointSizeF(font.pointSizeF() * arguments.at(3).toDouble());
        QApplication::setFont(font);
    }
    auto config = Configuration::load(Configuration::locateForRunning(argv[0]));
    QTemporaryDir scratch;
    if (!config || !scratch.isValid())
        return 1;
    std::filesystem::path folder = scratch.path().toStdString();
    Places places{folder / "config" / "Tavvel",
                  folder / "home",
                  folder / "home" / "Documents",
                  {}}; // no conversion history: every shot starts from nothing
    std::filesystem::create_directories(places.prefsFolder);
    Context ctx(std::move(*config), Clock::system(), places);
    ScreenshotDialogs dialogs(ctx.prefs, arguments.at(2), arguments.value(4),
                              scratch.filePath(QStringLiteral("out.qif")));
    awakeFromNib(ctx, dialogs);
    addOption(ctx.prefs, option::confirmAllTransactions);

    gui::MainWindow window(ctx, dialogs);
    window.show();
    // The table is read on a thread of its own; the picture waits for its rows.
    QEventLoop reading;
    QObject::connect(&window.statement().loader(), &gui::StatementLoader::finished, &reading,
                     &QEventLoop::quit);
    if (!window.openFile(arguments.at(1)))
        return 1;
    if (window.statement().loader().busy())
        reading.exec();
    dialogs.save(window, QStringLiteral("main-window"));
    // The run works on a thread of its own too; its forms are pictured as it asks.
    QEventLoop running;
    QObject::connect(&window.run(), &gui::TransactionRun::finished, &running, &QEventLoop::quit);
    window.processTransactions();
    if (window.run().busy())
        running.exec();
    if (arguments.size() > 5) {
        if (!window.openFile(arguments.at(5)))
            return 1;
        window.controller().form().setInputFormatName("Summit Card");
        window.learnInputFormat();
    }
    saveEditors(ctx, dialogs);
    return 0;
}
