#include "Rights.h"
#include "Session.h"

#include <QTest>

using namespace lanzhou;

namespace {

QList<bool> checksOf(const QString& bits)
{
    QList<bool> checks;
    for (const QChar c : bits)
        checks.append(c == QLatin1Char('1'));
    return checks;
}

} // namespace

// The rights string: padding, the right test, the editor's boxes and their clearing rules.
class TestRights : public QObject
{
    Q_OBJECT
private slots:
    void extendAndGrant_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("extended");
        QTest::newRow("null") << QString() << QStringLiteral("1111111111111111");
        QTest::newRow("empty") << QStringLiteral("") << QStringLiteral("1111111111111111");
        QTest::newRow("first refused") << QStringLiteral("0") << QStringLiteral("0111111111111111");
        QTest::newRow("older build") << QStringLiteral("1000") << QStringLiteral("1000111111111111");
        QTest::newRow("full") << QStringLiteral("1010101010101010") << QStringLiteral("1010101010101010");
        QTest::newRow("longer kept") << QStringLiteral("00000000000000000")
                                     << QStringLiteral("00000000000000000");
        QTest::newRow("other characters") << QStringLiteral("2 x1") << QStringLiteral("2 x1111111111111");
    }
    void extendAndGrant()
    {
        QFETCH(QString, stored);
        QFETCH(QString, extended);
        QCOMPARE(Rights::Extend(stored), extended);

        Session session;
        session.setRights(stored);
        QCOMPARE(session.rights(), extended);
        for (int position = 1; position <= Rights::count; ++position)
            QCOMPARE(session.hasRight(position), extended.at(position - 1) == QLatin1Char('1'));
        QVERIFY(!session.hasRight(0));
        QVERIFY(!session.hasRight(extended.size() + 1));
    }

    void boxes()
    {
        QCOMPARE(Rights::Extend(QStringLiteral("0"), 4), QStringLiteral("0111"));
        QCOMPARE(Rights::ToChecks(QStringLiteral("10x")), checksOf(QStringLiteral("1001111111111111")));
        QCOMPARE(Rights::ToChecks(QString()).size(), Rights::count);
        const QString stored = QStringLiteral("1101001110010110");
        QCOMPARE(Rights::FromChecks(Rights::ToChecks(stored)), stored);
        QCOMPARE(Rights::FromChecks(Rights::ToChecks(QStringLiteral("2"))),
                 QStringLiteral("0111111111111111"));
        QCOMPARE(Rights::RefusalText(), QStringLiteral("对不起，您无此权限！"));
    }

    void clearRules_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        QTest::newRow("all granted") << QStringLiteral("1111111111111111")
                                     << QStringLiteral("1111111111111111");
        QTest::newRow("journal view cleared")
            << QStringLiteral("1111101111111111") << QStringLiteral("1111101100000111");
        QTest::newRow("one report view left")
            << QStringLiteral("1111001111111111") << QStringLiteral("1111001100000111");
        QTest::newRow("all report views cleared")
            << QStringLiteral("1111000111111111") << QStringLiteral("1111000000000111");
        QTest::newRow("increase cleared, decrease kept")
            << QStringLiteral("1011111111111111") << QStringLiteral("1011111111111111");
        QTest::newRow("increase and decrease cleared")
            << QStringLiteral("1001111111111111") << QStringLiteral("1001111110011111");
        QTest::newRow("positions 9 and 15 alone")
            << QStringLiteral("1111111101111101") << QStringLiteral("1111111101111101");
        QTest::newRow("nothing is ever set")
            << QStringLiteral("0000000000000000") << QStringLiteral("0000000000000000");
    }
    void clearRules()
    {
        QFETCH(QString, before);
        QFETCH(QString, after);
        QList<bool> checks = checksOf(before);
        Rights::ApplyClearRules(checks);
        QCOMPARE(Rights::FromChecks(checks), after);
    }

    // The rules run when a box is cleared, not when one is checked or tested: a dependent right
    // checked afterwards is stored and granted as it stands.
    void oneWay()
    {
        QList<bool> checks = checksOf(QStringLiteral("1111111111111111"));
        checks[5] = false;
        Rights::ApplyClearRules(checks);
        QCOMPARE(Rights::FromChecks(checks), QStringLiteral("1111101100000111"));
        checks[10] = true;
        const QString stored = Rights::FromChecks(checks);
        QCOMPARE(stored, QStringLiteral("1111101100100111"));
        QVERIFY(Rights::Granted(stored, 11));
        QVERIFY(!Rights::Granted(stored, 6));

        // Clearing the decrease right after the increase right takes the late-entry and modify rights.
        checks = checksOf(QStringLiteral("1011111111111111"));
        checks[2] = false;
        Rights::ApplyClearRules(checks);
        QCOMPARE(Rights::FromChecks(checks), QStringLiteral("1001111110011111"));
    }
};

QTEST_GUILESS_MAIN(TestRights)
#include "tst_rights.moc"
