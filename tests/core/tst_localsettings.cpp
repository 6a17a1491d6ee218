#include "AppConstants.h"
#include "LedgerList.h"
#include "Settings.h"

#include <QTemporaryDir>
#include <QTest>

using namespace lanzhou;
using namespace Qt::StringLiterals;

namespace {

const QString app = AppConstants::settingsApp();
const QString tag = AppConstants::settingsTag();

QString listKey(int n)
{
    return QString::number(n) + u'Z';
}

void writeList(Settings& settings, const QStringList& values)
{
    for (int n = 0; n < values.size(); ++n)
        settings.write(app, tag, listKey(n), values.at(n));
}

// The entries as the list keeps them, "ID#name".
QStringList entries(const LedgerList& list)
{
    QStringList out;
    for (const LedgerList::Entry& entry : list.entries())
        out.append(entry.id + u'#' + entry.name);
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
        QCOMPARE(settings.read(app, tag, listKey(0)), QString());
        settings.write(app, tag, listKey(0), u"13812345678#家庭账"_s);
        // Blanks around, separators and the comment sign survive in sections, keys and values.
        settings.write(app, u"自动"_s, u"键#1"_s, u" a;b=c, \"d\" 值#一 "_s);
        // A ledger ID is the application name under which its operators are remembered.
        for (const QString& ledger : {u"13812345678"_s, u"a/b\\c:d*e"_s})
            settings.write(ledger, tag, tag, u"管理员@"_s + ledger);

        // Read back through a second store on the same root, as at the next start.
        const Settings again(dir.path());
        QCOMPARE(again.read(app, tag, listKey(0)), u"13812345678#家庭账"_s);
        QCOMPARE(again.read(app, u"自动"_s, u"键#1"_s), u" a;b=c, \"d\" 值#一 "_s);
        for (const QString& ledger : {u"13812345678"_s, u"a/b\\c:d*e"_s})
            QCOMPARE(again.read(ledger, tag, tag), u"管理员@"_s + ledger);
        // Keys of one application do not leak into another, nor into another section.
        QCOMPARE(again.read(u"13812345678"_s, tag, listKey(0)), QString());
        QCOMPARE(again.read(app, u"自动"_s, listKey(0)), QString());
        settings.write(app, tag, listKey(0), QString());
        QCOMPARE(again.read(app, tag, listKey(0)), QString());
    }

    // Loading reads keys 0Z .. 999Z up to the first empty one and skips entries without an ID;
    // saving writes the list back with an empty key after it, so the skipped entries go for good.
    void ledgerList()
    {
        QTemporaryDir dir;
        Settings settings(dir.path());
        writeList(settings, {u"L1#甲账"_s, u"没有井号"_s, u"#L2"_s, u"A#一字"_s, u"L3#乙#丙"_s, QString(),
                             u"L5#空键之后"_s});
        LedgerList list;
        list.selected = 0;
        list.load(settings);
        QCOMPARE(entries(list), (QStringList{u"L1#甲账"_s, u"A#一字"_s, u"L3#乙#丙"_s}));
        QCOMPARE(list.selected, -1);
        QCOMPARE(list.indexOfId(u"l3"_s), -1);
        QCOMPARE(list.indexOfId(u"l3"_s, Qt::CaseInsensitive), 2);

        QCOMPARE(list.append({u"L4"_s, u"丁"_s}), 3);
        list.removeAt(1);
        list.rename(1, u"丙二"_s);
        list.save(settings);
        QCOMPARE(settings.read(app, tag, listKey(1)), u"L3#丙二"_s);
        list.load(settings);
        QCOMPARE(entries(list), (QStringList{u"L1#甲账"_s, u"L3#丙二"_s, u"L4#丁"_s}));

        QStringList full;
        for (int n = 0; n <= AppConstants::maxLedgers; ++n)
            full.append(u"L%1#账%1"_s.arg(n));
        writeList(settings, full);
        list.load(settings);
        QCOMPARE(list.size(), int(AppConstants::maxLedgers));
        QCOMPARE(list.entries().constLast().id, u"L999"_s);
    }
};

QTEST_GUILESS_MAIN(TestLocalSettings)
#include "tst_localsettings.moc"
