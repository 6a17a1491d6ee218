#pragma once

#include "Shell.h"

#include <QObject>

class QSystemTrayIcon;

namespace lanzhou {

// The real desktop: QDesktopServices, the clipboard and a notification-area icon.
class QtShell final : public QObject, public Shell
{
    Q_OBJECT
public:
    explicit QtShell(QObject* parent = nullptr);

    bool openUrl(const QString& address) override;
    void setClipboardText(const QString& text) override;
    void setTrayIconVisible(bool visible) override;

    // The tray icon, created on first use, so that the main window can connect its menu and clicks.
    QSystemTrayIcon* trayIcon();

private:
    QSystemTrayIcon* m_tray = nullptr;
};

} // namespace lanzhou
