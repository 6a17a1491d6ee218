#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace lanzhou {

// Shows the hourglass pointer for the lifetime of the object, when there is a screen to show it on.
class WaitCursor
{
public:
    WaitCursor() : m_active(qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr)
    {
        if (m_active)
            QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
    }
    ~WaitCursor()
    {
        if (m_active)
            QGuiApplication::restoreOverrideCursor();
    }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

private:
    bool m_active;
};

} // namespace lanzhou
