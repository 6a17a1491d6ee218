#include "ListWindow.h"

#include "WindowRules.h"

#include <QCloseEvent>
#include <QTimer>

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

void ListWindow::markBusy(bool busy)
{
    m_busy = busy;
    // Closed from the next turn of the event loop, once the run that stopped has returned.
    if (!busy && m_closing)
        QTimer::singleShot(0, this, &QWidget::close);
}

void ListWindow::closeEvent(QCloseEvent* event)
{
    if (m_busy) {
        m_closing = true;
        event->ignore();
        hide();
        return;
    }
    m_closing = false;
    QWidget::closeEvent(event);
}

} // namespace lanzhou
