#include "WindowRules.h"

#include <QComboBox>
#include <QScreen>
#include <QWidget>

namespace lanzhou {

void FitIntoScreen(QWidget* window)
{
    const QScreen* screen = window->screen();
    if (!screen)
        return;
    const QRect available = screen->availableGeometry();
    // The frame adds a title bar and borders around the window's own size.
    const QSize frameExtra = window->frameGeometry().size() - window->geometry().size();
    const QSize room = available.size() - frameExtra;
    const QSize size = window->size().boundedTo(room).expandedTo(window->minimumSize().boundedTo(room));
    if (size != window->size()) {
        window->setMinimumSize(window->minimumSize().boundedTo(room));
        window->resize(size);
    }
    QRect frame = window->frameGeometry();
    frame.moveRight(qMin(frame.right(), available.right()));
    frame.moveBottom(qMin(frame.bottom(), available.bottom()));
    frame.moveLeft(qMax(frame.left(), available.left()));
    frame.moveTop(qMax(frame.top(), available.top()));
    if (frame.topLeft() != window->frameGeometry().topLeft())
        window->move(frame.topLeft());
}

void TakeTypedTextAsIs(QComboBox* box)
{
    box->setCompleter(nullptr);
}

void DetachHandlers(QWidget* window)
{
    const QList<QObject*> controls = window->findChildren<QObject*>();
    for (QObject* control : controls) {
        control->removeEventFilter(window);
        QObject::disconnect(control, nullptr, window, nullptr);
    }
}

void BringForward(QWidget* window)
{
    window->show();
    window->raise();
    window->activateWindow();
}

} // namespace lanzhou
