#include "QuickEntryRules.h"

#include <QTest>

using namespace lanzhou;
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
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown");
        const auto row = [](const char* name, const QString& typed, const QString& shown) {
            QTest::newRow(name) << typed << shown;
        };
        row("digit", u"5"_s, u"+5"_s);
        row("blanks before digit", u"  12 箱"_s, u"+12 箱"_s);
        row("point", u".5"_s, u"+0.5"_s);
        row("minus kept", u"-5"_s, u"-5"_s);
        row("blank only", u"   "_s, u"   "_s);
        row("full-width digit kept", u"５"_s, u"５"_s);
    }
    void automaticSign()
    {
        QFETCH(QString, typed);
        QFETCH(QString, shown);
        QCOMPARE(WithAutomaticSign(typed), shown);
    }

    void splitQuantity_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("number");
        QTest::addColumn<double>("quantity");
        QTest::addColumn<QString>("remark");
        const auto row = [](const char* name, const QString& text, const QString& number, double quantity,
                            const QString& remark) {
            QTest::newRow(name) << text << number << quantity << remark;
        };
        row("plain", u"+10"_s, u"+10"_s, 10.0, QString());
        row("remark", u"-5 计划外"_s, u"-5"_s, -5.0, u"计划外"_s);
        row("grouping", u"+1,000.5 运费"_s, u"+1000.5"_s, 1000.5, u"运费"_s);
        row("cleaned grouping", u"+1，000.5 运费"_s, u"+1000.5"_s, 1000.5, u"运费"_s);
        row("bars and dashes", u"-2 A | B - C"_s, u"-2"_s, -2.0, u"A  B-C"_s);
        row("second sign ends", u"+5-3"_s, u"+5"_s, 5.0, u"-3"_s);
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
        QTest::addColumn<QString>("rights");
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("quantity");
        QTest::addColumn<QString>("refusal");
        QTest::addColumn<QString>("title");
        const auto row = [](const char* name, const QString& rights, const QString& item,
                            const QString& quantity, const QString& refusal, const QString& title) {
            QTest::newRow(name) << rights << item << quantity << refusal << title;
        };
        const QString all = u"1111111111111111"_s;
        const QString tip = u"提示"_s;
        const QString format = u"请在存量增减栏输入数字，备注信息请放在数字之后，并用空格隔开！"_s;
        row("ok", all, u"螺丝"_s, u"-5 计划外"_s, QString(), QString());
        row("empty item", all, QString(), u"+5"_s, u"请输入或选择物品！"_s, tip);
        row("all items", all, u"全部物品A"_s, u"+5"_s, u"物品中不能包含“全部物品”这样的词！"_s, tip);
        row("lone sign", all, u"螺丝"_s, u"+"_s, u"请输入存量增减数字！"_s, tip);
        row("blank after sign", all, u"螺丝"_s, u"+ 5"_s, format, QString());
        row("no sign", all, u"螺丝"_s, u"15"_s, format, QString());
        const QString onlyDecrease = u"对不起，您只能记录存量减少的账目！"_s;
        row("increase refused", u"1011"_s, u"螺丝"_s, u"+5"_s, onlyDecrease, QString());
        row("minus zero is an increase", u"1011"_s, u"螺丝"_s, u"-0"_s, onlyDecrease, QString());
        row("decrease refused", u"1101"_s, u"螺丝"_s, u"-5"_s, u"对不起，您只能记录存量增加的账目！"_s,
            QString());
        row("decrease allowed", u"1011"_s, u"螺丝"_s, u"-5"_s, QString(), QString());
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
