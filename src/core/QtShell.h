#pragma once

#include "Shell.h"

class QSystemTrayIcon;

namespace lanzhou {

// The real desktop: QDesktopServices, the clipboard and a notification-area icon.
class QtShell final : public Shell
{
    Q_OBJECT
public:
    explicit QtShell(QObject* parent = nullptr);

    bool openUrl(const QString& address) override;
    void setClipboardText(const QString& text) override;
    void setTrayIconVisible(bool visible) override;
    bool trayIconVisible() const override;

private:
    QSystemTrayIcon* m_tray = nullptr;
};

} // namespace lanzhou
