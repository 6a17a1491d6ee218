// The journal under the hands of a new user: Enter in the editor's remark box, a listing the server
// cannot give, lines longer than the window, and a screen smaller than the window.
#include "MxEd.h"
#include "MxLst.h"
#include "TestContext.h"
#include "WindowDriver.h"

#include <QApplication>
#include <QFile>
#include <QFontMetrics>
#include <QListWidget>
#include <QScreen>
#include <QScrollBar>
#include <QTest>

using namespace lanzhou;
using namespace lanzhou::test;

namespace {

const QString kLongRemark = QStringLiteral(
    "一条很长的备注，比窗口还要宽得多，它不会被截短，也不会被省略号代替，一直写到最后一个字：尾");

struct Journal
{
    Journal()
    {
        t.openLedger(QStringLiteral("L1"), QStringLiteral("五金仓库"));
        t.session.serverDateText = QStringLiteral("2026-11-15");
        t.exec(QStringLiteral("insert into Zhang (ZBID,USR,TM,ID,ITEM,SL,BZ) values "
                              "('L1','管理员','2026-11-15 08:00','E1','螺丝',10,'%1')")
                   .arg(kLongRemark));
        t.exec(QStringLiteral("insert into Zhang (ZBID,USR,TM,ID,ITEM,SL,BZ) values "
                              "('L1','管理员','2026-11-15 09:00','E2','螺丝',-4,'')"));
        window = std::make_unique<MxLst>(t.context());
        window->show();
        d.setWindow(window.get());
        d.click(QStringLiteral("Cmd_0"));
    }
    int rowOf(const QString& id) const
    {
        auto* ids = d.w<QListWidget>(QStringLiteral("Lst2"));
        for (int row = 0; row < ids->count(); ++row)
            if (ids->item(row)->text() == id)
                return row;
        return -1;
    }

    TestContext t;
    std::unique_ptr<MxLst> window;
    WindowDriver d;
};

bool insideScreen(QWidget* window)
{
    return window->screen()->availableGeometry().contains(window->frameGeometry());
}

} // namespace

class TestJournalRobustness : public QObject
{
    Q_OBJECT
private slots:
    // Enter in the remark box saves and closes the editor; the journal lists the change afterwards.
    void enterInTheRemarkBoxSavesTheEdit()
    {
        Journal j;
        j.d.doubleClickLine(QStringLiteral("Lst"), j.rowOf(QStringLiteral("E2")));
        auto* editor = j.window->findChild<MxEd*>();
        QVERIFY(editor && editor->isVisible());
        QVERIFY(insideScreen(editor));
        WindowDriver e(editor);
        e.type(QStringLiteral("TxtBZ"), QStringLiteral("退货"));
        e.press(QStringLiteral("TxtBZ"), Qt::Key_Return);
        QTRY_COMPARE(j.rowOf(QStringLiteral("E2")), -1);
        QTRY_VERIFY(j.window->findChild<MxEd*>() == nullptr);
        const auto live = j.t.rows(QStringLiteral("select SL,BZ from Zhang where ZBID='L1' and BZ='退货'"));
        QCOMPARE(live.size(), 1);
        QCOMPARE(live.at(0).at(0).toDouble(), -4.0);
        QVERIFY(j.rowOf(j.t.rows(QStringLiteral("select ID from Zhang where BZ='退货'")).at(0).at(0)) > 0);
    }

    // A listing the server cannot give takes the old one away, so no command acts on stale lines.
    void failedReadClearsTheListing()
    {
        Journal j;
        QVERIFY(j.rowOf(QStringLiteral("E1")) > 0);
        const QString file = j.t.db->config().server.plain();
        for (const QString& suffix : {QString(), QStringLiteral("-wal"), QStringLiteral("-shm")})
            QFile::remove(file + suffix);
        j.d.click(QStringLiteral("Cmd_0"));
        QCOMPARE(j.t.dialogs.lastText(), QStringLiteral("没有符合条件的数据！"));
        QCOMPARE(j.d.w<QListWidget>(QStringLiteral("Lst"))->count(), 0);
        QCOMPARE(j.d.w<QListWidget>(QStringLiteral("Lst2"))->count(), 0);
        j.d.click(QStringLiteral("Cmd_5"));
        QCOMPARE(j.t.dialogs.lastText(), QStringLiteral("请首先选择您要删除的记录行！"));
    }

    // The window fits the screen; a line longer than the list scrolls sideways to its last character.
    void longLinesScrollToTheirEnd()
    {
        Journal j;
        QVERIFY(insideScreen(j.window.get()));
        auto* lines = j.d.w<QListWidget>(QStringLiteral("Lst"));
        const QString longest = lines->item(j.rowOf(QStringLiteral("E1")))->text();
        QVERIFY(longest.endsWith(kLongRemark));
        const int needed = QFontMetrics(lines->font()).horizontalAdvance(longest);
        QVERIFY(needed > lines->viewport()->width());
        QTRY_VERIFY(lines->horizontalScrollBar()->maximum() + lines->viewport()->width() >= needed);
        QCOMPARE(lines->textElideMode(), Qt::ElideNone);
    }
};

QTEST_MAIN(TestJournalRobustness)
#include "tst_journal_robustness.moc"
