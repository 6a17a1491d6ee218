#include "JournalFixture.h"

#include <QCoreApplication>
#include <QTest>

namespace lanzhou::test {

void openJournalLedger(TestContext& t)
{
    t.openLedger(QStringLiteral("L1"), QStringLiteral("五金仓库"));
    t.session.operators = {QStringLiteral("管理员"), QStringLiteral("张三")};
    t.session.serverDateText = QStringLiteral("2026-11-15");
    t.session.serverDateDay = 15;
}

void addEntry(TestContext& t, const QString& ledgerId, const QString& op, const QString& time,
              const QString& id, const QString& item, const QString& quantity, const QString& remark)
{
    t.exec(QStringLiteral(
               "insert into Zhang (ZBID,USR,TM,ID,ITEM,SL,BZ) values ('%1','%2','%3','%4','%5',%6,'%7')")
               .arg(ledgerId, op, time, id, item, quantity, remark));
}

void addSampleEntries(TestContext& t)
{
    const QString admin = QStringLiteral("管理员");
    const QString zhang = QStringLiteral("张三");
    const QString l1 = QStringLiteral("L1");
    addEntry(t, l1, admin, QStringLiteral("2026-10-01 08:00"), QStringLiteral("A01"),
             QStringLiteral("A型螺丝"), QStringLiteral("100"), QStringLiteral("期初"));
    addEntry(t, l1, admin, QStringLiteral("2026-11-15 08:00"), QStringLiteral("A02"),
             QStringLiteral("A型螺丝"), QStringLiteral("10"), QStringLiteral("入库"));
    addEntry(t, l1, zhang, QStringLiteral("2026-11-15 09:00"), QStringLiteral("A03"),
             QStringLiteral("A型螺丝"), QStringLiteral("-2.5"), QStringLiteral("计划外"));
    addEntry(t, l1, zhang, QStringLiteral("2026-11-15 10:00"), QStringLiteral("A04"),
             QStringLiteral("B型螺母"), QStringLiteral("0"), QStringLiteral("盘点"));
    addEntry(t, l1, admin, QStringLiteral("2026-11-15 23:59"), QStringLiteral("A05"),
             QStringLiteral("B型螺母"), QStringLiteral("-4"), QString());
    addEntry(t, l1, admin, QStringLiteral("2026-11-16 00:00"), QStringLiteral("A06"),
             QStringLiteral("B型螺母"), QStringLiteral("7"), QString());
    addEntry(t, l1, admin, QStringLiteral("2026-11-15 00:00"), QStringLiteral("A07"),
             QStringLiteral("C型不锈钢加长垫圈（国标GB97.1规格M12）"), QStringLiteral("1.123456789"),
             QStringLiteral("一条不会被截短的很长很长的备注"));
    addEntry(t, l1, admin, QStringLiteral("2026-11-01 00:00"), QStringLiteral("A11"),
             QStringLiteral("d型弹簧"), QStringLiteral("5"), QString());
    addEntry(t, l1, admin, QStringLiteral("2026-11-15 12:00"), QStringLiteral("A09"),
             QStringLiteral("D型弹簧"), QStringLiteral("3"), QString());
    addEntry(t, l1, admin, QStringLiteral("2026-11-15 13:00"), QStringLiteral("A10"),
             QStringLiteral("d型弹簧"), QStringLiteral("2"), QString());
    addEntry(t, QStringLiteral("管理员#L1#2026-11-14 10:00"), admin, QStringLiteral("2026-11-15 11:00"),
             QStringLiteral("A08"), QStringLiteral("A型螺丝"), QStringLiteral("50"), QString());
    addEntry(t, QStringLiteral("L2"), admin, QStringLiteral("2026-11-15 11:00"), QStringLiteral("B01"),
             QStringLiteral("A型螺丝"), QStringLiteral("1000"), QString());
}

QListWidget* list(QWidget* window, const QString& name)
{
    auto* found = window->findChild<QListWidget*>(name);
    Q_ASSERT(found);
    return found;
}

QComboBox* combo(QWidget* window, const QString& name)
{
    auto* found = window->findChild<QComboBox*>(name);
    Q_ASSERT(found);
    return found;
}

QPushButton* button(QWidget* window, const QString& name)
{
    return window->findChild<QPushButton*>(name);
}

void click(QWidget* window, const QString& buttonName)
{
    QPushButton* target = button(window, buttonName);
    Q_ASSERT(target);
    QTest::mouseClick(target, Qt::LeftButton);
}

void pickIndex(QComboBox* list, int index)
{
    list->setCurrentIndex(index);
    emit list->activated(index);
}

void pick(QComboBox* list, const QString& text)
{
    const int index = list->findText(text);
    if (index < 0)
        QTest::qFail(qPrintable(QStringLiteral("no entry ") + text), __FILE__, __LINE__);
    pickIndex(list, index);
}

void clickLine(QListWidget* list, int row)
{
    list->scrollToItem(list->item(row));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(row)).center());
}

void doubleClickLine(QListWidget* list, int row)
{
    list->scrollToItem(list->item(row));
    const QPoint at = list->visualItemRect(list->item(row)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at);
}

QStringList listedIds(MxLst& journal)
{
    QStringList ids;
    QListWidget* ids2 = list(&journal, QStringLiteral("Lst2"));
    for (int i = 0; i < ids2->count(); ++i) {
        if (!ids2->item(i)->text().isEmpty())
            ids.append(ids2->item(i)->text());
    }
    return ids;
}

int rowOfEntry(MxLst& journal, const QString& id)
{
    QListWidget* ids2 = list(&journal, QStringLiteral("Lst2"));
    for (int i = 0; i < ids2->count(); ++i) {
        if (ids2->item(i)->text() == id)
            return i;
    }
    return -1;
}

QStringList cells(const QString& line)
{
    QStringList parts = line.split(QChar(0x2502));
    for (QString& part : parts)
        part = part.trimmed();
    return parts;
}

MxEd* openEditor(MxLst& journal)
{
    for (MxEd* editor : journal.findChildren<MxEd*>()) {
        if (editor->isVisible())
            return editor;
    }
    return nullptr;
}

} // namespace lanzhou::test
