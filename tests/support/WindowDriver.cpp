#include "WindowDriver.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

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

QString WindowDriver::state() const
{
    QStringList shown{m_window->windowTitle()};
    for (QWidget* control : m_window->findChildren<QWidget*>()) {
        const QString name = control->objectName();
        if (name.isEmpty() || name.startsWith(u"qt_") || !control->window()->isVisible())
            continue;
        QString line = name + (control->isVisible() ? QString() : u" hidden"_s);
        if (control->isVisible()) {
            line += control->isEnabled() ? u" enabled"_s : u" disabled"_s;
            for (const char* property : {"currentText", "text", "plainText", "checked"})
                line += u' ' + control->property(property).toString();
            if (auto* list = qobject_cast<QListWidget*>(control)) {
                for (int i = 0; i < list->count(); ++i)
                    line += u'/' + list->item(i)->text();
                line += u" at "_s + QString::number(list->currentRow());
            }
        }
        shown.append(line);
    }
    return shown.join(u'\n');
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
    QLineEdit* line = qobject_cast<QLineEdit*>(control);
    if (auto* combo = qobject_cast<QComboBox*>(control))
        line = combo->lineEdit();
    auto* page = qobject_cast<QPlainTextEdit*>(control);
    if (!line && !page)
        missing(boxName + QStringLiteral(" (to type into)"));
    control->setFocus();
    line ? line->selectAll() : page->selectAll();
    QWidget* box = line ? static_cast<QWidget*>(line) : page;
    QTest::keyClick(box, Qt::Key_Delete);
    typeText(box, text);
}

void WindowDriver::act(const QString& steps) const
{
    for (const QString& step : steps.split(u';')) {
        const QString head = step.section(u'=', 0, 0), name = head.section(u'@', 0, 0);
        auto* list = qobject_cast<QComboBox*>(w<QWidget>(name.section(u'/', 0, 0)));
        if (name.contains(u'/'))
            WindowDriver(w<QWidget>(name.section(u'/', 0, 0))).act(step.section(u'/', 1));
        else if (head.contains(u'@'))
            clickLine(name, head.section(u'@', 1).toInt());
        else if (!step.contains(u'='))
            click(name);
        else if (list && !list->isEditable())
            pick(name, step.section(u'=', 1));
        else
            type(name, step.section(u'=', 1));
    }
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

void whenModal(const std::function<void(const WindowDriver&)>& steps)
{
    QTimer::singleShot(0, [steps] {
        QWidget* dialog = QApplication::activeModalWidget();
        QVERIFY(dialog);
        steps(WindowDriver(dialog));
    });
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
