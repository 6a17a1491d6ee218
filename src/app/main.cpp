// Start-up: the shared constants, the ledger database, the splash, then the main window; or the
// ledger copy command.
#include "AppConstants.h"
#include "AppContext.h"
#include "Clock.h"
#include "CopyCommand.h"
#include "Database.h"
#include "DbConfig.h"
#include "EventLoop.h"
#include "Kuang.h"
#include "QtDialogs.h"
#include "QtShell.h"
#include "QtTranslation.h"
#include "Session.h"
#include "Settings.h"
#include "Start.h"

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QMessageBox>

using namespace lanzhou;

int main(int argc, char** argv)
{
    // The copy command needs no screen.
    if (IsCopyCommand(argc, argv))
        return RunCopyCommand(argc, argv);
    QApplication app(argc, argv);
    QApplication::setApplicationName(AppConstants::title());
    QApplication::setApplicationVersion(AppConstants::versionText());
    // Every window and the tray icon carry the program's own icon; the desktop entry shares its name.
    QIcon icon;
    for (const QFileInfo& size : QDir(QStringLiteral(":/icons")).entryInfoList(QDir::Files))
        icon.addFile(size.filePath());
    QApplication::setWindowIcon(icon);
    QGuiApplication::setDesktopFileName(QStringLiteral("lanzhou"));
    LoadQtChineseTranslation(&app);

    QString error;
    const DbConfig config = DbConfig::fromEnvironment(&error);
    if (!error.isEmpty()) {
        QMessageBox::critical(nullptr, AppConstants::title(),
                              QStringLiteral("无法读取账本数据库地址：\n") + error);
        return 1;
    }

    Session session;
    Database db(config);
    if (!db.prepareEmbeddedFile()) {
        QMessageBox::critical(nullptr, AppConstants::title(),
                              QStringLiteral("无法创建本机账本数据库文件：\n") + config.server.plain());
        return 1;
    }
    QtDialogs dialogs;
    QtShell shell;
    SystemClock clock;
    Settings settings;
    AppContext context{session, db, dialogs, shell, clock, settings};

    auto* splash = new Start;
    splash->setAttribute(Qt::WA_DeleteOnClose);
    splash->show();
    YieldEvents(4);

    Kuang kuang(context);
    // Hidden to the tray the window is not closed, so only the user's Yes to closing ends the program.
    QApplication::setQuitOnLastWindowClosed(false);
    QObject::connect(&kuang, &Kuang::programEnding, &app, &QApplication::quit, Qt::QueuedConnection);
    kuang.show();
    YieldEvents(1);
    splash->close();

    return QApplication::exec();
}
