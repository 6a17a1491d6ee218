#include "QtShell.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QStyle>
#include <QSystemTrayIcon>
#include <QUrl>

namespace lanzhou {

QtShell::QtShell(QObject* parent) : Shell(parent)
{
    const QIcon icon = QApplication::windowIcon().isNull()
                           ? QApplication::style()->standardIcon(QStyle::SP_ComputerIcon)
                           : QApplication::windowIcon();
    m_tray = new QSystemTrayIcon(icon, this);
    m_tray->setToolTip(QApplication::applicationDisplayName());
    connect(m_tray, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger)
            emit trayLeftClicked();
        else if (reason == QSystemTrayIcon::Context)
            emit trayRightClicked();
    });
}

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

void QtShell::setTrayIconVisible(bool visible)
{
    m_tray->setVisible(visible && QSystemTrayIcon::isSystemTrayAvailable());
}

bool QtShell::trayIconVisible() const
{
    return m_tray->isVisible();
}

} // namespace lanzhou
