#include "TestContext.h"

#include "DateUtils.h"
#include "TextUtils.h"

#include <QTest>

using namespace lanzhou;
using namespace lanzhou::test;

// The shared text, number and date routines, and the once-per-run server date.
class TestUtilities : public QObject
{
    Q_OBJECT
private slots:
    void cleanInput_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("cleaned");
        QTest::newRow("blanks, apostrophe, comma and line break")
            << QStringLiteral("  螺丝'钉,大号\n红色  ") << QStringLiteral("螺丝钉，大号红色");
        QTest::newRow("carriage returns") << QStringLiteral("a\r\nb\rc") << QStringLiteral("abc");
        QTest::newRow("box-drawing characters") << QStringLiteral("A│B─C") << QStringLiteral("A|B-C");
        QTest::newRow("quotes and percent stay") << QStringLiteral("\"50%\"") << QStringLiteral("\"50%\"");
        QTest::newRow("only blanks are trimmed")
            << QStringLiteral("\tx\t\u3000") << QStringLiteral("\tx\t\u3000");
        // Trimming comes first, so blanks freed by the later removals stay.
        QTest::newRow("blanks inside apostrophes") << QStringLiteral(" ' a ' ") << QStringLiteral(" a ");
        QTest::newRow("blank behind a line break") << QStringLiteral(" \n a") << QStringLiteral(" a");
        QTest::newRow("empty") << QString() << QString();
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
        QTest::newRow("whole") << 10.0 << QStringLiteral("10");
        QTest::newRow("half") << 2.5 << QStringLiteral("2.5");
        QTest::newRow("negative below one") << -0.5 << QStringLiteral("-0.5");
        QTest::newRow("positive below one") << 0.25 << QStringLiteral("0.25");
        QTest::newRow("zero") << 0.0 << QStringLiteral("0");
        QTest::newRow("rounded to eight decimals") << 1.123456789 << QStringLiteral("1.12345679");
        QTest::newRow("eight decimals kept") << 1.12345678 << QStringLiteral("1.12345678");
        QTest::newRow("binary noise") << 0.1 + 0.2 << QStringLiteral("0.3");
        QTest::newRow("a third") << 1.0 / 3.0 << QStringLiteral("0.33333333");
        QTest::newRow("negative two thirds") << -2.0 / 3.0 << QStringLiteral("-0.66666667");
        QTest::newRow("rounding drops trailing zeros") << 2.000000001 << QStringLiteral("2");
        QTest::newRow("large with decimals") << 12345.678901234 << QStringLiteral("12345.67890123");
        QTest::newRow("fifteen digits") << 123456789012345.0 << QStringLiteral("123456789012345");
        QTest::newRow("large without exponent") << 1e15 << QStringLiteral("1000000000000000");
        QTest::newRow("tiny") << 0.000000123456 << QStringLiteral("0.00000012");
        QTest::newRow("too tiny to show") << 1e-10 << QStringLiteral("0");
        QTest::newRow("too tiny negative") << -1e-10 << QStringLiteral("0");
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
        QTest::newRow("plain") << QStringLiteral("12") << 12.0 << true;
        QTest::newRow("blanks around") << QStringLiteral("  -1.5 ") << -1.5 << true;
        QTest::newRow("leading point") << QStringLiteral("+.5") << 0.5 << true;
        QTest::newRow("exponent") << QStringLiteral("1e3") << 1000.0 << true;
        QTest::newRow("text after the number") << QStringLiteral("12abc") << 12.0 << false;
        QTest::newRow("blanks inside") << QStringLiteral(" 1 2 3") << 123.0 << false;
        QTest::newRow("sign apart") << QStringLiteral("- 5") << -5.0 << false;
        QTest::newRow("double exponent letter") << QStringLiteral("1d2") << 100.0 << false;
        QTest::newRow("comma ends the number") << QStringLiteral("1,000") << 1.0 << false;
        QTest::newRow("second point ends it") << QStringLiteral("3.5.6") << 3.5 << false;
        QTest::newRow("no number") << QStringLiteral("abc") << 0.0 << false;
        QTest::newRow("lone point") << QStringLiteral(".") << 0.0 << false;
        QTest::newRow("double sign") << QStringLiteral("--1") << 0.0 << false;
        QTest::newRow("empty") << QString() << 0.0 << false;
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
        QCOMPARE(FormatDate(QDate(2026, 3, 5)), QStringLiteral("2026-03-05"));
        QCOMPARE(FormatDate(QDate(2026, 12, 31)), QStringLiteral("2026-12-31"));
        QCOMPARE(FormatDate(QDate(999, 1, 2)), QStringLiteral("999-01-02"));

        FixedClock clock(QDate(2026, 11, 15), QTime(9, 5, 30, 250));
        QCOMPARE(LocalTimeText(clock), QStringLiteral("09:05"));
        clock.set(QDate(2026, 11, 15), QTime(23, 59, 59, 999));
        QCOMPARE(LocalTimeText(clock), QStringLiteral("23:59"));
        clock.set(QDate(2026, 11, 16), QTime(0, 0));
        QCOMPARE(LocalTimeText(clock), QStringLiteral("00:00"));
    }

    void parseDate_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QDate>("date");
        QTest::newRow("empty is today") << QString() << QDate(2026, 11, 15);
        QTest::newRow("direct") << QStringLiteral("2026-03-05") << QDate(2026, 3, 5);
        QTest::newRow("direct without zeros") << QStringLiteral("2026-3-5") << QDate(2026, 3, 5);
        QTest::newRow("direct outside the year search")
            << QStringLiteral("1999-12-31") << QDate(1999, 12, 31);
        QTest::newRow("chinese form") << QStringLiteral("2026年3月5日") << QDate(2026, 3, 5);
        QTest::newRow("slashes") << QStringLiteral("2026/03/05") << QDate(2026, 3, 5);
        QTest::newRow("server time stamp") << QStringLiteral("2026-11-15T09:05:30") << QDate(2026, 11, 15);
        QTest::newRow("year found behind month and day")
            << QStringLiteral("12/31/2026") << QDate(2026, 12, 31);
        QTest::newRow("year found first, then month and day")
            << QStringLiteral("05.03.2026") << QDate(2026, 5, 3);
        QTest::newRow("two-digit year") << QStringLiteral("26-3-5") << QDate(2026, 3, 5);
        QTest::newRow("long first group cut to two digits") << QStringLiteral("126.3.5") << QDate(2026, 3, 5);
        QTest::newRow("year beyond the search") << QStringLiteral("2031/03/05") << QDate(2031, 3, 5);
        QTest::newRow("year alone is the first of january") << QStringLiteral("2026") << QDate(2026, 1, 1);
        QTest::newRow("missing day") << QStringLiteral("2026年7月") << QDate(2026, 7, 1);
        QTest::newRow("implausible month") << QStringLiteral("2026/13/05") << QDate();
        QTest::newRow("no digits") << QStringLiteral("abc") << QDate();
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
        const QString serverToday =
            FormatDate(ParseDate(t.db->RunScalar(QStringLiteral("select Getdate()")), QDate()));
        Database down(unreachableConfig(QStringLiteral("postgresql")));
        // A local date that no server shows today.
        FixedClock clock(QDate(2001, 2, 3), QTime(10, 0));

        Session offline;
        QCOMPARE(ServerDate(down, offline, clock), QStringLiteral("2001-02-03"));
        QCOMPARE(offline.serverDateText, QStringLiteral("2001-02-03"));
        QCOMPARE(offline.serverDateDay, qint16(3));
        QCOMPARE(ServerDate(*t.db, offline, clock), QStringLiteral("2001-02-03"));
        clock.set(QDate(2001, 2, 4), QTime(0, 5));
        QCOMPARE(ServerDate(*t.db, offline, clock), QStringLiteral("2001-02-03"));

        Session online;
        QCOMPARE(ServerDate(*t.db, online, clock), serverToday);
        QCOMPARE(ServerDate(down, online, clock), serverToday);
        QCOMPARE(online.serverDateDay, qint16(ParseDate(serverToday, QDate()).day()));
    }
};

QTEST_GUILESS_MAIN(TestUtilities)
#include "tst_utilities.moc"
