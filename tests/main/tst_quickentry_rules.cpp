#include "QuickEntryRules.h"
#include "TestContext.h"

#include <QTest>

using namespace lanzhou;
using namespace lanzhou::test;
using namespace Qt::StringLiterals;

// The widget-free rules of quick entry: entry IDs, the automatic sign and the posting checks.
class TestQuickEntryRules : public QObject
{
    Q_OBJECT
private slots:
    void entryId()
    {
        QCOMPARE(GenerateEntryId(u"2026-11-15"_s, 32730.25), u"N11153273025"_s);
        QCOMPARE(GenerateEntryId(u"2013-01-02"_s, 0.0), u"A01020000000"_s);
        // Just after midnight the time keeps its 7 digits; hundredths are rounded.
        QCOMPARE(GenerateEntryId(u"2026-03-05"_s, 1.234), u"N03050000123"_s);
        QCOMPARE(GenerateEntryId(u"2026-12-31"_s, 86399.99), u"N12318639999"_s);
    }

    void automaticSign_data()
    {
        addTextColumns({"typed", "shown"});
        QTest::newRow("digit") << u"5"_s << u"+5"_s;
        QTest::newRow("blanks before digit") << u"  12 箱"_s << u"+12 箱"_s;
        QTest::newRow("point") << u".5"_s << u"+0.5"_s;
        QTest::newRow("minus kept") << u"-5"_s << u"-5"_s;
        QTest::newRow("blank only") << u"   "_s << u"   "_s;
        QTest::newRow("full-width digit kept") << u"５"_s << u"５"_s;
    }
    void automaticSign()
    {
        QFETCH(QString, typed);
        QTEST(WithAutomaticSign(typed), "shown");
    }

    void splitQuantity_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("number");
        QTest::addColumn<double>("quantity");
        QTest::addColumn<QString>("remark");
        QTest::newRow("plain") << u"+10"_s << u"+10"_s << 10.0 << QString();
        QTest::newRow("remark") << u"-5 计划外"_s << u"-5"_s << -5.0 << u"计划外"_s;
        QTest::newRow("grouping") << u"+1,000.5 运费"_s << u"+1000.5"_s << 1000.5 << u"运费"_s;
        QTest::newRow("cleaned grouping") << u"+1，000.5 运费"_s << u"+1000.5"_s << 1000.5 << u"运费"_s;
        QTest::newRow("bars and dashes") << u"-2 A | B - C"_s << u"-2"_s << -2.0 << u"A  B-C"_s;
        QTest::newRow("second sign ends") << u"+5-3"_s << u"+5"_s << 5.0 << u"-3"_s;
    }
    void splitQuantity()
    {
        QFETCH(QString, text);
        const Posting p = SplitQuantity(text);
        QTEST(p.numberText, "number");
        QTEST(p.quantity, "quantity");
        QTEST(p.remark, "remark");
    }

    void postingChecks_data()
    {
        addTextColumns({"rights", "item", "quantity", "refusal", "title"});
        const QString all = u"1111111111111111"_s;
        const QString tip = u"提示"_s;
        const QString format = u"请在存量增减栏输入数字，备注信息请放在数字之后，并用空格隔开！"_s;
        QTest::newRow("ok") << all << u"螺丝"_s << u"-5 计划外"_s << QString() << QString();
        QTest::newRow("empty item") << all << QString() << u"+5"_s << u"请输入或选择物品！"_s << tip;
        QTest::newRow("all items") << all << u"全部物品A"_s << u"+5"_s
                                   << u"物品中不能包含“全部物品”这样的词！"_s << tip;
        QTest::newRow("lone sign") << all << u"螺丝"_s << u"+"_s << u"请输入存量增减数字！"_s << tip;
        QTest::newRow("blank after sign") << all << u"螺丝"_s << u"+ 5"_s << format << QString();
        QTest::newRow("no sign") << all << u"螺丝"_s << u"15"_s << format << QString();
        const QString onlyDecrease = u"对不起，您只能记录存量减少的账目！"_s;
        QTest::newRow("increase refused") << u"1011"_s << u"螺丝"_s << u"+5"_s << onlyDecrease << QString();
        QTest::newRow("minus zero is an increase")
            << u"1011"_s << u"螺丝"_s << u"-0"_s << onlyDecrease << QString();
        QTest::newRow("decrease refused")
            << u"1101"_s << u"螺丝"_s << u"-5"_s << u"对不起，您只能记录存量增加的账目！"_s << QString();
        QTest::newRow("decrease allowed") << u"1011"_s << u"螺丝"_s << u"-5"_s << QString() << QString();
    }
    void postingChecks()
    {
        QFETCH(QString, rights);
        QFETCH(QString, item);
        QFETCH(QString, quantity);
        const PostingCheck check =
            CheckPosting({rights, item, quantity, u"物品"_s, u"存量"_s, u"存量增减"_s});
        QTEST(check.refusal, "refusal");
        QTEST(check.refusalTitle, "title");
    }

    void noPostingRight()
    {
        QVERIFY(HasNoPostingRight(u"1001111111111111"_s));
        QVERIFY(!HasNoPostingRight(u"1011111111111111"_s));
        QVERIFY(!HasNoPostingRight(u"1x01111111111111"_s));
        QCOMPARE(CheckPosting({u"1111"_s, u"螺丝 - 大"_s, u"+1"_s, u"物品"_s, u"存量"_s, u"存量增减"_s})
                     .posting.item,
                 u"螺丝-大"_s);
    }
};

QTEST_APPLESS_MAIN(TestQuickEntryRules)
#include "tst_quickentry_rules.moc"
