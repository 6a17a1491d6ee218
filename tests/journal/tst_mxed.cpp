#include "JournalFixture.h"

#include "EntryStatements.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

using namespace lanzhou;
using namespace lanzhou::test;

// The entry editor: the new entry IDs, its statements, modify, late entry and delete.
class TestMxEd : public QObject
{
    Q_OBJECT
private slots:
    void entryIds_data()
    {
        QTest::addColumn<QDateTime>("when");
        QTest::addColumn<QString>("id");
        QTest::newRow("year start") << QDateTime(QDate(2026, 1, 1), QTime(0, 0)) << u"780000000"_s;
        QTest::newRow("leap year end") << QDateTime(QDate(2028, 12, 31), QTime(23, 59)) << u"8031622340"_s;
        QTest::newRow("base zero") << QDateTime(QDate(1948, 3, 1), QTime(0, 1)) << u"05184060"_s;
        QTest::newRow("before 1948") << QDateTime(QDate(1900, 1, 1), QTime(1, 0)) << u"-480003600"_s;
        // A spring-forward night elsewhere changes nothing: the calendar has no daylight saving.
        QTest::newRow("local time") << QDateTime(QDate(2026, 3, 29), QTime(2, 30), Qt::LocalTime)
                                    << u"787525800"_s;
    }
    void entryIds()
    {
        QFETCH(QDateTime, when);
        QFETCH(QString, id);
        QCOMPARE(EditorEntryId(when), id);
    }

    void statements()
    {
        const QString stone = TombstoneLedgerId(u"张三"_s, u"L1"_s, u"2026-11-15"_s, u"09:05"_s);
        QCOMPARE(stone, u"张三#L1#2026-11-15 09:05"_s);
        QCOMPARE(ModifyTombstoneStatement(stone, u"L1"_s, u"A1"_s),
                 u"update Zhang Set ZBID='张三#L1#2026-11-15 09:05'  where ZBID='L1' and ID='A1'"_s);
        QCOMPARE(DeleteTombstoneStatement(stone, u"L1"_s, u"A1"_s),
                 u"update Zhang Set ZBID='张三#L1#2026-11-15 09:05' where ZBID='L1' and ID='A1'"_s);
        QCOMPARE(InsertEntryStatement(u"L1"_s, u"张三"_s, u"2026-11-15 08:30"_s, u"7827505800"_s, u"螺丝"_s,
                                      -0.125, QString()),
                 u"insert into Zhang (ZBID,USR,TM,ID,ITEM,SL,BZ) values "
                 "('L1','张三','2026-11-15 08:30','7827505800','螺丝',-0.125,'')"_s);
        QCOMPARE(InsertEntryStatement({}, {}, {}, {}, {}, 12345678901234.0, {}).section(u',', -2, -2),
                 u"12345678901234"_s);
        QCOMPARE(IdCheckStatement(u"L1"_s, u"A1"_s),
                 u"select ID from Zhang where ZBID= like  '%L1%' and ID='A1'"_s);
    }

    // Modify: the old row keeps everything but its ledger ID, the new one has a new ID; a server that is
    // down keeps what was typed for a retry. Then closing, deleting and an entry removed meanwhile.
    void modifyAndDelete_data() { addBackendRows(); }
    void modifyAndDelete()
    {
        QFETCH(QString, backend);
        JournalWindow j(backend);
        TestContext& t = j.t;
        // The ID check never answers, on any server, even for an ID in use.
        QCOMPARE(t.db->RunScalar(IdCheckStatement(u"L1"_s, u"A02"_s)), QString());
        j.d.click(u"Cmd_0"_s);
        const int row = j.rowOf(u"A02"_s);
        j.select(u"A02"_s);
        j.serverDown([&] { j.d.click(u"Cmd_4"_s); });
        QCOMPARE(t.dialogs.texts(), QStringList{u"连接服务器失败！"_s});
        QVERIFY(!j.editor());

        j.d.click(u"Cmd_4"_s);
        QVERIFY(j.editor());
        WindowDriver e(j.editor());
        QCOMPARE(j.editor()->windowTitle(), u"修改账目"_s);
        QVERIFY(j.editor()->isModal());
        QCOMPARE(texts(e, u"CmbItm TxtSL TxtBZ Cmb_0 Cmb_1 Cmb_2 Cmb_3 Cmb_4"_s),
                 u"A型螺丝 +10 入库 2026 11 15 08 00"_s);
        QVERIFY(e.w<QFrame>(u"FrmWait"_s)->isHidden() && e.w<QCheckBox>(u"Chk"_s)->isHidden());
        QVERIFY(e.w<QPushButton>(u"Cmd_1"_s)->isVisible());
        e.type(u"TxtSL"_s, u"-3.5"_s);
        e.type(u"TxtBZ"_s, u"返工 - 退回"_s);
        e.pick(u"Cmb_4"_s, u"30"_s);
        j.serverDown([&] { e.click(u"Cmd_0"_s); });
        QCOMPARE(t.dialogs.lastText(), u"连接服务器失败，请重试！"_s);
        QCOMPARE(t.dialogs.shown().constLast().title, u"提示"_s);
        QCOMPARE(texts(e, u"TxtSL TxtBZ"_s), u"-3.5 返工 - 退回"_s);
        QVERIFY(e.w<QPushButton>(u"Cmd_0"_s)->isEnabled());
        QCOMPARE(j.rows(u"select count(*) from Zhang"_s) + j.entry(u"A02"_s).left(3), u"12L1|"_s);

        t.dialogs.clear();
        e.click(u"Cmd_0"_s); // the retry
        QCOMPARE(t.dialogs.texts(), QStringList());
        QVERIFY(!j.editor());
        QCOMPARE(j.entry(u"A02"_s), u"管理员#L1#2026-11-15 09:05|管理员|2026-11-15 08:00|A型螺丝|10|入库"_s);
        QCOMPARE(j.entry(u"7827505800"_s), u"L1|管理员|2026-11-15 08:30|A型螺丝|-3.5|返工-退回"_s);
        // The journal ran again on return, and the marker is spent.
        QVERIFY(t.session.journalRefreshMarker.isEmpty());
        QCOMPARE(j.ids().mid(0, 2), (QStringList{u"7827505800"_s, u"A03"_s}));
        QCOMPARE(j.d.w<QListWidget>(u"Lst"_s)->currentRow(), row);

        // Closing without saving; then the editor's delete: the right, the question, the tombstone.
        j.d.doubleClickLine(u"Lst"_s, j.rowOf(u"A04"_s));
        e.setWindow(j.editor());
        e.click(u"Cmd_2"_s);
        QVERIFY(!j.editor());
        j.d.click(u"Cmd_4"_s);
        e.setWindow(j.editor());
        t.session.setRights(u"11111111111011"_s);
        e.click(u"Cmd_1"_s);
        t.session.setRights(QString());
        t.dialogs.queueAnswer(DialogAnswer::No);
        e.click(u"Cmd_1"_s);
        QCOMPARE(j.editor(), e.window());
        t.dialogs.queueAnswer(DialogAnswer::Yes);
        e.click(u"Cmd_1"_s);
        QCOMPARE(t.dialogs.texts(), (QStringList{u"对不起，您无此权限！"_s, u"真的要删除这条记录吗？"_s,
                                                 u"真的要删除这条记录吗？"_s}));
        QVERIFY(!j.editor());
        QCOMPARE(j.entry(u"A04"_s), u"管理员#L1#2026-11-15 09:05|张三|2026-11-15 10:00|B型螺母|0|盘点"_s);
        QCOMPARE(j.ids(), u"7827505800 A03 A05 A07 A09 A10"_s.split(u' '));

        // An entry removed meanwhile is refused; so is a line without an entry.
        t.dialogs.clear();
        t.exec(u"update Zhang Set ZBID='张三#L1#2026-11-15 09:04' where ZBID='L1' and ID='A05'"_s);
        j.select(u"A05"_s);
        j.d.click(u"Cmd_4"_s);
        QVERIFY(!j.editor());
        QVERIFY(j.ids().contains(u"A05"_s));
        j.d.clickLine(u"Lst"_s, 0);
        j.d.click(u"Cmd_4"_s);
        QCOMPARE(t.dialogs.texts(),
                 (QStringList{u"您要修改的记录已经被删除！\n请返回\n重新【统计】再进行修改！"_s,
                              u"请首先选择您要修改的记录行！"_s}));
    }

    // Late entry: the field signs, Enter moves on and saves, the editor stays until Chk says otherwise.
    void lateEntry_data() { addBackendRows(); }
    void lateEntry()
    {
        QFETCH(QString, backend);
        JournalWindow j(backend);
        j.d.click(u"Cmd_0"_s);
        const QString statement = j.window->lastStatement();
        j.d.click(u"Cmd_3"_s);
        QVERIFY(j.editor());
        WindowDriver e(j.editor());
        QCOMPARE(j.editor()->windowTitle(), u"漏账补录"_s);
        QVERIFY(e.w<QPushButton>(u"Cmd_1"_s)->isHidden());
        QCOMPARE(texts(e, u"CmbItm Cmb_0 Cmb_1 Cmb_2 Cmb_3 Cmb_4"_s), u" 2026 11 15 09 05"_s);
        QCOMPARE(e.w<QComboBox>(u"CmbItm"_s)->count(), 4); // the journal's items without 全部物品

        e.type(u"CmbItm"_s, u"新品 - 甲型"_s);
        e.pick(u"Cmb_1"_s, u"01"_s);
        e.pick(u"Cmb_2"_s, u"02"_s);
        e.pick(u"Cmb_3"_s, u"00"_s);
        e.pick(u"Cmb_4"_s, u"00"_s);
        e.type(u"TxtSL"_s, u".5"_s);
        QCOMPARE(e.text(u"TxtSL"_s), u"+0.5"_s);
        e.press(u"TxtSL"_s, Qt::Key_Return);
        QVERIFY(e.w<QLineEdit>(u"TxtBZ"_s)->hasFocus());
        QCOMPARE(j.rows(u"select count(*) from Zhang"_s), u"12"_s);
        e.type(u"TxtBZ"_s, u"补 -录"_s);
        e.press(u"TxtBZ"_s, Qt::Key_Return);

        QCOMPARE(j.t.dialogs.texts(), QStringList());
        QCOMPARE(j.entry(u"780086400"_s), u"L1|管理员|2026-01-02 00:00|新品-甲型|0.5|补-录"_s);
        QCOMPARE(j.editor(), e.window());
        QCOMPARE(e.text(u"Lab5"_s), u"新品-甲型 +0.5 补-录 已保存！"_s);
        QCOMPARE(texts(e, u"TxtSL TxtBZ CmbItm Cmb_0 Cmb_1 Cmb_2 Cmb_3 Cmb_4"_s),
                 u"  新品 - 甲型 2026 01 02 00 00"_s);

        // Ticked, the editor closes after the next late entry, which takes the same ID.
        e.press(u"Chk"_s, Qt::Key_Space);
        QVERIFY(e.w<QCheckBox>(u"Chk"_s)->isChecked());
        e.type(u"TxtSL"_s, u"5"_s);
        e.click(u"Cmd_0"_s);
        QVERIFY(!j.editor());
        QCOMPARE(j.rows(u"select SL from Zhang where ID='780086400' order by SL"_s), u"0.5;5"_s);
        // A late entry does not ask the journal to run again.
        QCOMPARE(j.window->lastStatement(), statement);
        QVERIFY(!j.ids().contains(u"780086400"_s));
    }

    // The checks run in their order and each stops the save with nothing written; the quantity's sign.
    void checksAndSigns()
    {
        JournalWindow j(u"sqlite"_s, false);
        j.t.session.quantityLabel = u"余额"_s;
        MxEd editor(j.context, MxEd::Use::LateEntry, {});
        editor.show();
        const WindowDriver e(&editor);
        const auto save = [&](const QString& item, const QString& quantity) {
            e.type(u"CmbItm"_s, item);
            e.type(u"TxtSL"_s, quantity);
            e.click(u"Cmd_0"_s);
        };
        save(u" ' "_s, u"x"_s);
        save(u"螺丝"_s, QString());
        save(u"螺丝"_s, u"5x"_s);
        save(u"新全部物品"_s, u"+"_s);
        save(u"新全部 物品"_s, u"1"_s);
        save(u"全部物品"_s, u"1"_s);
        QCOMPARE(j.t.dialogs.texts(),
                 (QStringList{u"请输入或选择物品！"_s, u"请输入余额的数值！"_s, u"请输入余额的数值！"_s,
                              u"请输入余额的数值！"_s, u"物品中不能包含“全部物品”这样的词！"_s}));
        QCOMPARE(j.t.dialogs.shown().at(0).title + j.t.dialogs.shown().at(1).title, u"提示"_s);
        QCOMPARE(j.t.dialogs.shown().at(4).title, u"提示"_s);
        QCOMPARE(j.rows(u"select ITEM from Zhang"_s), u"新全部 物品"_s);

        QStringList shown;
        for (const QString& typed : {u"5"_s, u" 7 5"_s, u"-3"_s, u"+2"_s}) {
            e.type(u"TxtSL"_s, typed);
            shown.append(e.text(u"TxtSL"_s));
        }
        QCOMPARE(shown, (QStringList{u"+5"_s, u"+75"_s, u"-3"_s, u"+2"_s}));
    }
};

QTEST_MAIN(TestMxEd)
#include "tst_mxed.moc"
