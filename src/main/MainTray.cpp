#include "MainTray.h"

#include "Shell.h"
#include "WindowRules.h"

#include <QCursor>
#include <QMenu>
#include <QWidget>

namespace lanzhou {

MainTray::MainTray(Shell& shell, QWidget* window, QMenu* menu)
    : QObject(window), m_shell(shell), m_window(window), m_menu(menu)
{
    connect(&m_shell, &Shell::trayLeftClicked, this, &MainTray::showWindow);
    connect(&m_shell, &Shell::trayRightClicked, this, [this] { m_menu->popup(QCursor::pos()); });
}

void MainTray::hideToTray()
{
    m_shell.setTrayIconVisible(true);
    if (m_shell.trayIconVisible())
        m_window->hide();
    else if (!m_window->isMinimized())
        m_window->showMinimized();
}

void MainTray::showWindow()
{
    m_window->showNormal();
    BringForward(m_window);
}

void MainTray::remove()
{
    m_shell.setTrayIconVisible(false);
}

} // namespace lanzhou
