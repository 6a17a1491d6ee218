#include "CopyCommand.h"

#include "AppConstants.h"
#include "Database.h"
#include "DbConfig.h"
#include "LedgerCopy.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>
#include <QUrl>

#include <cstring>

namespace lanzhou {

namespace {

const char copyFlag[] = "--copy-ledger";

// An address as it may be shown: without its password.
QString Shown(const QString& address)
{
    return QUrl(address).toDisplayString(QUrl::RemovePassword);
}

} // namespace

bool IsCopyCommand(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i)
        if (std::strncmp(argv[i], copyFlag, sizeof copyFlag - 1) == 0)
            return true;
    return false;
}

int RunCopyCommand(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(AppConstants::title());
    QCoreApplication::setApplicationVersion(AppConstants::versionText());
    QTextStream out(stdout);
    QTextStream err(stderr);

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("把一个账本（连同操作员和全部账目）复制到另一个账本数据库。"));
    parser.addHelpOption();
    const QCommandLineOption ledger(QStringLiteral("copy-ledger"), QStringLiteral("要复制的账本ID。"),
                                    QStringLiteral("ID"));
    const QCommandLineOption from(QStringLiteral("from"),
                                  QStringLiteral("源数据库地址；不给出时为本程序使用的数据库。"),
                                  QStringLiteral("ADDRESS"));
    const QCommandLineOption to(QStringLiteral("to"), QStringLiteral("目标数据库地址。"),
                                QStringLiteral("ADDRESS"));
    parser.addOptions({ledger, from, to});
    parser.process(app);
    const QString ledgerId = parser.value(ledger);
    if (ledgerId.isEmpty() || !parser.isSet(to)) {
        err << QStringLiteral("请给出要复制的账本ID（--copy-ledger）和目标数据库地址（--to）。\n");
        return 1;
    }

    DbConfig sourceConfig;
    DbConfig targetConfig;
    QString error;
    if (parser.isSet(from))
        DbConfig::fromAddress(parser.value(from), &sourceConfig, &error);
    else
        sourceConfig = DbConfig::fromEnvironment(&error);
    if (!error.isEmpty()) {
        err << QStringLiteral("源数据库地址无法使用：") << error << '\n';
        return 1;
    }
    if (!DbConfig::fromAddress(parser.value(to), &targetConfig, &error)) {
        err << QStringLiteral("目标数据库地址无法使用：") << error << '\n';
        return 1;
    }

    Database source(sourceConfig);
    Database target(targetConfig);
    const CopyOutcome outcome =
        CopyLedger(source, target, ledgerId, [&err](const QString& table, qint64 done, qint64 total) {
            if (done == total || done % 10000 == 0)
                err << table << QStringLiteral(": ") << done << QStringLiteral(" / ") << total << Qt::endl;
            return true;
        });
    if (!outcome.ok) {
        const QString where =
            parser.isSet(from) ? Shown(parser.value(from)) : QStringLiteral("本程序使用的数据库");
        err << QStringLiteral("复制账本“") << ledgerId << QStringLiteral("”失败：") << outcome.error
            << QStringLiteral("\n源数据库：") << where << QStringLiteral("\n目标数据库：")
            << Shown(parser.value(to)) << '\n';
        return 1;
    }
    for (const QString& line : outcome.lines)
        out << line << '\n';
    return 0;
}

} // namespace lanzhou
