#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

namespace lanzhou {

// What the program asks of the desktop: open files and web addresses, the clipboard, and the
// notification-area (tray) icon with the clicks it receives.
class Shell : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    // False when the desktop could not open it.
    virtual bool openUrl(const QString& address) = 0;
    virtual void setClipboardText(const QString& text) = 0;
    virtual void setTrayIconVisible(bool visible) = 0;
    virtual bool trayIconVisible() const = 0;

signals:
    // A click on the tray icon: the left button shows the window, the right one asks for the tray menu.
    void trayLeftClicked();
    void trayRightClicked();
};

// Test double that records what was asked and fires tray clicks on demand.
class RecordingShell final : public Shell
{
    Q_OBJECT
public:
    bool openUrl(const QString& address) override
    {
        openedUrls.append(address);
        return openSucceeds;
    }
    void setClipboardText(const QString& text) override { clipboard = text; }
    void setTrayIconVisible(bool visible) override { trayVisible = visible; }
    bool trayIconVisible() const override { return trayVisible; }
    void clickTray(Qt::MouseButton button)
    {
        if (button == Qt::LeftButton)
            emit trayLeftClicked();
        else
            emit trayRightClicked();
    }

    QStringList openedUrls;
    QString clipboard;
    bool trayVisible = false;
    bool openSucceeds = true;
};

} // namespace lanzhou
