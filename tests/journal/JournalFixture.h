#pragma once

#include "MxEd.h"
#include "MxLst.h"
#include "TestContext.h"
#include "WindowDriver.h"

#include <QListWidget>

#include <memory>

namespace lanzhou::test {

using namespace Qt::StringLiterals;

// Adds rows to Zhang as they stand: "('L1','张三','2026-11-15 09:00','A03','A型螺丝',-2.5,'计划外')".
inline void addEntries(TestContext& t, const QString& values)
{
    t.exec(u"insert into Zhang (ZBID,USR,TM,ID,ITEM,SL,BZ) values "_s + values);
}

// The texts of the named controls, joined by blanks.
inline QString texts(const WindowDriver& d, const QString& names)
{
    QStringList texts;
    for (const QString& name : names.split(u' '))
        texts.append(d.text(name));
    return texts.join(u' ');
}

// The journal of ledger L1 (物品, 存量) as 管理员 with all rights on 2026-11-15, shown, driven as a
// person would. The sample ledger: movements before, inside and after that day, a tombstoned entry,
// an entry of another ledger, one item written in two letter cases, an item name too long for its
// column.
struct JournalWindow
{
    explicit JournalWindow(const QString& backend, bool sample = true)
        : t(backend), context(open(t, sample)), window(std::make_unique<MxLst>(context)), d(window.get())
    {
        window->show();
    }

    static AppContext open(TestContext& t, bool sample)
    {
        t.openLedger(u"L1"_s, u"五金仓库"_s);
        t.session.operators = {u"管理员"_s, u"张三"_s};
        t.session.serverDateText = u"2026-11-15"_s;
        t.session.serverDateDay = 15;
        if (sample)
            addEntries(t, u"('L1','管理员','2026-10-01 08:00','A01','A型螺丝',100,'期初'),"
                          "('L1','管理员','2026-11-15 08:00','A02','A型螺丝',10,'入库'),"
                          "('L1','张三','2026-11-15 09:00','A03','A型螺丝',-2.5,'计划外'),"
                          "('L1','张三','2026-11-15 10:00','A04','B型螺母',0,'盘点'),"
                          "('L1','管理员','2026-11-15 23:59','A05','B型螺母',-4,''),"
                          "('L1','管理员','2026-11-16 00:00','A06','B型螺母',7,''),"
                          "('L1','管理员','2026-11-15 00:00','A07','C型不锈钢加长垫圈（国标GB97.1规格M12）',"
                          "1.123456789,'一条不会被截短的很长很长的备注'),"
                          "('L1','管理员','2026-11-01 00:00','A11','d型弹簧',5,''),"
                          "('L1','管理员','2026-11-15 12:00','A09','D型弹簧',3,''),"
                          "('L1','管理员','2026-11-15 13:00','A10','d型弹簧',2,''),"
                          "('管理员#L1#2026-11-14 10:00','管理员','2026-11-15 11:00','A08','A型螺丝',50,''),"
                          "('L2','管理员','2026-11-15 11:00','B01','A型螺丝',1000,'')"_s);
        return t.context();
    }

    // Every line of the table (Lst) or of the entry IDs behind its lines (Lst2).
    QStringList lines(const QString& name = u"Lst"_s) const
    {
        QStringList texts;
        auto* list = d.w<QListWidget>(name);
        for (int i = 0; i < list->count(); ++i)
            texts.append(list->item(i)->text());
        return texts;
    }
    // The entry IDs in listing order.
    QStringList ids() const
    {
        QStringList texts = lines(u"Lst2"_s);
        texts.removeAll(QString());
        return texts;
    }
    int rowOf(const QString& id) const { return lines(u"Lst2"_s).indexOf(id); }
    void select(const QString& id) const { d.clickLine(u"Lst"_s, rowOf(id)); }
    // The entry editor the journal has open, or null.
    MxEd* editor() const
    {
        for (MxEd* open : window->findChildren<MxEd*>()) {
            if (open->isVisible())
                return open;
        }
        return nullptr;
    }
    // The rows of a read: fields joined by "|", rows by ";".
    QString rows(const QString& sql)
    {
        QStringList texts;
        for (const QStringList& row : t.rows(sql))
            texts.append(row.join(u'|'));
        return texts.join(u';');
    }
    // ZBID|USR|TM|ITEM|SL|BZ of the rows with the ID.
    QString entry(const QString& id)
    {
        return rows(u"select ZBID,USR,TM,ITEM,SL,BZ from Zhang where ID='"_s + id + u"'"_s);
    }
    // Runs the steps against a server that is down.
    template <class Steps> void serverDown(Steps steps)
    {
        Database dead(unreachableConfig(u"postgresql"_s));
        std::swap(*t.db, dead);
        steps();
        std::swap(*t.db, dead);
    }

    TestContext t;
    AppContext context;
    std::unique_ptr<MxLst> window;
    WindowDriver d;
};

} // namespace lanzhou::test
