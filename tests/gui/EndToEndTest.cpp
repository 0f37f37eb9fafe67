// The shipped sample statement through the desktop application: first start, open, process,
// a save location chosen, and the same QIF on disk as tavvel-cli writes with the same answers
// (the first button of every question, every transaction output as read), each program
// starting from its own empty preference folder.

#include "AnsweringDialogs.h"
#include "MainWindow.h"
#include "NewInstructionDialog.h"
#include "app/Controller.h"
#include "app/StartUp.h"
#include "prefs/Files.h"
#include "support/TestContext.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QPushButton>
#include <QTest>

namespace tavvel {

namespace {

// tavvel-cli --batch on a first start in its own folders; its output file, or nothing.
std::optional<std::string> convertedByTerminal(const std::filesystem::path& folder,
                                               const QString& statement) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), QString::fromStdString((folder / "home").string()));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"),
                       QString::fromStdString((folder / "config").string()));
    const auto output = folder / "terminal.qif";
    QProcess cli;
    cli.setProcessEnvironment(environment);
    cli.start(QStringLiteral(TAVVEL_CLI), {QStringLiteral("--batch"), QStringLiteral("-o"),
                                           QString::fromStdString(output.string()), statement});
    if (!cli.waitForFinished(60000) || cli.exitCode() != 0)
        return std::nullopt;
    return readWholeFile(output);
}

} // namespace

class EndToEndTest : public QObject {
    Q_OBJECT

private slots:
    void sampleStatementIsWrittenAsTheTerminalWritesIt() {
        test::TestContext t;
        test::AnsweringDialogs dialogs(t.ctx.prefs);
        const QString output = QString::fromStdString((t.folder.path() / "sample.qif").string());
        QString suggested;
        QStringList finished;
        dialogs.otherwise([&](QDialog& d) {
            if (auto* files = qobject_cast<QFileDialog*>(&d)) {
                suggested = files->selectedFiles().value(0);
                return test::choosePath(d, output);
            }
            if (dynamic_cast<gui::NewInstructionDialog*>(&d))
                return test::press(d, QStringLiteral("Output As Read"));
            if (d.windowTitle() == QLatin1String("Finished Processing Transactions"))
                finished << qobject_cast<QMessageBox*>(&d)->text();
            return test::pressDefault(d);
        });
        awakeFromNib(t.ctx, dialogs);
        gui::MainWindow window(t.ctx, dialogs);
        window.show();

        const QString statement = QStringLiteral(TAVVEL_SOURCE_DIR "/examples/checking.ofx");
        QVERIFY(window.openFile(statement));
        auto* process = window.findChild<QPushButton*>(QStringLiteral("process"));
        QVERIFY(process && process->isEnabled());
        process->click();

        QVERIFY(suggested.endsWith(QLatin1String(".qif")));
        QCOMPARE(finished.size(), 1);
        QVERIFY(finished.front().contains(QLatin1String("output to file \"sample.qif\"")));
        auto written = readWholeFile(t.folder.path() / "sample.qif");
        test::TempFolder terminalFolder;
        auto expected = convertedByTerminal(terminalFolder.path(), statement);
        QVERIFY(written && expected);
        QVERIFY(written->starts_with("!Type:Bank\n"));
        QCOMPARE(QString::fromStdString(*written), QString::fromStdString(*expected));
        QVERIFY(!t.ctx.processing);
    }
};

} // namespace tavvel

QTEST_MAIN(tavvel::EndToEndTest)
#include "EndToEndTest.moc"
