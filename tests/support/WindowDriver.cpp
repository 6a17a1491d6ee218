#include "WindowDriver.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPixmap>
#include <QTest>

namespace lanzhou::test {

void WindowDriver::missing(const QString& what) const
{
    qFatal("%s has no control or entry %s", m_window ? qPrintable(m_window->objectName()) : "no window",
           qPrintable(what));
}

QStringList WindowDriver::lines(const QString& listName) const
{
    QStringList texts;
    auto* list = w<QListWidget>(listName);
    for (int i = 0; i < list->count(); ++i)
        texts.append(list->item(i)->text());
    return texts;
}

QString CellTexts(const QString& line)
{
    QStringList cells = line.split(QChar(0x2502));
    for (QString& cell : cells)
        cell = cell.trimmed();
    return cells.join(u'|');
}

QString WindowDriver::text(const QString& name) const
{
    QWidget* control = w<QWidget>(name);
    const QVariant text = control->property(qobject_cast<QComboBox*>(control) ? "currentText" : "text");
    if (!text.isValid())
        missing(name + QStringLiteral(" (with a text)"));
    return text.toString();
}

void WindowDriver::activate() const
{
    QWidget* top = m_window->window();
    if (QApplication::activeWindow() == top)
        return;
    QApplication::setActiveWindow(top);
    if (!QTest::qWaitForWindowActive(top))
        qFatal("window %s does not become active", qPrintable(top->objectName()));
}

void WindowDriver::click(const QString& buttonName) const
{
    QTest::mouseClick(w<QWidget>(buttonName), Qt::LeftButton);
}

void WindowDriver::press(const QString& name, Qt::Key key) const
{
    activate();
    QWidget* control = w<QWidget>(name);
    control->setFocus();
    QTest::keyClick(control, key);
}

void WindowDriver::pick(const QString& comboName, const QString& entry) const
{
    const int index = w<QComboBox>(comboName)->findText(entry, Qt::MatchExactly);
    if (index < 0)
        missing(comboName + QStringLiteral(": ") + entry);
    pickIndex(comboName, index);
}

void WindowDriver::pickIndex(const QString& comboName, int index) const
{
    activate();
    auto* combo = w<QComboBox>(comboName);
    combo->setFocus();
    combo->showPopup();
    QAbstractItemView* list = combo->view();
    list->setCurrentIndex(combo->model()->index(index, 0));
    QTest::keyClick(list, Qt::Key_Return);
}

void WindowDriver::type(const QString& boxName, const QString& text) const
{
    activate();
    QWidget* control = w<QWidget>(boxName);
    QLineEdit* box = qobject_cast<QLineEdit*>(control);
    if (auto* combo = qobject_cast<QComboBox*>(control))
        box = combo->lineEdit();
    if (!box)
        missing(boxName + QStringLiteral(" (to type into)"));
    control->setFocus();
    box->selectAll();
    QTest::keyClick(box, Qt::Key_Delete);
    typeText(box, text);
}

void WindowDriver::chooseMenu(const QString& buttonName, const QString& actionName) const
{
    click(buttonName);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu)
        missing(buttonName + QStringLiteral(" (a menu)"));
    auto* action = menu->findChild<QAction*>(actionName);
    if (!action)
        missing(actionName);
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
}

void WindowDriver::clickLine(const QString& listName, int row) const
{
    auto* list = w<QListWidget>(listName);
    if (row < 0 || row >= list->count())
        missing(listName + QStringLiteral(" line ") + QString::number(row));
    list->scrollToItem(list->item(row));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(row)).center());
}

void WindowDriver::doubleClickLine(const QString& listName, int row) const
{
    clickLine(listName, row);
    auto* list = w<QListWidget>(listName);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(row)).center());
}

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
