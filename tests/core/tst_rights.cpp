#include "Rights.h"
#include "Session.h"

#include <QTest>

using namespace lanzhou;
using namespace Qt::StringLiterals;

// The rights string: padding, the right test, the editor's boxes and their clearing rules.
class TestRights : public QObject
{
    Q_OBJECT
private slots:
    void extendAndGrant_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("extended");
        QTest::newRow("null") << QString() << u"1111111111111111"_s;
        QTest::newRow("older build") << u"1000"_s << u"1000111111111111"_s;
        QTest::newRow("full") << u"1010101010101010"_s << u"1010101010101010"_s;
        QTest::newRow("longer kept") << u"00000000000000000"_s << u"00000000000000000"_s;
        QTest::newRow("other characters") << u"2 x1"_s << u"2 x1111111111111"_s;
    }
    void extendAndGrant()
    {
        QFETCH(QString, stored);
        QFETCH(QString, extended);
        Session session;
        session.setRights(stored);
        QCOMPARE(session.rights(), extended);
        for (int position = 1; position <= Rights::count; ++position)
            QCOMPARE(session.hasRight(position), extended.at(position - 1) == QLatin1Char('1'));
        QVERIFY(!session.hasRight(0));
        QVERIFY(!session.hasRight(extended.size() + 1));
    }

    // The editor's boxes: one per right, a missing position checked, anything but "1" unchecked.
    void boxes()
    {
        QCOMPARE(Rights::Extend(u"0"_s, 4), u"0111"_s);
        QCOMPARE(Rights::FromChecks(Rights::ToChecks(u"10x"_s)), u"1001111111111111"_s);
    }

    // The rules run when a box is cleared and only ever clear boxes.
    void clearRules_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        QTest::newRow("journal view cleared") << u"1111101111111111"_s << u"1111101100000111"_s;
        QTest::newRow("one report view left") << u"1111001111111111"_s << u"1111001100000111"_s;
        QTest::newRow("all report views cleared") << u"1111000111111111"_s << u"1111000000000111"_s;
        QTest::newRow("increase cleared, decrease kept") << u"1011111111111111"_s << u"1011111111111111"_s;
        QTest::newRow("increase and decrease cleared") << u"1001111111111111"_s << u"1001111110011111"_s;
        QTest::newRow("positions 9 and 15 alone") << u"1111111101111101"_s << u"1111111101111101"_s;
        QTest::newRow("nothing is ever set") << u"0000000000000000"_s << u"0000000000000000"_s;
    }
    void clearRules()
    {
        QFETCH(QString, before);
        QFETCH(QString, after);
        QList<bool> checks = Rights::ToChecks(before);
        Rights::ApplyClearRules(checks);
        QCOMPARE(Rights::FromChecks(checks), after);
    }
};

QTEST_GUILESS_MAIN(TestRights)
#include "tst_rights.moc"
