#include "TestContext.h"
#include "WindowDriver.h"

#include "Announcement.h"
#include "GongGao.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTest>

using namespace lanzhou;
using namespace lanzhou::test;
using namespace Qt::StringLiterals;

class TestAnnouncement : public QObject
{
    Q_OBJECT
private slots:
    // The stored value splits at its first "│"; the colour number holds red in its lowest byte.
    void parse_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QColor>("colour");
        QTest::addColumn<QString>("text");
        QTest::newRow("none") << QString() << QColor(Qt::black) << QString();
        QTest::newRow("no separator") << u"只有文字"_s << QColor(Qt::black) << u"只有文字"_s;
        QTest::newRow("bad colour") << u"蓝色│文字"_s << QColor(Qt::black) << u"文字"_s;
        QTest::newRow("colour out of range") << u"16777216│x"_s << QColor(Qt::black) << u"x"_s;
        QTest::newRow("separator in text") << u"255│a│b"_s << QColor(255, 0, 0) << u"a│b"_s;
        QTest::newRow("bytes in order") << u" 197121 │\n"_s << QColor(1, 2, 3) << u"\n"_s;
    }
    void parse()
    {
        QFETCH(QString, stored);
        const Announcement parsed = Announcement::Parse(stored);
        QTEST(parsed.colour, "colour");
        QTEST(parsed.text, "text");
        QCOMPARE(Announcement::Stored(QColor(1, 2, 3), u"t"_s), u"197121│t"_s);
    }

    // Publish pasted text with a picked colour; closing writes nothing; clearing twice succeeds both
    // times, the second on an empty row. (A server that is down is the reliability suite's.)
    void publishAndClear_data() { addBackendRows(); }
    void publishAndClear()
    {
        TestContext t(rowBackend());
        t.openLedger(u"L1"_s, u"库存账"_s);
        const QString old = u"255│盘点│周五"_s, published = u"14680064│今晚盘点\n别迟到"_s;
        const auto row = [&t] { return t.text(u"select GongGao from ZbLst where ZBID='L1'"_s); };
        t.exec(u"update ZbLst set GongGao='%1' where ZBID='L1'"_s.arg(old));
        t.session.setAnnouncement(old);
        Shown<GongGao> d(t.context(), QColor(0xFFFFE1));
        const auto txt = [&d] { return d.w<QPlainTextEdit>(u"Txt"_s); };
        const auto paste = [&txt](const QString& text) {
            QGuiApplication::clipboard()->setText(text);
            txt()->selectAll();
            QTest::keyClick(txt(), Qt::Key_V, Qt::ControlModifier);
        };
        QCOMPARE(txt()->toPlainText(), u"盘点│周五"_s);
        QCOMPARE(txt()->palette().color(QPalette::Text), QColor(Qt::red));
        QCOMPARE(txt()->palette().color(QPalette::Base), QColor(0xFFFFE1));

        QTest::mousePress(d.w<QLabel>(u"Lab_2"_s), Qt::LeftButton);
        paste(u"今晚盘点\n别迟到"_s);
        QCOMPARE(txt()->palette().color(QPalette::Text), QColor(0, 0, 0xE0));
        saveScreenshot(d.window(), u"gonggao.png"_s);
        d.click(u"Cmd_0"_s);
        QVERIFY(!d->isVisible());
        QCOMPARE(row() + t.session.announcement(), published + published);

        d.open(t.context(), Qt::white);
        paste(u"作废"_s);
        d.click(u"Cmd_1"_s);
        QCOMPARE(row(), published);
        for (int i = 0; i < 2; ++i) {
            d.open(t.context(), Qt::white);
            d.click(u"Cmd_2"_s);
            QVERIFY(!d->isVisible());
            QCOMPARE(row() + t.session.announcement(), QString());
        }
        QCOMPARE(txt()->palette().color(QPalette::Text), QColor(Qt::black));
        QCOMPARE(t.dialogs.texts(), QStringList());
    }
};

QTEST_MAIN(TestAnnouncement)
#include "tst_announcement.moc"
