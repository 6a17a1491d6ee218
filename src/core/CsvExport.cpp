#include "CsvExport.h"

#include "AppContext.h"
#include "Dialogs.h"
#include "Session.h"
#include "Shell.h"

#include <QFileInfo>
#include <QStandardPaths>

namespace lanzhou {

namespace {

// The filter of the save dialog: the description, a NUL, then the pattern text as the system has it.
const QString exportFilter =
    QStringLiteral("Excel文件（CSV格式）") + QChar(0) + QStringLiteral("*.csv & Chr$(0) & Chr$(0)");

} // namespace

QString AskSaveFileName(const AppContext& context, const QString& title, const QString& name,
                        const QString& filter, const QString& extension)
{
    Session& session = context.session;
    if (session.exportFolder.isEmpty())
        session.exportFolder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    // A folder with a file name in it opens the dialog on that name.
    const QString offered = name.isEmpty() ? session.exportFolder : session.exportFolder + u'/' + name;
    QString chosen = context.dialogs.saveFileName(title, offered, filter);
    if (chosen.isEmpty())
        return QString();
    if (!chosen.endsWith(extension, Qt::CaseInsensitive))
        chosen += extension;
    session.exportFolder = QFileInfo(chosen).absolutePath();
    return chosen;
}

QString AskExportFileName(const AppContext& context, const QString& caption)
{
    return AskSaveFileName(context, caption + QStringLiteral(" 导出到Excel文件"), QString(), exportFilter,
                           QStringLiteral(".csv"));
}

QString CsvLine(const QString& line, bool collapseBlanks)
{
    QString csv = line;
    if (collapseBlanks) {
        while (csv.contains(QLatin1String("  ")))
            csv.replace(QLatin1String("  "), QLatin1String(" "));
    }
    return csv.replace(QChar(0x2502), QLatin1Char(','));
}

CsvFile::CsvFile(const QString& path) : m_file(path), m_encoder(QStringConverter::System)
{
    m_ok = m_file.open(QIODevice::WriteOnly | QIODevice::Append);
}

void CsvFile::writeLine(const QString& line)
{
    if (!m_ok)
        return;
    const QByteArray bytes = m_encoder.encode(line + QStringLiteral("\r\n"));
    m_ok = m_file.write(bytes) == bytes.size();
}

bool CsvFile::finish()
{
    if (!m_file.isOpen())
        return false;
    m_ok = m_file.flush() && m_ok;
    m_file.close();
    return m_ok && m_file.error() == QFileDevice::NoError;
}

void ReportExport(const AppContext& context, const QString& path, bool written)
{
    if (!written) {
        context.dialogs.inform(QStringLiteral("导出失败"));
        return;
    }
    if (context.dialogs.askYesNo(QStringLiteral("数据导出完成！\n\n是否需要打开这个Excel文件？"), QString(),
                                 DialogIcon::Information, DialogAnswer::Yes))
        OpenWithDesktop(context, path);
}

void OpenWithDesktop(const AppContext& context, const QString& path)
{
    if (!QFileInfo::exists(path)) {
        context.dialogs.inform(QStringLiteral("指定文件已经被移除！"));
        return;
    }
    if (!context.shell.openUrl(QStringLiteral("file://") + path))
        context.dialogs.inform(QStringLiteral("您的系统不支持由程序直接打开文件、或没有安装相关应用程序，\n\n"
                                              "请您到文件夹中尝试鼠标双击该文件打开文件。"));
}

} // namespace lanzhou
