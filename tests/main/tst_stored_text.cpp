// Texts that reach the ledger from elsewhere (another tool, an old server setting) must not change
// any statement the program sends: on every server kind and setting, an item holding an apostrophe
// or ending in a backslash shows its true total and balance, and no other ledger is touched.
#include "AppConstants.h"
#include "Kuang.h"
#include "LedgerList.h"
#include "MxLst.h"
#include "TestContext.h"
#include "WindowDriver.h"

#include <QComboBox>
#include <QListWidget>
#include <QTest>

using namespace lanzhou;
using namespace lanzhou::test;

namespace {

const QString kBreakOut = QStringLiteral("x'; delete from Zhang where ''=''--");
const QString kBackslash = QStringLiteral("a\\");
const QString kOperator = QStringLiteral("O'Brien\\");

// The fixture's own quoting, independent of the program's.
QString quoted(QString text)
{
    return text.replace(QLatin1Char('\''), QStringLiteral("''"));
}

void addEntry(TestContext& t, const QString& ledger, const QString& id, const QString& time,
              const QString& item, int quantity)
{
    t.exec(QStringLiteral(
               "insert into Zhang (ZBID,USR,TM,ID,ITEM,SL,BZ) values ('%1','管理员','%2','%3','%4',%5,'')")
               .arg(ledger, time, id, quoted(item))
               .arg(quantity));
}

// The balance cell of each listed entry line, by entry ID.
QMap<QString, QString> listedBalances(const WindowDriver& journal)
{
    QMap<QString, QString> balances;
    auto* ids = journal.w<QListWidget>(QStringLiteral("Lst2"));
    auto* lines = journal.w<QListWidget>(QStringLiteral("Lst"));
    for (int row = 0; row < ids->count(); ++row) {
        if (!ids->item(row)->text().isEmpty())
            balances.insert(ids->item(row)->text(),
                            lines->item(row)->text().split(QChar(0x2502)).at(5).trimmed());
    }
    return balances;
}

} // namespace

class TestStoredText : public QObject
{
    Q_OBJECT
private slots:
    void storedTextStaysInsideItsQuotes_data() { addBackendRows(everyServerSetting()); }
    void storedTextStaysInsideItsQuotes()
    {
        QFETCH(QString, backend);
        TestContext t(backend);
        t.exec(QStringLiteral("insert into Zblst (ZBid,ZbNm,Item,SL,Bz,BgDate,NdDate,MB,SalesMan,Msg) values "
                              "('L1','五金仓库','物品','存量','自已注册','2026-11-15','','','','')"));
        t.exec(
            QStringLiteral("insert into UsrLst (ZBID,Usr,PWD) values ('L1','%1','')").arg(quoted(kOperator)));
        addEntry(t, QStringLiteral("L1"), QStringLiteral("E1"), QStringLiteral("2026-11-01 08:00"), kBreakOut,
                 7);
        addEntry(t, QStringLiteral("L1"), QStringLiteral("E2"), QStringLiteral("2026-11-15 08:00"), kBreakOut,
                 5);
        addEntry(t, QStringLiteral("L1"), QStringLiteral("E3"), QStringLiteral("2026-11-01 08:00"),
                 kBackslash, 3);
        addEntry(t, QStringLiteral("L1"), QStringLiteral("E4"), QStringLiteral("2026-11-15 08:00"),
                 kBackslash, -1);
        addEntry(t, QStringLiteral("L2"), QStringLiteral("F1"), QStringLiteral("2026-11-15 08:00"), kBreakOut,
                 1000);
        QCOMPARE(t.rows(QStringLiteral("select ITEM from Zhang where ID='E3'")).at(0).at(0), kBackslash);
        LedgerList ledgers;
        ledgers.append({QStringLiteral("L1"), QStringLiteral("五金仓库")});
        ledgers.save(t.settings);
        t.settings.write(AppConstants::settingsApp(), QStringLiteral("ZBID"), AppConstants::settingsTag(),
                         QStringLiteral("L1"));
        t.session.serverDateText = QStringLiteral("2026-11-15");
        t.session.serverDateDay = 15;

        Kuang window(t.context());
        window.show();
        WindowDriver d(&window);
        d.click(QStringLiteral("Cmd"));
        d.click(QStringLiteral("Cmd"));
        QCOMPARE(window.panel(), Kuang::EntryPanel);
        d.pick(QStringLiteral("Cmb"), kBreakOut);
        QCOMPARE(d.text(QStringLiteral("Lab4")), QStringLiteral("当前存量：12"));
        d.pick(QStringLiteral("Cmb"), kBackslash);
        QCOMPARE(d.text(QStringLiteral("Lab4")), QStringLiteral("当前存量：2"));
        // A function's name typed as a remark is the remark, on every server kind.
        d.type(QStringLiteral("Txt"), QStringLiteral("+1 getdate()"));
        d.press(QStringLiteral("Txt"), Qt::Key_Return);
        QCOMPARE(d.text(QStringLiteral("Lab5")), QStringLiteral("+1  已保存！"));
        const QStringList posted{kOperator, kBackslash, QStringLiteral("getdate()")};
        QCOMPARE(t.rows(QStringLiteral("select USR,ITEM,BZ from Zhang where ZBID='L1' and SL=1")).value(0),
                 posted);

        MxLst journal(t.context());
        journal.show();
        WindowDriver j(&journal);
        j.click(QStringLiteral("Cmd_0"));
        const QMap<QString, QString> balances = listedBalances(j);
        QCOMPARE(balances.value(QStringLiteral("E2")), QStringLiteral("12"));
        QCOMPARE(balances.value(QStringLiteral("E4")), QStringLiteral("2"));
        QCOMPARE(balances.value(QStringLiteral("N11153273025")), QStringLiteral("3"));
        j.pick(QStringLiteral("CmbUsr"), kOperator);
        j.click(QStringLiteral("Cmd_0"));
        QCOMPARE(listedBalances(j).keys(), QStringList{QStringLiteral("N11153273025")});

        QCOMPARE(t.rows(QStringLiteral("select count(*), sum(SL) from Zhang where ZBID='L2'"))
                     .at(0)
                     .at(1)
                     .toDouble(),
                 1000.0);
        QCOMPARE(t.rows(QStringLiteral("select count(*) from Zhang")).at(0).at(0), QStringLiteral("6"));
    }
};

QTEST_MAIN(TestStoredText)
#include "tst_stored_text.moc"
