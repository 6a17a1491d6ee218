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

namespace {

const QString kLedger = u"13800000001"_s;
const QString kFailed = u"连接服务器失败，请重试！"_s;

// A ledger that is open and logged in, and one announcement window at a time.
struct Fixture
{
    explicit Fixture(const QString& backend) : t(backend) { t.openLedger(kLedger, u"库存账"_s); }
    void open(const QColor& background = Qt::white)
    {
        window = std::make_unique<GongGao>(t.context(), background);
        window->show();
        d.setWindow(window.get());
    }
    QPlainTextEdit* txt() const { return d.w<QPlainTextEdit>(u"Txt"_s); }
    // Replaces the text by pasting it, as an announcement written elsewhere arrives.
    void paste(const QString& text) const
    {
        QGuiApplication::clipboard()->setText(text);
        txt()->selectAll();
        QTest::keyClick(txt(), Qt::Key_V, Qt::ControlModifier);
    }
    QString row() { return t.text(u"select GongGao from ZbLst where ZBID='"_s + kLedger + u'\''); }

    TestContext t;
    std::unique_ptr<GongGao> window;
    WindowDriver d;
};

} // namespace

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
        QFETCH(QColor, colour);
        QFETCH(QString, text);
        const Announcement parsed = Announcement::Parse(stored);
        QCOMPARE(parsed.colour, colour);
        QCOMPARE(parsed.text, text);
        QCOMPARE(Announcement::Stored(QColor(1, 2, 3), u"t"_s), u"197121│t"_s);
    }

    // Publish with a picked colour; a server that is down changes nothing and a retry works; clear.
    void publishAndClear_data() { addBackendRows(); }
    void publishAndClear()
    {
        QFETCH(QString, backend);
        Fixture f(backend);
        const QString old = u"255│盘点│周五"_s, published = u"14680064│今晚盘点\n别迟到"_s;
        f.t.exec(u"update ZbLst set GongGao='%1' where ZBID='%2'"_s.arg(old, kLedger));
        f.t.session.setAnnouncement(old);
        f.open(QColor(0xFFFFE1));
        QCOMPARE(f.txt()->toPlainText(), u"盘点│周五"_s);
        QCOMPARE(f.txt()->palette().color(QPalette::Text), QColor(Qt::red));
        QCOMPARE(f.txt()->palette().color(QPalette::Base), QColor(0xFFFFE1));

        QTest::mousePress(f.d.w<QLabel>(u"Lab_2"_s), Qt::LeftButton);
        f.paste(u"今晚盘点\n别迟到"_s);
        QCOMPARE(f.txt()->palette().color(QPalette::Text), QColor(0, 0, 0xE0));
        saveScreenshot(f.window.get(), u"gonggao.png"_s);
        f.t.setServerDown(true);
        f.d.click(u"Cmd_0"_s);
        f.d.click(u"Cmd_2"_s);
        QCOMPARE(f.t.dialogs.texts(), QStringList({kFailed, kFailed}));
        QVERIFY(f.window->isVisible());
        f.t.setServerDown(false);
        QCOMPARE(f.row() + f.t.session.announcement(), old + old);
        f.d.click(u"Cmd_0"_s);
        QVERIFY(!f.window->isVisible());
        QCOMPARE(f.row() + f.t.session.announcement(), published + published);

        // Closing writes nothing; clearing twice succeeds both times, the second on an empty row.
        f.open();
        f.paste(u"作废"_s);
        f.d.click(u"Cmd_1"_s);
        QCOMPARE(f.row(), published);
        for (int i = 0; i < 2; ++i) {
            f.open();
            f.d.click(u"Cmd_2"_s);
            QVERIFY(!f.window->isVisible());
            QCOMPARE(f.row() + f.t.session.announcement(), QString());
        }
        QCOMPARE(f.txt()->palette().color(QPalette::Text), QColor(Qt::black));
        QCOMPARE(f.t.dialogs.texts().size(), 2);
    }
};

QTEST_MAIN(TestAnnouncement)
#include "tst_announcement.moc"
