#include "TextGrid.h"

#include <QApplication>
#include <QTest>

using namespace lanzhou;
using namespace Qt::StringLiterals;

// The cells the journal and the reports draw their text tables with, in the list font.
class TestTextGrid : public QObject
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

    // A 9-point em is 180 twips: full-width characters take one, half-width ones half. Number cells
    // are never clipped; rule segments reach at least their width.
    void measuresNumbersAndRules()
    {
        const TextGrid grid(TextGrid::listFont());
        QCOMPARE(grid.widthTwips(u"物"_s), 180.0);
        QCOMPARE(grid.widthTwips(u"物品ab 12："_s), 90.0 * 11);
        QCOMPARE(grid.numberCell(-2.5), u"        -2.5│"_s);
        QCOMPARE(grid.numberCell(1.123456789), u"  1.12345679│"_s);
        QCOMPARE(grid.numberCell(0.5, 500), u"   0.5│"_s);
        QCOMPARE(grid.numberCell(123456789012345.0), u"123456789012345│"_s);
        QCOMPARE(grid.ruleSegment(TextGrid::Top, 800), u"─────┬"_s);
        QCOMPARE(grid.ruleSegment(TextGrid::Middle, 1000), u"──────┼"_s);
        QCOMPARE(grid.ruleSegment(TextGrid::Bottom, 180), u"─┴"_s);
    }

    // The journal's and the reports' columns: text, CJK text and numbers close their cells where
    // the rule segments of the same column put their junctions.
    void barsLineUp()
    {
        const TextGrid grid(TextGrid::listFont());
        const QList<std::pair<int, int>> columns{{890, 800}, {1590, 1500}, {3000, 3000}, {1000, 1000}};
        for (const auto& [cellWidth, ruleWidth] : columns) {
            const double rule = grid.widthTwips(grid.ruleSegment(TextGrid::Middle, ruleWidth));
            for (const QString& text : {QString(), u"管理员"_s, u"abc"_s,
                                        u"C型不锈钢加长垫圈（国标GB97.1规格M12）x"_s, u"2026-11-15 08:00"_s})
                QCOMPARE(grid.widthTwips(grid.textCell(text, cellWidth)), rule);
            if (cellWidth == 1000) {
                QCOMPARE(grid.widthTwips(grid.numberCell(-0.125)), rule);
                QCOMPARE(grid.widthTwips(grid.numberCell(99999)), rule);
            }
        }
    }
};

QTEST_MAIN(TestTextGrid)
#include "tst_textgrid.moc"
