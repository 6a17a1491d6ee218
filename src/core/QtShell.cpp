#include "QtShell.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QStyle>
#include <QSystemTrayIcon>
#include <QUrl>

namespace lanzhou {

QtShell::QtShell(QObject* parent) : QObject(parent) {}

bool QtShell::openUrl(const QString& address)
{
    // A file address is taken as a local path, so that "#" or "?" in a file name stay part of it.
    const QLatin1String fileScheme("file://");
    if (address.startsWith(fileScheme))
        return QDesktopServices::openUrl(QUrl::fromLocalFile(address.mid(fileScheme.size())));
    return QDesktopServices::openUrl(QUrl::fromUserInput(address));
}

void QtShell::setClipboardText(const QString& text)
{
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    clipboard->setText(text);
}

QSystemTrayIcon* QtShell::trayIcon()
{
    if (!m_tray) {
        m_tray = new QSystemTrayIcon(QApplication::style()->standardIcon(QStyle::SP_ComputerIcon), this);
    }
    return m_tray;
}

void QtShell::setTrayIconVisible(bool visible)
{
    trayIcon()->setVisible(visible && QSystemTrayIcon::isSystemTrayAvailable());
}

} // namespace lanzhou
