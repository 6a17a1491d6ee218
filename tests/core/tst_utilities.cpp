#include "TestContext.h"

#include "DateUtils.h"
#include "TextUtils.h"

#include <QTest>

using namespace lanzhou;
using namespace lanzhou::test;
using namespace Qt::StringLiterals;

// The shared text, number and date routines, and the once-per-run server date.
class TestUtilities : public QObject
{
    Q_OBJECT
private slots:
    void cleanInput_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("cleaned");
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
        QFETCH(QString, cleaned);
        QCOMPARE(CleanInput(typed), cleaned);
    }

    void formatQuantity_data()
    {
        QTest::addColumn<double>("quantity");
        QTest::addColumn<QString>("shown");
        QTest::newRow("whole") << 10.0 << u"10"_s;
        QTest::newRow("negative below one") << -0.5 << u"-0.5"_s;
        QTest::newRow("zero") << 0.0 << u"0"_s;
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
        QFETCH(QString, shown);
        QCOMPARE(FormatQuantity(quantity), shown);
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
        QTest::newRow("no number") << u"abc"_s << 0.0 << false;
        QTest::newRow("lone point") << u"."_s << 0.0 << false;
        QTest::newRow("double sign") << u"--1"_s << 0.0 << false;
    }
    void numbers()
    {
        QFETCH(QString, text);
        QFETCH(double, value);
        QFETCH(bool, isNumber);
        QCOMPARE(NumericValue(text), value);
        QCOMPARE(IsNumber(text), isNumber);
    }

    void dateAndTimeTexts()
    {
        QCOMPARE(FormatDate(QDate(2026, 3, 5)), u"2026-03-05"_s);
        QCOMPARE(FormatDate(QDate(999, 1, 2)), u"999-01-02"_s);
        FixedClock clock(QDate(2026, 11, 15), QTime(9, 5, 30, 250));
        QCOMPARE(LocalTimeText(clock), u"09:05"_s);
        clock.set(QDate(2026, 11, 15), QTime(23, 59, 59, 999));
        QCOMPARE(LocalTimeText(clock), u"23:59"_s);
    }

    void parseDate_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QDate>("date");
        QTest::newRow("empty is today") << QString() << QDate(2026, 11, 15);
        QTest::newRow("direct outside the year search") << u"1999-3-5"_s << QDate(1999, 3, 5);
        QTest::newRow("chinese form") << u"2026年3月5日"_s << QDate(2026, 3, 5);
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
        QFETCH(QDate, date);
        QCOMPARE(ParseDate(text, QDate(2026, 11, 15)), date);
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
};

QTEST_GUILESS_MAIN(TestUtilities)
#include "tst_utilities.moc"
