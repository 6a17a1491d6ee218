#include "AppConstants.h"
#include "LedgerList.h"
#include "Settings.h"

#include <QTemporaryDir>
#include <QTest>

using namespace lanzhou;

namespace {

QString app()
{
    return AppConstants::settingsApp();
}

QString tag()
{
    return AppConstants::settingsTag();
}

QString listKey(int n)
{
    return QString::number(n) + u'Z';
}

void writeList(Settings& settings, const QStringList& values)
{
    for (int n = 0; n < values.size(); ++n)
        settings.write(app(), tag(), listKey(n), values.at(n));
}

QStringList ids(const LedgerList& list)
{
    QStringList out;
    for (const LedgerList::Entry& entry : list.entries())
        out.append(entry.id);
    return out;
}

} // namespace

// The per-user settings store and the local ledger list kept in it.
class TestLocalSettings : public QObject
{
    Q_OBJECT
private slots:
    void settingsRoundTrip()
    {
        QTemporaryDir dir;
        Settings settings(dir.path());
        QCOMPARE(settings.read(app(), tag(), listKey(0)), QString());

        settings.write(app(), tag(), listKey(0), QStringLiteral("13812345678#家庭账"));
        settings.write(app(), QStringLiteral("ZBID"), tag(), QStringLiteral("13812345678"));
        settings.write(app(), QStringLiteral("自动"), QStringLiteral("键#1"), QStringLiteral("值#一"));
        settings.write(app(), QStringLiteral("AutoOpen"), tag(), QStringLiteral(" a;b=c, \"d\" "));
        // A ledger ID is the application name under which its operators are remembered.
        for (const QString& ledger : {QStringLiteral("zhang@example.cn"), QStringLiteral("13812345678"),
                                      QStringLiteral("a/b\\c:d*e")})
            settings.write(ledger, tag(), tag(), QStringLiteral("管理员@") + ledger);
        settings.write(QStringLiteral("13812345678"), QStringLiteral("管理员"), QStringLiteral("AutoShowSL"),
                       QStringLiteral("False"));

        // Read back through a second store on the same root, as at the next start.
        const Settings again(dir.path());
        QCOMPARE(again.read(app(), tag(), listKey(0)), QStringLiteral("13812345678#家庭账"));
        QCOMPARE(again.read(app(), QStringLiteral("ZBID"), tag()), QStringLiteral("13812345678"));
        QCOMPARE(again.read(app(), QStringLiteral("自动"), QStringLiteral("键#1")), QStringLiteral("值#一"));
        QCOMPARE(again.read(app(), QStringLiteral("AutoOpen"), tag()), QStringLiteral(" a;b=c, \"d\" "));
        for (const QString& ledger : {QStringLiteral("zhang@example.cn"), QStringLiteral("13812345678"),
                                      QStringLiteral("a/b\\c:d*e")})
            QCOMPARE(again.read(ledger, tag(), tag()), QStringLiteral("管理员@") + ledger);
        QCOMPARE(
            again.read(QStringLiteral("13812345678"), QStringLiteral("管理员"), QStringLiteral("AutoShowSL")),
            QStringLiteral("False"));

        // Keys of one application do not leak into another, nor into another section.
        QCOMPARE(again.read(QStringLiteral("13812345678"), tag(), listKey(0)), QString());
        QCOMPARE(again.read(app(), QStringLiteral("ZBID"), listKey(0)), QString());

        settings.write(app(), QStringLiteral("ZBID"), tag(), QString());
        QCOMPARE(again.read(app(), QStringLiteral("ZBID"), tag()), QString());
    }

    void ledgerListLoad()
    {
        QTemporaryDir dir;
        Settings settings(dir.path());
        LedgerList list;
        list.load(settings);
        QCOMPARE(list.size(), 0);

        writeList(settings, {QStringLiteral("L1#甲账"), QStringLiteral("没有井号"), QStringLiteral("#L2"),
                             QStringLiteral("A#一字"), QStringLiteral("L3#乙#丙"), QString(),
                             QStringLiteral("L5#空键之后")});
        list.load(settings);
        QCOMPARE(ids(list), (QStringList{QStringLiteral("L1"), QStringLiteral("A"), QStringLiteral("L3")}));
        QCOMPARE(list.entries().at(2).name, QStringLiteral("乙#丙"));
        QCOMPARE(list.indexOfId(QStringLiteral("l3")), -1);
        QCOMPARE(list.indexOfId(QStringLiteral("l3"), Qt::CaseInsensitive), 2);

        // Saving drops the skipped entries for good.
        list.save(settings);
        QCOMPARE(settings.read(app(), tag(), listKey(1)), QStringLiteral("A#一字"));
        QCOMPARE(settings.read(app(), tag(), listKey(3)), QString());
        QCOMPARE(settings.read(app(), tag(), listKey(4)), QStringLiteral("L3#乙#丙"));
        LedgerList reloaded;
        reloaded.load(settings);
        QCOMPARE(ids(reloaded), ids(list));

        // Keys 0Z .. 999Z hold the list; 1000Z is never read.
        QStringList full;
        for (int n = 0; n <= AppConstants::maxLedgers; ++n)
            full.append(QStringLiteral("L%1#账%1").arg(n));
        writeList(settings, full);
        list.load(settings);
        QCOMPARE(list.size(), int(AppConstants::maxLedgers));
        QCOMPARE(list.entries().constLast().id, QStringLiteral("L999"));
    }

    void ledgerListSave()
    {
        QTemporaryDir dir;
        Settings settings(dir.path());
        LedgerList list;
        QCOMPARE(list.append({QStringLiteral("L1"), QStringLiteral("甲")}), 0);
        QCOMPARE(list.append({QStringLiteral("L2"), QStringLiteral("乙")}), 1);
        QCOMPARE(list.append({QStringLiteral("L3"), QStringLiteral("丙")}), 2);
        list.save(settings);
        QCOMPARE(settings.read(app(), tag(), listKey(2)), QStringLiteral("L3#丙"));
        QCOMPARE(settings.read(app(), tag(), listKey(3)), QString());

        list.removeAt(1);
        list.rename(1, QStringLiteral("丙二"));
        list.save(settings);
        QCOMPARE(settings.read(app(), tag(), listKey(0)), QStringLiteral("L1#甲"));
        QCOMPARE(settings.read(app(), tag(), listKey(1)), QStringLiteral("L3#丙二"));
        QCOMPARE(settings.read(app(), tag(), listKey(2)), QString());

        LedgerList reloaded;
        reloaded.load(settings);
        QCOMPARE(ids(reloaded), (QStringList{QStringLiteral("L1"), QStringLiteral("L3")}));
        QCOMPARE(reloaded.entries().at(1).name, QStringLiteral("丙二"));
        QCOMPARE(reloaded.selected, -1);
    }
};

QTEST_GUILESS_MAIN(TestLocalSettings)
#include "tst_localsettings.moc"
