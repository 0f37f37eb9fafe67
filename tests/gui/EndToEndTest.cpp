// The shipped sample statements through the desktop application: first start, the sample's
// input format imported when it has one, open, process, a save location chosen, and the same
// QIF on disk as tavvel-cli writes with the same answers (the first button of every question,
// every transaction output as read), each program starting from its own empty preference
// folder.

#include "AnsweringDialogs.h"
#include "ConfirmDialog.h"
#include "MainWindow.h"
#include "NewInstructionDialog.h"
#include "TransactionRun.h"
#include "app/Controller.h"
#include "app/StartUp.h"
#include "knowledge/RenameFormatForm.h"
#include "prefs/Files.h"
#include "support/TestContext.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

namespace tavvel {

namespace {

// tavvel-cli --batch in its own folders; false unless it exits with 0.
bool runTerminal(const std::filesystem::path& folder, const QStringList& arguments) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), QString::fromStdString((folder / "home").string()));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"),
                       QString::fromStdString((folder / "config").string()));
    QProcess cli;
    cli.setProcessEnvironment(environment);
    cli.setStandardInputFile(QProcess::nullDevice());
    cli.start(QStringLiteral(TAVVEL_CLI), QStringList{QStringLiteral("--batch")} + arguments);
    return cli.waitForFinished(60000) && cli.exitStatus() == QProcess::NormalExit &&
           cli.exitCode() == 0;
}

// What tavvel-cli writes for the statement on a first start, after importing the format when
// there is one; nothing when it fails.
std::optional<std::string> convertedByTerminal(const std::filesystem::path& folder,
                                               const QString& statement, const QString& format) {
    if (!runTerminal(folder, {}))
        return std::nullopt;
    if (!format.isEmpty() && !runTerminal(folder, {format}))
        return std::nullopt;
    const auto output = folder / "terminal.qif";
    if (!runTerminal(folder,
                     {QStringLiteral("-o"), QString::fromStdString(output.string()), statement}))
        return std::nullopt;
    return readWholeFile(output);
}

QString example(const QString& name) {
    return name.isEmpty() ? QString() : QStringLiteral(TAVVEL_SOURCE_DIR "/examples/") + name;
}

} // namespace

class EndToEndTest : public QObject {
    Q_OBJECT

private slots:
    void sampleStatementIsWrittenAsTheTerminalWritesIt_data() {
        QTest::addColumn<QString>("statement");
        QTest::addColumn<QString>("format");
        QTest::addColumn<QString>("type");
        QTest::newRow("ofx") << "checking.ofx"
                             << ""
                             << "Bank";
        QTest::newRow("csv") << "csv-export.csv"
                             << "csv-export.tvfm"
                             << "Bank";
        QTest::newRow("semicolons") << "european-semicolon.csv"
                                    << "european-semicolon.tvfm"
                                    << "Bank";
        QTest::newRow("text") << "web-page.txt"
                              << "web-page.tvfm"
                              << "CCard";
    }

    void sampleStatementIsWrittenAsTheTerminalWritesIt() {
        QFETCH(QString, statement);
        QFETCH(QString, format);
        QFETCH(QString, type);
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
            // The imported format keeps the name it was exported with.
            if (d.windowTitle() == QString::fromUtf8(RenameFormatForm::prompt().data(),
                                                     qsizetype(RenameFormatForm::prompt().size())))
                return static_cast<int>(QDialog::Accepted);
            // Text transactions are confirmed one by one; --batch takes each form as it stands.
            if (dynamic_cast<gui::ConfirmDialog*>(&d))
                return test::press(d, QStringLiteral("OK"));
            if (dynamic_cast<gui::NewInstructionDialog*>(&d))
                return test::press(d, QStringLiteral("Output As Read"));
            if (d.windowTitle() == QLatin1String("Finished Processing Transactions"))
                finished << qobject_cast<QMessageBox*>(&d)->text();
            return test::pressDefault(d);
        });
        awakeFromNib(t.ctx, dialogs);
        gui::MainWindow window(t.ctx, dialogs);
        window.show();

        if (!format.isEmpty())
            QVERIFY(window.openFile(example(format)));
        QVERIFY(window.openFile(example(statement)));
        QCOMPARE(dialogs.unexpected, QStringList());
        auto* process = window.findChild<QPushButton*>(QStringLiteral("process"));
        QVERIFY(process && process->isEnabled());
        QSignalSpy ran(&window.run(), &gui::TransactionRun::finished);
        process->click();
        QVERIFY(ran.wait(60000));

        QVERIFY(suggested.endsWith(QLatin1String(".qif")));
        QCOMPARE(finished.size(), 1);
        QVERIFY(finished.front().contains(QLatin1String("output to file \"sample.qif\"")));
        auto written = readWholeFile(t.folder.path() / "sample.qif");
        test::TempFolder terminalFolder;
        auto expected =
            convertedByTerminal(terminalFolder.path(), example(statement), example(format));
        QVERIFY(written && expected);
        QVERIFY(written->starts_with("!Type:" + type.toStdString() + "\n"));
        QCOMPARE(QString::fromStdString(*written), QString::fromStdString(*expected));
        // A sample read through a shipped format also gives the QIF shipped beside it.
        const QString shipped = example(statement.left(statement.lastIndexOf('.')) + ".qif");
        if (!format.isEmpty())
            QCOMPARE(readWholeFile(shipped.toStdString()), written);
        QVERIFY(!window.controller().processing());
    }
};

} // namespace tavvel

QTEST_MAIN(tavvel::EndToEndTest)
#include "EndToEndTest.moc"
