#include "TestWidgets.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPixmap>
#include <QWidget>

namespace lanzhou::test {

void typeText(QWidget* field, const QString& text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const qsizetype length = text.at(i).isHighSurrogate() && i + 1 < text.size() ? 2 : 1;
        const QString key = text.mid(i, length);
        i += length - 1;
        QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, key);
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_unknown, Qt::NoModifier, key);
        QCoreApplication::sendEvent(field, &press);
        QCoreApplication::sendEvent(field, &release);
    }
}

void saveScreenshot(QWidget* window, const QString& fileName)
{
    const QString folder = qEnvironmentVariable("LANZHOU_SCREENSHOT_DIR");
    if (!folder.isEmpty())
        window->grab().save(folder + u'/' + fileName);
}

} // namespace lanzhou::test
