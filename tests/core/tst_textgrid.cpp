#include "TextGrid.h"

#include <QApplication>
#include <QTest>

using namespace lanzhou;

namespace {

const QChar bar(0x2502);

QString withoutBar(const QString& cell)
{
    return cell.endsWith(bar) ? cell.chopped(1) : cell;
}

} // namespace

// The cells the journal and the reports draw their text tables with, in the list font.
class TestTextGrid : public QObject
{
    Q_OBJECT
private slots:
    void listFontMeasures()
    {
        const TextGrid grid(TextGrid::listFont());
        // A 9-point em is 180 twips: full-width characters take one, half-width ones half.
        QCOMPARE(grid.widthTwips(QStringLiteral("物")), 180.0);
        QCOMPARE(grid.widthTwips(QStringLiteral("a")), 90.0);
        QCOMPARE(grid.widthTwips(QStringLiteral(" ")), 90.0);
        QCOMPARE(grid.widthTwips(QStringLiteral("─")), 180.0);
        QCOMPARE(grid.widthTwips(QStringLiteral("物品ab 12：")), 90.0 * 11);
        QCOMPARE(grid.widthTwips(QString()), 0.0);
    }

    void textCells_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("width");
        QTest::addColumn<QString>("expected");
        QTest::newRow("padded") << QStringLiteral("ab") << 1000 << QStringLiteral("ab          │");
        QTest::newRow("cjk padded") << QStringLiteral("螺丝") << 1000 << QStringLiteral("螺丝        │");
        QTest::newRow("empty") << QString() << 890 << QStringLiteral("          │");
        QTest::newRow("clipped ascii")
            << QStringLiteral("abcdefghijklmn") << 1000 << QStringLiteral("abcdefghijk │");
        // Clipping stops at the width, never beyond; a half column left over is filled by a blank.
        QTest::newRow("clipped cjk") << QStringLiteral("一二三四五六七") << 1000
                                     << QStringLiteral("一二三四五  │");
        QTest::newRow("exact fit kept")
            << QStringLiteral("2026-11-15 08:00") << 1440 << QStringLiteral("2026-11-15 08:00│");
        QTest::newRow("one over clipped")
            << QStringLiteral("2026-11-15 08:001") << 1440 << QStringLiteral("2026-11-15 08:00│");
        QTest::newRow("surrogate pair kept")
            << QStringLiteral("甲\U00020000乙丙") << 400 << QStringLiteral("甲\U00020000 │");
        QTest::newRow("surrogate pair dropped whole")
            << QStringLiteral("甲\U00020000乙丙") << 300 << QStringLiteral("甲  │");
    }
    void textCells()
    {
        QFETCH(QString, text);
        QFETCH(int, width);
        QFETCH(QString, expected);
        const TextGrid grid(TextGrid::listFont());
        const QString cell = grid.textCell(text, width);
        QCOMPARE(cell, expected);
        QVERIFY(grid.widthTwips(withoutBar(cell)) >= width);
    }

    void numberCells()
    {
        const TextGrid grid(TextGrid::listFont());
        QCOMPARE(grid.numberCell(10), QStringLiteral("          10│"));
        QCOMPARE(grid.numberCell(-2.5), QStringLiteral("        -2.5│"));
        QCOMPARE(grid.numberCell(1.123456789), QStringLiteral("  1.12345679│"));
        QCOMPARE(grid.numberCell(0.5, 500), QStringLiteral("   0.5│"));
        // Never clipped, however long.
        QCOMPARE(grid.numberCell(123456789012345.0), QStringLiteral("123456789012345│"));
    }

    void ruleSegments()
    {
        const TextGrid grid(TextGrid::listFont());
        QCOMPARE(grid.ruleSegment(TextGrid::Top, 800), QStringLiteral("─────┬"));
        QCOMPARE(grid.ruleSegment(TextGrid::Middle, 1000), QStringLiteral("──────┼"));
        QCOMPARE(grid.ruleSegment(TextGrid::Bottom, 180), QStringLiteral("─┴"));
        QCOMPARE(grid.ruleSegment(TextGrid::Bottom, 0), QStringLiteral("┴"));
    }

    // The journal's and the reports' columns: text, CJK text and numbers close their cells where
    // the rule segments of the same column put their junctions.
    void barsLineUp()
    {
        const TextGrid grid(TextGrid::listFont());
        const QList<std::pair<int, int>> columns{{890, 800}, {1590, 1500}, {3000, 3000}, {1000, 1000}};
        for (const auto& [cellWidth, ruleWidth] : columns) {
            const double rule = grid.widthTwips(grid.ruleSegment(TextGrid::Middle, ruleWidth));
            for (const QString& text : {QString(), QStringLiteral("管理员"), QStringLiteral("abc"),
                                        QStringLiteral("C型不锈钢加长垫圈（国标GB97.1规格M12）x"),
                                        QStringLiteral("2026-11-15 08:00")})
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
