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

} // namespace lanzhou
