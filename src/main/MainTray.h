#pragma once

#include <QObject>

class QMenu;
class QWidget;

namespace lanzhou {

class Shell;

// The main window's life in the notification area: hidden to the tray icon when minimised or
// when closing is declined, shown again by a left click, the tray menu on a right click.
class MainTray : public QObject
{
    Q_OBJECT
public:
    MainTray(Shell& shell, QWidget* window, QMenu* menu);

    // Hides the window behind the tray icon; where the desktop has no tray the window is only
    // minimised, so that it can always be found again.
    void hideToTray();
    void showWindow();
    // The program ends: the icon goes.
    void remove();

private:
    Shell& m_shell;
    QWidget* m_window;
    QMenu* m_menu;
};

} // namespace lanzhou
