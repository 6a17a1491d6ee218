#include "TestContext.h"

#include "AppConstants.h"
#include "DateUtils.h"
#include "LedgerList.h"
#include "QtTranslation.h"
#include "TextGrid.h"
#include "TextUtils.h"

#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

using namespace lanzhou;
using namespace lanzhou::test;
using namespace Qt::StringLiterals;

namespace {

const QString app = AppConstants::settingsApp();
const QString tag = AppConstants::settingsTag();

void writeList(Settings& settings, const QStringList& values)
{
    for (int n = 0; n < values.size(); ++n)
        settings.write(app, tag, QString::number(n) + u'Z', values.at(n));
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

// The shared text, number and date routines, the once-per-run server date, the text grid cells
// and the local settings.
class TestUtilities : public QObject
{
    Q_OBJECT
private slots:
    void cells_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("width");
        QTest::addColumn<QString>("expected");
        QTest::newRow("padded") << u"螺丝"_s << 1000 << u"螺丝        │"_s;
        QTest::newRow("empty") << QString() << 890 << u"          │"_s;
        // Clipping stops at the width, never beyond; a half column left over is filled by a blank.
        QTest::newRow("clipped") << u"一二三四五六七"_s << 1000 << u"一二三四五  │"_s;
        QTest::newRow("exact fit kept") << u"2026-11-15 08:00"_s << 1440 << u"2026-11-15 08:00│"_s;
        QTest::newRow("one over clipped") << u"2026-11-15 08:001"_s << 1440 << u"2026-11-15 08:00│"_s;
        QTest::newRow("surrogate pair kept") << u"甲\U00020000乙丙"_s << 400 << u"甲\U00020000 │"_s;
        QTest::newRow("surrogate pair dropped whole") << u"甲\U00020000乙丙"_s << 300 << u"甲  │"_s;
    }
    void cells()
    {
        QFETCH(QString, text);
        QFETCH(int, width);
        QFETCH(QString, expected);
        const TextGrid grid(TextGrid::listFont());
        const QString cell = grid.textCell(text, width);
        QCOMPARE(cell, expected);
        QVERIFY(grid.widthTwips(QStringView(cell).chopped(1)) >= width);
    }

    // Number cells stand right-aligned in the width given, and are never clipped. (Text widths and rules
    // show in the cells above and on the journal's real lines.)
    void numberCells()
    {
        const TextGrid grid(TextGrid::listFont());
        QCOMPARE(grid.numberCell(-2.5), u"        -2.5│"_s);
        QCOMPARE(grid.numberCell(0.5, 500), u"   0.5│"_s);
        QCOMPARE(grid.numberCell(123456789012345.0), u"123456789012345│"_s);
    }

    void cleanInput_data()
    {
        addTextColumns({"typed", "cleaned"});
        QTest::newRow("blanks, apostrophe, comma and line breaks")
            << u"  螺丝'钉,大号\r\n红\r色  "_s << u"螺丝钉，大号红色"_s;
        QTest::newRow("box-drawing characters; quotes and percent stay")
            << u"A│B─C\"50%\""_s << u"A|B-C\"50%\""_s;
        QTest::newRow("only blanks are trimmed") << u"\tx\t\u3000"_s << u"\tx\t\u3000"_s;
        // Trimming comes first, so blanks freed by the later removals stay.
        QTest::newRow("blanks inside apostrophes") << u" ' a ' "_s << u" a "_s;
    }
    void cleanInput()
    {
        QFETCH(QString, typed);
        QTEST(CleanInput(typed), "cleaned");
    }

    void formatQuantity_data()
    {
        QTest::addColumn<double>("quantity");
        QTest::addColumn<QString>("shown");
        QTest::newRow("negative below one") << -0.5 << u"-0.5"_s;
        QTest::newRow("rounded to eight decimals") << 1.123456789 << u"1.12345679"_s;
        QTest::newRow("eight decimals kept") << 1.12345678 << u"1.12345678"_s;
        QTest::newRow("binary noise") << 0.1 + 0.2 << u"0.3"_s;
        QTest::newRow("rounding drops trailing zeros") << 2.000000001 << u"2"_s;
        QTest::newRow("fifteen digits") << 123456789012345.0 << u"123456789012345"_s;
        QTest::newRow("large without exponent") << 1e15 << u"1000000000000000"_s;
        QTest::newRow("tiny") << 0.000000123456 << u"0.00000012"_s;
        QTest::newRow("too tiny negative to show") << -1e-10 << u"0"_s;
    }
    void formatQuantity()
    {
        QFETCH(double, quantity);
        QTEST(FormatQuantity(quantity), "shown");
    }

    void numbers_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("value");
        QTest::addColumn<bool>("isNumber");
        QTest::newRow("blanks around") << u"  -1.5 "_s << -1.5 << true;
        QTest::newRow("leading point") << u"+.5"_s << 0.5 << true;
        QTest::newRow("exponent") << u"1e3"_s << 1000.0 << true;
        QTest::newRow("text after the number") << u"12abc"_s << 12.0 << false;
        QTest::newRow("blanks inside") << u" 1 2 3"_s << 123.0 << false;
        QTest::newRow("double exponent letter") << u"1d2"_s << 100.0 << false;
        QTest::newRow("second point ends it") << u"3.5.6"_s << 3.5 << false;
        QTest::newRow("lone point") << u"."_s << 0.0 << false;
        QTest::newRow("double sign") << u"--1"_s << 0.0 << false;
    }
    void numbers()
    {
        QFETCH(QString, text);
        QTEST(NumericValue(text), "value");
        QTEST(IsNumber(text), "isNumber");
    }

    // Years before 1000 keep their digits; the time is cut to the minute, never rounded up.
    void dateAndTimeTexts()
    {
        QCOMPARE(FormatDate(QDate(999, 1, 2)), u"999-01-02"_s);
        QCOMPARE(LocalTimeText(FixedClock(QDate(2026, 11, 15), QTime(23, 59, 59, 999))), u"23:59"_s);
    }

    void parseDate_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QDate>("date");
        QTest::newRow("empty is today") << QString() << QDate(2026, 11, 15);
        QTest::newRow("direct outside the year search") << u"1999-3-5"_s << QDate(1999, 3, 5);
        QTest::newRow("server time stamp") << u"2026-11-15T09:05:30"_s << QDate(2026, 11, 15);
        QTest::newRow("year found behind month and day") << u"12/31/2026"_s << QDate(2026, 12, 31);
        QTest::newRow("two-digit year") << u"26-3-5"_s << QDate(2026, 3, 5);
        QTest::newRow("long first group cut to two digits") << u"126.3.5"_s << QDate(2026, 3, 5);
        QTest::newRow("year alone is the first of january") << u"2026"_s << QDate(2026, 1, 1);
        QTest::newRow("missing day") << u"2026年7月"_s << QDate(2026, 7, 1);
        QTest::newRow("implausible month") << u"2026/13/05"_s << QDate();
        QTest::newRow("no digits") << u"abc"_s << QDate();
    }
    void parseDate()
    {
        QFETCH(QString, text);
        QTEST(ParseDate(text, QDate(2026, 11, 15)), "date");
    }

    // The server is asked once per run: a date once cached is kept whatever the server or the
    // local clock say later.
    void serverDateCache_data() { addBackendRows(); }
    void serverDateCache()
    {
        QFETCH(QString, backend);
        TestContext t(backend);
        const QString serverToday = FormatDate(ParseDate(t.db->RunScalar(u"select Getdate()"_s), QDate()));
        Database down(unreachableConfig(u"postgresql"_s));
        // A local date that no server shows today.
        FixedClock clock(QDate(2001, 2, 3), QTime(10, 0));

        Session offline;
        QCOMPARE(ServerDate(down, offline, clock), u"2001-02-03"_s);
        QCOMPARE(offline.serverDateDay, qint16(3));
        QCOMPARE(ServerDate(*t.db, offline, clock), u"2001-02-03"_s);
        clock.set(QDate(2001, 2, 4), QTime(0, 5));
        QCOMPARE(ServerDate(*t.db, offline, clock), u"2001-02-03"_s);

        Session online;
        QCOMPARE(ServerDate(*t.db, online, clock), serverToday);
        QCOMPARE(ServerDate(down, online, clock), serverToday);
        QCOMPARE(online.serverDateDay, qint16(ParseDate(serverToday, QDate()).day()));
    }

    // Qt's own buttons speak Chinese wherever the program runs.
    void standardButtonsReadChinese()
    {
        QVERIFY(LoadQtChineseTranslation(qApp));
        QMessageBox box(QMessageBox::Question, QString(), u"真的要删除这条记录吗？"_s,
                        QMessageBox::Yes | QMessageBox::No | QMessageBox::Ok | QMessageBox::Cancel);
        QString texts;
        for (QAbstractButton* button : box.buttons())
            texts += button->text().section(u'(', 0, 0);
        for (const QString& expected : {u"是"_s, u"否"_s, u"确定"_s, u"取消"_s})
            QVERIFY2(texts.contains(expected), qPrintable(texts));
    }

    // The per-user settings store: separators, blanks and the comment sign survive in sections, keys
    // and values; a ledger ID (any characters) names an application of its own; nothing leaks across.
    void settingsRoundTrip()
    {
        QTemporaryDir dir;
        Settings settings(dir.path());
        settings.write(app, u"自动"_s, u"键#1"_s, u" a;b=c, \"d\" 值#一 "_s);
        for (const QString& ledger : {u"13812345678"_s, u"a/b\\c:d*e"_s})
            settings.write(ledger, tag, tag, u"管理员@"_s + ledger);
        const Settings again(dir.path());
        QCOMPARE(again.read(app, u"自动"_s, u"键#1"_s), u" a;b=c, \"d\" 值#一 "_s);
        for (const QString& ledger : {u"13812345678"_s, u"a/b\\c:d*e"_s})
            QCOMPARE(again.read(ledger, tag, tag), u"管理员@"_s + ledger);
        QCOMPARE(again.read(u"13812345678"_s, u"自动"_s, u"键#1"_s) + again.read(app, tag, tag), QString());
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
        list.load(settings);
        QCOMPARE(entries(list), (QStringList{u"L1#甲账"_s, u"A#一字"_s, u"L3#乙#丙"_s}));
        QCOMPARE(list.indexOfId(u"l3"_s), -1);
        QCOMPARE(list.indexOfId(u"l3"_s, Qt::CaseInsensitive), 2);

        list.append({u"L4"_s, u"丁"_s});
        list.removeAt(1);
        list.rename(1, u"丙二"_s);
        list.save(settings);
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

QTEST_MAIN(TestUtilities)
#include "tst_utilities.moc"
