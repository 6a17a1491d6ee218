#include "QuickEntryRules.h"

#include <QTest>

using namespace lanzhou;

// The widget-free rules of quick entry: entry IDs, the automatic sign and the posting checks.
class TestQuickEntryRules : public QObject
{
    Q_OBJECT
private slots:
    void entryId()
    {
        QCOMPARE(GenerateEntryId(QStringLiteral("2026-11-15"), 32730.25), QStringLiteral("N11153273025"));
        QCOMPARE(GenerateEntryId(QStringLiteral("2013-01-02"), 0.0), QStringLiteral("A01020000000"));
        // Just after midnight the time keeps its 7 digits; hundredths are rounded.
        QCOMPARE(GenerateEntryId(QStringLiteral("2026-03-05"), 1.234), QStringLiteral("N03050000123"));
        QCOMPARE(GenerateEntryId(QStringLiteral("2026-12-31"), 86399.99), QStringLiteral("N12318639999"));
    }

    void automaticSign_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown");
        QTest::newRow("digit") << "5"
                               << "+5";
        QTest::newRow("blanks before digit") << "  12 箱"
                                             << "+12 箱";
        QTest::newRow("point") << ".5"
                               << "+0.5";
        QTest::newRow("minus kept") << "-5"
                                    << "-5";
        QTest::newRow("plus kept") << "+5"
                                   << "+5";
        QTest::newRow("letter kept") << "a5"
                                     << "a5";
        QTest::newRow("blank only") << "   "
                                    << "   ";
        QTest::newRow("full-width digit kept") << "５"
                                               << "５";
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
        QTest::newRow("plain") << "+10"
                               << "+10" << 10.0 << "";
        QTest::newRow("remark") << "-5 计划外"
                                << "-5" << -5.0 << "计划外";
        QTest::newRow("grouping") << "+1,000.5 运费"
                                  << "+1000.5" << 1000.5 << "运费";
        QTest::newRow("cleaned grouping") << "+1，000.5 运费"
                                          << "+1000.5" << 1000.5 << "运费";
        QTest::newRow("no blank") << "+10箱"
                                  << "+10" << 10.0 << "箱";
        QTest::newRow("bars and dashes") << "-2 A | B - C"
                                         << "-2" << -2.0 << "A  B-C";
        QTest::newRow("second sign ends") << "+5-3"
                                          << "+5" << 5.0 << "-3";
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
        const QString all = QStringLiteral("1111111111111111");
        const QString tip = QStringLiteral("提示");
        const QString format =
            QStringLiteral("请在存量增减栏输入数字，备注信息请放在数字之后，并用空格隔开！");
        QTest::newRow("ok") << all << "螺丝"
                            << "-5 计划外"
                            << ""
                            << "";
        QTest::newRow("empty item") << all << ""
                                    << "+5"
                                    << "请输入或选择物品！" << tip;
        QTest::newRow("all items") << all << "全部物品A"
                                   << "+5"
                                   << "物品中不能包含“全部物品”这样的词！" << tip;
        QTest::newRow("lone digit") << all << "螺丝"
                                    << "5"
                                    << "请输入存量增减数字！" << tip;
        QTest::newRow("lone sign") << all << "螺丝"
                                   << "+"
                                   << "请输入存量增减数字！" << tip;
        QTest::newRow("blank after sign") << all << "螺丝"
                                          << "+ 5" << format << "";
        QTest::newRow("point after sign") << all << "螺丝"
                                          << "+.5" << format << "";
        QTest::newRow("no sign") << all << "螺丝"
                                 << "15" << format << "";
        QTest::newRow("increase refused") << "1011"
                                          << "螺丝"
                                          << "+5"
                                          << "对不起，您只能记录存量减少的账目！"
                                          << "";
        QTest::newRow("minus zero is an increase") << "1011"
                                                   << "螺丝"
                                                   << "-0"
                                                   << "对不起，您只能记录存量减少的账目！"
                                                   << "";
        QTest::newRow("decrease refused") << "1101"
                                          << "螺丝"
                                          << "-5"
                                          << "对不起，您只能记录存量增加的账目！"
                                          << "";
        QTest::newRow("decrease allowed") << "1011"
                                          << "螺丝"
                                          << "-5"
                                          << ""
                                          << "";
    }
    void postingChecks()
    {
        QFETCH(QString, rights);
        QFETCH(QString, item);
        QFETCH(QString, quantity);
        const PostingCheck check = CheckPosting({rights, item, quantity, QStringLiteral("物品"),
                                                 QStringLiteral("存量"), QStringLiteral("存量增减")});
        QTEST(check.refusal, "refusal");
        QTEST(check.refusalTitle, "title");
    }

    void noPostingRight()
    {
        QVERIFY(HasNoPostingRight(QStringLiteral("1001111111111111")));
        QVERIFY(!HasNoPostingRight(QStringLiteral("1011111111111111")));
        QVERIFY(!HasNoPostingRight(QStringLiteral("1x01111111111111")));
        QCOMPARE(CheckPosting({QStringLiteral("1111"), QStringLiteral("螺丝 - 大"), QStringLiteral("+1"),
                               QStringLiteral("物品"), QStringLiteral("存量"), QStringLiteral("存量增减")})
                     .posting.item,
                 QStringLiteral("螺丝-大"));
    }
};

QTEST_APPLESS_MAIN(TestQuickEntryRules)
#include "tst_quickentry_rules.moc"
