// tavvel: the desktop application.

#include "MainWindow.h"
#include "QtDialogs.h"
#include "app/StartUp.h"
#include "context/Context.h"

#include <QApplication>
#include <QIcon>
#include <QMessageBox>
#include <QTimer>
#include <filesystem>

using namespace tavvel;

namespace {

void showStop(const QString& what) {
    QMessageBox::critical(nullptr, QStringLiteral("Tavvel"),
                          QStringLiteral("An unexpected error stopped this action: %1").arg(what));
}

// Exceptions must not cross Qt's event loop; each one met while handling an event ends that
// action with a message, and the window stays usable. Outputs are written atomically, so the
// stopped action leaves no half-written file.
class GuardedApplication : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override {
        try {
            return QApplication::notify(receiver, event);
        } catch (const std::exception& error) {
            showStop(QString::fromStdString(error.what()));
        } catch (...) {
            showStop(QStringLiteral("unknown error"));
        }
        return false;
    }
};

int run(GuardedApplication& application, char** argv) {
    QApplication::setApplicationName(QStringLiteral("Tavvel"));
    QApplication::setDesktopFileName(QStringLiteral("tavvel"));
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("tavvel")));

    auto configFile = Configuration::locateForRunning(argv[0]);
    auto config = Configuration::load(configFile);
    if (!config) {
        QMessageBox::critical(nullptr, QStringLiteral("Tavvel"),
                              QStringLiteral("The configuration file %1 is missing or damaged; "
                                             "reinstall Tavvel.")
                                  .arg(QString::fromStdString(configFile.string())));
        return 1;
    }
    Context ctx(std::move(*config), Clock::system(), Places::forCurrentUser());
    gui::QtDialogs dialogs(ctx.prefs);
    awakeFromNib(ctx, dialogs);

    gui::MainWindow window(ctx, dialogs);
    QObject::connect(&application, &QGuiApplication::applicationStateChanged, &window,
                     [&window](Qt::ApplicationState state) {
                         if (state == Qt::ApplicationActive)
                             window.applicationActivated();
                     });
    window.show();
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() > 1)
        QTimer::singleShot(0, &window,
                           [&window, file = arguments.at(1)] { window.openFile(file); });
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
    GuardedApplication application(argc, argv);
    try {
        return run(application, argv);
    } catch (const std::exception& error) {
        showStop(QString::fromStdString(error.what()));
    } catch (...) {
        showStop(QStringLiteral("unknown error"));
    }
    return 1;
}
