#include "ListWindow.h"

#include "WindowRules.h"

#include <QCloseEvent>

namespace lanzhou {

ListWindow::~ListWindow()
{
    DetachHandlers(this);
}

void ListWindow::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!std::exchange(m_fitted, true))
        FitIntoScreen(this);
}

void ListWindow::closeEvent(QCloseEvent* event)
{
    if (m_busy)
        event->ignore();
    else
        QWidget::closeEvent(event);
}

} // namespace lanzhou
