#include "JournalFixture.h"

#include "EntryStatements.h"
#include "Session.h"

#include <QApplication>
#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

using namespace lanzhou;
using namespace lanzhou::test;

namespace {

QLineEdit* edit(QWidget* window, const QString& name)
{
    return window->findChild<QLineEdit*>(name);
}

void retype(QLineEdit* field, const QString& text)
{
    field->clear();
    typeText(field, text);
}

QStringList times(MxEd* editor)
{
    QStringList texts;
    for (int i = 0; i < 5; ++i)
        texts.append(combo(editor, QStringLiteral("Cmb_%1").arg(i))->currentText());
    return texts;
}

// A journal with the sample ledger listed and shown.
struct ListedJournal
{
    explicit ListedJournal(const QString& backend) : t(backend), context(t.context())
    {
        openJournalLedger(t);
        addSampleEntries(t);
        journal = std::make_unique<MxLst>(context);
        journal->show();
        click(journal.get(), QStringLiteral("Cmd_0"));
    }
    void select(const QString& id)
    {
        clickLine(list(journal.get(), QStringLiteral("Lst")), rowOfEntry(*journal, id));
    }
    QList<QStringList> row(const QString& id)
    {
        return t.rows(QStringLiteral("select ZBID,USR,TM,ITEM,SL,BZ from Zhang where ID='") + id +
                      QStringLiteral("'"));
    }

    TestContext t;
    AppContext context;
    std::unique_ptr<MxLst> journal;
};

} // namespace

class TestMxEd : public QObject
{
    Q_OBJECT
private slots:
    void entryIdsAndStatements_data()
    {
        QTest::addColumn<QDateTime>("when");
        QTest::addColumn<QString>("id");
        QTest::newRow("second day") << QDateTime(QDate(2026, 1, 2), QTime(0, 0))
                                    << QStringLiteral("780086400");
        QTest::newRow("year start") << QDateTime(QDate(2026, 1, 1), QTime(0, 0))
                                    << QStringLiteral("780000000");
        QTest::newRow("eight digits")
            << QDateTime(QDate(2026, 11, 15), QTime(8, 30)) << QStringLiteral("7827505800");
        QTest::newRow("leap year end")
            << QDateTime(QDate(2028, 12, 31), QTime(23, 59)) << QStringLiteral("8031622340");
        QTest::newRow("base zero") << QDateTime(QDate(1948, 3, 1), QTime(0, 1)) << QStringLiteral("05184060");
        QTest::newRow("before 1948") << QDateTime(QDate(1900, 1, 1), QTime(1, 0))
                                     << QStringLiteral("-480003600");
        // A spring-forward night elsewhere changes nothing: the calendar has no daylight saving.
        QTest::newRow("local time") << QDateTime(QDate(2026, 3, 29), QTime(2, 30), Qt::LocalTime)
                                    << QStringLiteral("787525800");
    }
    void entryIdsAndStatements()
    {
        QFETCH(QDateTime, when);
        QFETCH(QString, id);
        QCOMPARE(EditorEntryId(when), id);

        const QString stone = TombstoneLedgerId(QStringLiteral("张三"), QStringLiteral("L1"),
                                                QStringLiteral("2026-11-15"), QStringLiteral("09:05"));
        QCOMPARE(stone, QStringLiteral("张三#L1#2026-11-15 09:05"));
        QCOMPARE(
            ModifyTombstoneStatement(stone, QStringLiteral("L1"), QStringLiteral("A1")),
            QStringLiteral("update Zhang Set ZBID='张三#L1#2026-11-15 09:05'  where ZBID='L1' and ID='A1'"));
        QCOMPARE(
            DeleteTombstoneStatement(stone, QStringLiteral("L1"), QStringLiteral("A1")),
            QStringLiteral("update Zhang Set ZBID='张三#L1#2026-11-15 09:05' where ZBID='L1' and ID='A1'"));
        QCOMPARE(InsertEntryStatement(QStringLiteral("L1"), QStringLiteral("张三"),
                                      QStringLiteral("2026-11-15 08:30"), QStringLiteral("7827505800"),
                                      QStringLiteral("螺丝"), -0.125, QString()),
                 QStringLiteral("insert into Zhang (ZBID,USR,TM,ID,ITEM,SL,BZ) values "
                                "('L1','张三','2026-11-15 08:30','7827505800','螺丝',-0.125,'')"));
        QCOMPARE(InsertEntryStatement(QStringLiteral("L1"), QStringLiteral("张三"), QString(), QString(),
                                      QString(), 12345678901234.0, QString())
                     .section(QLatin1Char(','), -2, -2),
                 QStringLiteral("12345678901234"));
        QCOMPARE(IdCheckStatement(QStringLiteral("L1"), QStringLiteral("A1")),
                 QStringLiteral("select ID from Zhang where ZBID= like  '%L1%' and ID='A1'"));
    }

    // Modify: the old row keeps everything but its ledger ID, the new one has a new ID.
    void modifyEntry_data() { addBackendRows(); }
    void modifyEntry()
    {
        QFETCH(QString, backend);
        ListedJournal j(backend);
        TestContext& t = j.t;
        // The ID check never answers, on any server, even for an ID in use.
        QCOMPARE(t.db->RunScalar(IdCheckStatement(QStringLiteral("L1"), QStringLiteral("A02"))), QString());

        const int row = rowOfEntry(*j.journal, QStringLiteral("A02"));
        j.select(QStringLiteral("A02"));
        click(j.journal.get(), QStringLiteral("Cmd_4"));
        MxEd* editor = openEditor(*j.journal);
        QVERIFY(editor);
        QCOMPARE(editor->windowTitle(), QStringLiteral("修改账目"));
        QVERIFY(editor->isModal());
        QCOMPARE(combo(editor, QStringLiteral("CmbItm"))->currentText(), QStringLiteral("A型螺丝"));
        QCOMPARE(edit(editor, QStringLiteral("TxtSL"))->text(), QStringLiteral("+10"));
        QCOMPARE(edit(editor, QStringLiteral("TxtBZ"))->text(), QStringLiteral("入库"));
        QCOMPARE(times(editor),
                 (QStringList{QStringLiteral("2026"), QStringLiteral("11"), QStringLiteral("15"),
                              QStringLiteral("08"), QStringLiteral("00")}));
        QVERIFY(editor->findChild<QFrame*>(QStringLiteral("FrmWait"))->isHidden());
        QVERIFY(editor->findChild<QCheckBox*>(QStringLiteral("Chk"))->isHidden());
        QVERIFY(!button(editor, QStringLiteral("Cmd_1"))->isHidden());

        retype(edit(editor, QStringLiteral("TxtSL")), QStringLiteral("-3.5"));
        retype(edit(editor, QStringLiteral("TxtBZ")), QStringLiteral("返工 - 退回"));
        pick(combo(editor, QStringLiteral("Cmb_4")), QStringLiteral("30"));
        click(editor, QStringLiteral("Cmd_0"));

        QCOMPARE(t.dialogs.texts(), QStringList());
        QVERIFY(!openEditor(*j.journal));
        QCOMPARE(j.row(QStringLiteral("A02")),
                 (QList<QStringList>{{QStringLiteral("管理员#L1#2026-11-15 09:05"), QStringLiteral("管理员"),
                                      QStringLiteral("2026-11-15 08:00"), QStringLiteral("A型螺丝"),
                                      QStringLiteral("10"), QStringLiteral("入库")}}));
        QCOMPARE(j.row(QStringLiteral("7827505800")),
                 (QList<QStringList>{{QStringLiteral("L1"), QStringLiteral("管理员"),
                                      QStringLiteral("2026-11-15 08:30"), QStringLiteral("A型螺丝"),
                                      QStringLiteral("-3.5"), QStringLiteral("返工-退回")}}));
        // The journal ran again on return, and the marker is spent.
        QVERIFY(t.session.journalRefreshMarker.isEmpty());
        QVERIFY(!listedIds(*j.journal).contains(QStringLiteral("A02")));
        QCOMPARE(listedIds(*j.journal).at(0), QStringLiteral("7827505800"));
        QCOMPARE(list(j.journal.get(), QStringLiteral("Lst"))->currentRow(), row);

        // Closing without saving leaves the listing alone; an entry removed meanwhile is refused.
        doubleClickLine(list(j.journal.get(), QStringLiteral("Lst")),
                        rowOfEntry(*j.journal, QStringLiteral("A04")));
        QVERIFY(openEditor(*j.journal));
        click(openEditor(*j.journal), QStringLiteral("Cmd_2"));
        QVERIFY(!openEditor(*j.journal));
        t.exec(
            QStringLiteral("update Zhang Set ZBID='张三#L1#2026-11-15 09:04' where ZBID='L1' and ID='A04'"));
        j.select(QStringLiteral("A04"));
        click(j.journal.get(), QStringLiteral("Cmd_4"));
        QCOMPARE(t.dialogs.texts(),
                 QStringList{QStringLiteral("您要修改的记录已经被删除！\n请返回\n重新【统计】再进行修改！")});
        QVERIFY(!openEditor(*j.journal));
        QVERIFY(listedIds(*j.journal).contains(QStringLiteral("A04")));

        // Nothing selected.
        t.dialogs.clear();
        clickLine(list(j.journal.get(), QStringLiteral("Lst")), 0);
        click(j.journal.get(), QStringLiteral("Cmd_4"));
        QCOMPARE(t.dialogs.texts(), QStringList{QStringLiteral("请首先选择您要修改的记录行！")});
    }

    // Late entry: the field signs, Enter moves on and saves, the editor stays until Chk says otherwise.
    void lateEntry_data() { addBackendRows(); }
    void lateEntry()
    {
        QFETCH(QString, backend);
        ListedJournal j(backend);
        TestContext& t = j.t;
        const QString statement = j.journal->lastStatement();
        click(j.journal.get(), QStringLiteral("Cmd_3"));
        MxEd* editor = openEditor(*j.journal);
        QVERIFY(editor);
        QCOMPARE(editor->windowTitle(), QStringLiteral("漏账补录"));
        QVERIFY(button(editor, QStringLiteral("Cmd_1"))->isHidden());
        QCOMPARE(times(editor),
                 (QStringList{QStringLiteral("2026"), QStringLiteral("11"), QStringLiteral("15"),
                              QStringLiteral("09"), QStringLiteral("05")}));
        QComboBox* items = combo(editor, QStringLiteral("CmbItm"));
        QCOMPARE(items->count(), 4);
        QCOMPARE(items->currentText(), QString());

        typeText(items->lineEdit(), QStringLiteral("新品 - 甲型"));
        pick(combo(editor, QStringLiteral("Cmb_1")), QStringLiteral("01"));
        pick(combo(editor, QStringLiteral("Cmb_2")), QStringLiteral("02"));
        pick(combo(editor, QStringLiteral("Cmb_3")), QStringLiteral("00"));
        pick(combo(editor, QStringLiteral("Cmb_4")), QStringLiteral("00"));
        QLineEdit* quantity = edit(editor, QStringLiteral("TxtSL"));
        QLineEdit* remark = edit(editor, QStringLiteral("TxtBZ"));
        typeText(quantity, QStringLiteral(".5"));
        QCOMPARE(quantity->text(), QStringLiteral("+0.5"));
        QApplication::setActiveWindow(editor);
        quantity->setFocus();
        QTest::keyClick(quantity, Qt::Key_Return);
        QVERIFY(remark->hasFocus());
        QCOMPARE(t.rows(QStringLiteral("select count(*) from Zhang")).at(0).at(0), QStringLiteral("12"));
        typeText(remark, QStringLiteral("补 -录"));
        QTest::keyClick(remark, Qt::Key_Return);

        QCOMPARE(t.dialogs.texts(), QStringList());
        QCOMPARE(j.row(QStringLiteral("780086400")),
                 (QList<QStringList>{{QStringLiteral("L1"), QStringLiteral("管理员"),
                                      QStringLiteral("2026-01-02 00:00"), QStringLiteral("新品-甲型"),
                                      QStringLiteral("0.5"), QStringLiteral("补-录")}}));
        QCOMPARE(openEditor(*j.journal), editor);
        QCOMPARE(editor->findChild<QLabel*>(QStringLiteral("Lab5"))->text(),
                 QStringLiteral("新品-甲型 +0.5 补-录 已保存！"));
        QCOMPARE(quantity->text(), QString());
        QCOMPARE(remark->text(), QString());
        QCOMPARE(items->currentText(), QStringLiteral("新品 - 甲型"));
        QCOMPARE(times(editor),
                 (QStringList{QStringLiteral("2026"), QStringLiteral("01"), QStringLiteral("02"),
                              QStringLiteral("00"), QStringLiteral("00")}));

        // Ticked, the editor closes after the next late entry, which takes the same ID.
        QCheckBox* closeAfter = editor->findChild<QCheckBox*>(QStringLiteral("Chk"));
        QTest::mouseClick(closeAfter, Qt::LeftButton, {}, QPoint(6, closeAfter->height() / 2));
        QVERIFY(closeAfter->isChecked());
        typeText(quantity, QStringLiteral("5"));
        QCOMPARE(quantity->text(), QStringLiteral("+5"));
        click(editor, QStringLiteral("Cmd_0"));
        QVERIFY(!openEditor(*j.journal));
        QCOMPARE(t.rows(QStringLiteral("select SL from Zhang where ID='780086400' order by SL")),
                 (QList<QStringList>{{QStringLiteral("0.5")}, {QStringLiteral("5")}}));
        // A late entry does not ask the journal to run again.
        QCOMPARE(j.journal->lastStatement(), statement);
        QVERIFY(!listedIds(*j.journal).contains(QStringLiteral("780086400")));
    }

    // The checks run in their order and each stops the save with nothing written.
    void checksAndSigns()
    {
        TestContext t;
        openJournalLedger(t);
        t.session.quantityLabel = QStringLiteral("余额");
        AppContext context = t.context();
        MxEd editor(context, MxEd::Use::LateEntry, {});
        editor.show();
        QLineEdit* item = combo(&editor, QStringLiteral("CmbItm"))->lineEdit();
        QLineEdit* quantity = edit(&editor, QStringLiteral("TxtSL"));

        const auto save = [&](const QString& itemText, const QString& quantityText) {
            retype(item, itemText);
            retype(quantity, quantityText);
            click(&editor, QStringLiteral("Cmd_0"));
        };
        save(QStringLiteral(" ' "), QStringLiteral("x"));
        save(QStringLiteral("螺丝"), QString());
        save(QStringLiteral("螺丝"), QStringLiteral("5x"));
        save(QStringLiteral("新全部物品"), QStringLiteral("+"));
        save(QStringLiteral("新全部 物品"), QStringLiteral("1"));
        save(QStringLiteral("全部物品"), QStringLiteral("1"));
        QCOMPARE(t.dialogs.texts(),
                 (QStringList{QStringLiteral("请输入或选择物品！"), QStringLiteral("请输入余额的数值！"),
                              QStringLiteral("请输入余额的数值！"), QStringLiteral("请输入余额的数值！"),
                              QStringLiteral("物品中不能包含“全部物品”这样的词！")}));
        QCOMPARE(t.dialogs.shown().at(0).title, QStringLiteral("提示"));
        QCOMPARE(t.dialogs.shown().at(1).title, QString());
        QCOMPARE(t.dialogs.shown().at(4).title, QStringLiteral("提示"));
        QCOMPARE(t.rows(QStringLiteral("select ITEM from Zhang")),
                 (QList<QStringList>{{QStringLiteral("新全部 物品")}}));

        for (const auto& [typed, shown] : {std::pair{QStringLiteral("5"), QStringLiteral("+5")},
                                           {QStringLiteral(".5"), QStringLiteral("+0.5")},
                                           {QStringLiteral(" 7 5"), QStringLiteral("+75")},
                                           {QStringLiteral("-3"), QStringLiteral("-3")},
                                           {QStringLiteral("+2"), QStringLiteral("+2")}}) {
            retype(quantity, typed);
            QCOMPARE(quantity->text(), shown);
        }
    }

    // The editor's delete: the journal's question, the one-blank tombstone, then the journal runs again.
    void deleteFromEditor_data() { addBackendRows(); }
    void deleteFromEditor()
    {
        QFETCH(QString, backend);
        ListedJournal j(backend);
        TestContext& t = j.t;
        j.select(QStringLiteral("A04"));
        click(j.journal.get(), QStringLiteral("Cmd_4"));
        MxEd* editor = openEditor(*j.journal);
        QVERIFY(editor);

        t.session.setRights(QStringLiteral("11111111111011"));
        click(editor, QStringLiteral("Cmd_1"));
        QCOMPARE(t.dialogs.texts(), QStringList{QStringLiteral("对不起，您无此权限！")});
        t.session.setRights(QString());
        t.dialogs.queueAnswer(DialogAnswer::No);
        click(editor, QStringLiteral("Cmd_1"));
        QCOMPARE(openEditor(*j.journal), editor);
        t.dialogs.queueAnswer(DialogAnswer::Yes);
        click(editor, QStringLiteral("Cmd_1"));

        QCOMPARE(t.dialogs.texts().mid(1), QStringList(2, QStringLiteral("真的要删除这条记录吗？")));
        QCOMPARE(t.dialogs.shown().at(2).defaultAnswer, DialogAnswer::No);
        QVERIFY(!openEditor(*j.journal));
        QCOMPARE(j.row(QStringLiteral("A04")),
                 (QList<QStringList>{{QStringLiteral("管理员#L1#2026-11-15 09:05"), QStringLiteral("张三"),
                                      QStringLiteral("2026-11-15 10:00"), QStringLiteral("B型螺母"),
                                      QStringLiteral("0"), QStringLiteral("盘点")}}));
        QCOMPARE(t.rows(QStringLiteral("select count(*) from Zhang where ZBID='L1'")).at(0).at(0),
                 QStringLiteral("9"));
        QVERIFY(!listedIds(*j.journal).contains(QStringLiteral("A04")));
        QCOMPARE(listedIds(*j.journal).size(), 6);
    }

    // A server that is down: the editor says so and keeps what was typed, so a retry can succeed.
    void serverDown_data() { addBackendRows(); }
    void serverDown()
    {
        QFETCH(QString, backend);
        ListedJournal j(backend);
        TestContext& t = j.t;
        Database dead(unreachableConfig(QStringLiteral("postgresql")));

        // Loading for a modify.
        j.select(QStringLiteral("A02"));
        std::swap(*t.db, dead);
        click(j.journal.get(), QStringLiteral("Cmd_4"));
        std::swap(*t.db, dead);
        QCOMPARE(t.dialogs.texts(), QStringList{QStringLiteral("连接服务器失败！")});
        QVERIFY(!openEditor(*j.journal));

        // Saving a modify: neither tombstone nor new row.
        click(j.journal.get(), QStringLiteral("Cmd_4"));
        MxEd* editor = openEditor(*j.journal);
        QVERIFY(editor);
        retype(edit(editor, QStringLiteral("TxtSL")), QStringLiteral("11"));
        std::swap(*t.db, dead);
        click(editor, QStringLiteral("Cmd_0"));
        std::swap(*t.db, dead);
        QCOMPARE(t.dialogs.lastText(), QStringLiteral("连接服务器失败，请重试！"));
        QCOMPARE(t.dialogs.shown().constLast().title, QStringLiteral("提示"));
        QCOMPARE(openEditor(*j.journal), editor);
        QCOMPARE(edit(editor, QStringLiteral("TxtSL"))->text(), QStringLiteral("+11"));
        QCOMPARE(edit(editor, QStringLiteral("TxtBZ"))->text(), QStringLiteral("入库"));
        QVERIFY(button(editor, QStringLiteral("Cmd_0"))->isEnabled());
        QCOMPARE(j.row(QStringLiteral("A02")).at(0).at(0), QStringLiteral("L1"));
        QCOMPARE(t.rows(QStringLiteral("select count(*) from Zhang")).at(0).at(0), QStringLiteral("12"));

        // The retry goes through.
        click(editor, QStringLiteral("Cmd_0"));
        QVERIFY(!openEditor(*j.journal));
        QCOMPARE(t.rows(QStringLiteral("select SL from Zhang where ZBID='L1' and TM='2026-11-15 08:00'")),
                 (QList<QStringList>{{QStringLiteral("11")}}));
    }
};

QTEST_MAIN(TestMxEd)
#include "tst_mxed.moc"
