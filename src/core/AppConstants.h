#pragma once

#include <QString>

namespace lanzhou {

// The shared constants set at start-up.
struct AppConstants
{
    static QString version() { return QStringLiteral("2.0"); }
    static QString title() { return QStringLiteral("岚舟云记账软件"); }
    static QString settingsTag() { return QStringLiteral("FR"); }
    static QString versionText() { return settingsTag() + version(); }
    // Application name under which the local settings are kept.
    static QString settingsApp() { return QStringLiteral("岚舟云记账"); }
    static constexpr qint16 maxLedgers = 1000;
    static QString programFolder(const QString& applicationDir);

    // The maker, as the about box and the open-ledger panel name him.
    static QString webSite();
    static QString company() { return QStringLiteral("岚舟软件工作室"); }
    static QString servicePhone() { return QStringLiteral("400-860-2026"); }
    static QString serviceQq() { return QStringLiteral("2026860400"); }
    // Company, web site, service telephone and customer-service number, one per line.
    static QString makerLines();
};

} // namespace lanzhou
