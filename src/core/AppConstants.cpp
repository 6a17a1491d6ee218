#include "AppConstants.h"

#include <QDir>

namespace lanzhou {

QString AppConstants::programFolder(const QString& applicationDir)
{
    const QString sep = QDir::separator();
    QString folder = QDir::toNativeSeparators(applicationDir);
    if (!folder.endsWith(sep))
        folder += sep;
    return folder;
}

QString AppConstants::webSite()
{
    return QStringLiteral(LANZHOU_WEB_SITE);
}

QString AppConstants::makerLines()
{
    return company() + QStringLiteral("\n网址：") + webSite() + QStringLiteral("\n服务电话：") +
           servicePhone() + QStringLiteral("\n客服QQ：") + serviceQq();
}

} // namespace lanzhou
