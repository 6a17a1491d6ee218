#include "Settings.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>
#include <QUrl>

#include <memory>

namespace lanzhou {

namespace {

std::unique_ptr<QSettings> open(const Settings& settings, const QString& application)
{
#ifdef Q_OS_WIN
    Q_UNUSED(settings)
    return std::make_unique<QSettings>(
        QStringLiteral("HKEY_CURRENT_USER\\Software\\VB and VBA Program Settings\\") + application,
        QSettings::NativeFormat);
#else
    return std::make_unique<QSettings>(settings.iniPath(application), QSettings::IniFormat);
#endif
}

} // namespace

Settings::Settings(QString root) : m_root(std::move(root))
{
    if (m_root.isEmpty())
        m_root = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                 QStringLiteral("/lanzhou");
}

QString Settings::iniPath(const QString& application) const
{
    // Ledger IDs serve as application names; keep them safe as file names.
    const QString fileName = QString::fromUtf8(QUrl::toPercentEncoding(application, "@.+-_"));
    return m_root + QLatin1Char('/') + fileName + QStringLiteral(".ini");
}

QString Settings::read(const QString& application, const QString& section, const QString& key) const
{
    auto store = open(*this, application);
    store->beginGroup(section);
    return store->value(key, QString()).toString();
}

void Settings::write(const QString& application, const QString& section, const QString& key,
                     const QString& value)
{
    QDir().mkpath(m_root);
    auto store = open(*this, application);
    store->beginGroup(section);
    store->setValue(key, value);
    store->endGroup();
    store->sync();
}

} // namespace lanzhou
