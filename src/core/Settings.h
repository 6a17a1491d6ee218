#pragma once

#include <QString>

namespace lanzhou {

// The per-user settings store, addressed by (application, section, key); every read defaults to "".
// On Windows it is the registry location the classic per-user program settings use; elsewhere one
// INI file per application name below the settings root.
class Settings
{
public:
    // An empty root means the user's config folder.
    explicit Settings(QString root = QString());

    QString read(const QString& application, const QString& section, const QString& key) const;
    void write(const QString& application, const QString& section, const QString& key, const QString& value);

    // The INI file that holds one application's settings (not used on Windows).
    QString iniPath(const QString& application) const;

private:
    QString m_root;
};

} // namespace lanzhou
