#pragma once

#include <QString>
#include <QStringList>

namespace lanzhou {

// What the program asks of the desktop: open files and web addresses, the clipboard, the tray icon.
class Shell
{
public:
    virtual ~Shell() = default;
    // False when the desktop could not open it.
    virtual bool openUrl(const QString& address) = 0;
    virtual void setClipboardText(const QString& text) = 0;
    virtual void setTrayIconVisible(bool visible) = 0;
};

// Test double that records what was asked.
class RecordingShell final : public Shell
{
public:
    bool openUrl(const QString& address) override
    {
        openedUrls.append(address);
        return openSucceeds;
    }
    void setClipboardText(const QString& text) override { clipboard = text; }
    void setTrayIconVisible(bool visible) override { trayVisible = visible; }

    QStringList openedUrls;
    QString clipboard;
    bool trayVisible = false;
    bool openSucceeds = true;
};

} // namespace lanzhou
