#include "InjectionTest.h"

#include "Figures.h"
#include "TestContext.h"
#include "WindowDriver.h"

#include "Announcement.h"
#include "AppConstants.h"
#include "ContactCheck.h"
#include "GongGao.h"
#include "HzLst.h"
#include "JournalOpener.h"
#include "KcLst.h"
#include "KuangDriver.h"
#include "LedgerList.h"
#include "MxEd.h"
#include "MxLst.h"
#include "QuickEntryRules.h"
#include "TextUtils.h"
#include "UsrGL.h"
#include "UsrPwd.h"
#include "ZbTyp.h"

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

namespace lanzhou::test {

namespace {

// Every hostile text carries a statement of its own that adds a marker ledger "pwn": should any
// text end its quoted value, the marker row shows it.
const QString kBreakOut = u"'; insert into ZbLst (ZBid,ZbNm) values ('pwn','pwn');--"_s;

struct Payload
{
    QString name;
    QString text;
};

// 10,000 characters, every other one outside the basic plane, so that a length limit falls on one.
QString longText()
{
    QString text;
    for (qsizetype i = 0; i < 10000 - kBreakOut.size(); ++i)
        text += i % 2 ? u"😀"_s : u"长"_s;
    return text + kBreakOut;
}

// The corpus. Two-box windows get a text in the first box and the next one in the second, so that
// a trailing backslash meets a quote-breaking text.
const QList<Payload>& corpus()
{
    static const QList<Payload> all{
        {u"backslash"_s, u"a\\"_s},
        {u"quote"_s, kBreakOut},
        {u"look-alike"_s, u"x\u02BC\u2019\uFF07); insert into ZbLst (ZBid) values (\uFF07pwn\u2019);--"_s},
        {u"separators"_s, u"c */; -- /* "_s + kBreakOut},
        {u"nul"_s, u"n"_s + QChar(0) + kBreakOut},
        {u"right-to-left"_s, QChar(0x202E) + kBreakOut},
        {u"long"_s, longText()},
        {u"astral"_s, u"𠀀😀"_s + kBreakOut},
        {u"wildcards"_s, u"%_"_s + kBreakOut},
    };
    return all;
}

// A text as it can be stored, and as a keyboard gives it: no quoted value carries a NUL, and no key
// types one.
QString withoutNul(QString text)
{
    return text.remove(QChar(0));
}

// The texts another client can store.
QList<Payload> storableCorpus()
{
    QList<Payload> storable;
    for (const Payload& p : corpus())
        if (!p.text.contains(QChar(0)))
            storable.append(p);
    return storable;
}

// The first characters of a text, counting a character outside the basic plane once.
QString firstCharacters(const QString& text, qsizetype characters)
{
    qsizetype at = 0;
    for (; at < text.size() && characters > 0; --characters)
        at += text.at(at).isHighSurrogate() && at + 1 < text.size() ? 2 : 1;
    return text.left(at);
}

QString printable(QString text)
{
    if (text.size() > 90)
        text = text.left(60) + u"…("_s + QString::number(text.size()) + u" units)"_s;
    return text.replace(QChar(0), u"\\0"_s);
}

// Replaces a box's text as a person does: typed key by key, or pasted when it is long or (unless
// only keys are at hand) holds a character no key gives.
void enter(const WindowDriver& d, const QString& name, const QString& text, bool keysOnly = false)
{
    d.activate();
    QWidget* control = d.w<QWidget>(name);
    QWidget* target = control;
    if (auto* combo = qobject_cast<QComboBox*>(control))
        target = combo->lineEdit();
    control->setFocus();
    QTest::keyClick(target, Qt::Key_A, Qt::ControlModifier);
    if (text.size() > 200 || (!keysOnly && text.contains(QChar(0)))) {
        QGuiApplication::clipboard()->setText(text);
        QTest::keyClick(target, Qt::Key_V, Qt::ControlModifier);
    } else {
        QTest::keyClick(target, Qt::Key_Delete);
        typeText(target, text);
    }
}

// The ledger as the last one opened on this computer, read against a known server date.
void rememberLedger(TestContext& t, const QString& id, const QString& name)
{
    RememberLedger(t.settings, id, name);
    t.session.serverDateText = u"2026-11-15"_s;
    t.session.serverDateDay = 15;
}

// The visible entry IDs of the journal, sorted, joined by blanks.
QString listedIds(const WindowDriver& j)
{
    QStringList ids = j.lines(u"Lst2"_s);
    ids.removeAll(QString());
    ids.sort();
    return ids.join(u' ');
}

// The figures of a report's data lines (every cell but the first, which holds the item), one line
// each, joined by ";".
QString reportFigures(const WindowDriver& d, int firstDataLine)
{
    QStringList figures;
    const QStringList lines = d.lines(u"Lst"_s);
    for (qsizetype i = firstDataLine; i < lines.size(); ++i) {
        QStringList cells = CellTexts(lines.at(i)).split(u'|');
        while (!cells.isEmpty() && cells.last().isEmpty())
            cells.removeLast();
        if (cells.size() > 1 && !lines.at(i).contains(u"合计"_s))
            figures.append(cells.mid(1).join(u'|'));
    }
    return figures.join(u';');
}

// One backend's run: a canary ledger that nothing may touch, and the figures of every check.
struct Run
{
    explicit Run(const QString& backend) : t(backend)
    {
        t.exec(u"insert into Zblst (ZBid,ZbNm,Item,SL,Bz,BgDate,NdDate,MB,SalesMan,Msg) values "
               "('K9','金丝雀','物品','存量','自已注册','2026-11-01','','','','您好！')"_s);
        t.exec(u"insert into UsrLst (ZBID,Usr,PWD,QX) values ('K9','管理员','k9','1111')"_s);
        t.exec(u"insert into Zhang (ZBID,USR,TM,ID,ITEM,SL,BZ) values "
               "('K9','管理员','2026-11-15 08:00','K1','螺丝',5,'备注')"_s);
        canaryBefore = canary();
        // Sessions start with backslashes taken literally, whatever the server's default.
        if (backend != u"sqlite"_s)
            compare(u"session"_s, t.db->RunScalar(u"select current_setting('standard_conforming_strings')"_s),
                    u"on"_s, u"backslashes in quoted values"_s);
    }
    QString canary()
    {
        return t.text(u"select ZBid,ZbNm,Item,SL,Msg,Cmd,GongGao from ZbLst where ZBid='K9'"_s) + u'/' +
               t.text(u"select Usr,PWD,QX from UsrLst where ZBID='K9'"_s) + u'/' +
               t.text(u"select TM,ID,ITEM,SL,BZ from Zhang where ZBID='K9'"_s);
    }
    bool check(const QString& group, bool ok, const QString& what)
    {
        if (!Figures::count(u"injection-"_s + group, t.backendName, ok)) {
            failures.append(group + u": "_s + what);
            qWarning("%s %s: %s", qPrintable(t.backendName), qPrintable(group), qPrintable(what));
        }
        return ok;
    }
    void compare(const QString& group, const QString& got, const QString& expected, const QString& what)
    {
        qsizetype at = 0;
        while (at < got.size() && at < expected.size() && got.at(at) == expected.at(at))
            ++at;
        const qsizetype from = qMax<qsizetype>(0, at - 20);
        check(group, got == expected,
              what + u" (from unit "_s + QString::number(from) + u")\n    got      "_s +
                  printable(got.mid(from)) + u"\n    expected "_s + printable(expected.mid(from)));
    }
    // The canary ledger as it was, and no marker row.
    void noBreakOut(const QString& group)
    {
        compare(group, canary(), canaryBefore, u"the canary ledger"_s);
        compare(group,
                t.text(u"select count(*) from ZbLst where ZBid='pwn'"_s) +
                    t.text(u"select count(*) from UsrLst where ZBID='pwn' or Usr='pwn'"_s),
                u"00"_s, u"marker rows"_s);
    }
    // What the dialogs showed since the last call, joined by "/".
    QString said()
    {
        const QString texts = t.dialogs.texts().join(u'/');
        t.dialogs.clear();
        return texts;
    }

    TestContext t;
    QString canaryBefore;
    QStringList failures;
};

#define FINISH(run)                                                                                          \
    QVERIFY2((run).failures.isEmpty(),                                                                       \
             qPrintable(QString::number((run).failures.size()) + u" failed checks"_s))

} // namespace

void InjectionTest::typedTexts_data()
{
    addBackendRows(everyServerSetting());
}

// Quick entry, then the journal's filters, the summary's and the balance list's item conditions.
void InjectionTest::typedTexts()
{
    QFETCH(QString, backend);
    Run r(backend);
    TestContext& t = r.t;
    const QList<Payload>& c = corpus();
    t.openLedger(u"L1"_s, u"五金仓库"_s);
    rememberLedger(t, u"L1"_s, u"五金仓库"_s);
    QStringList ids, items; // each posting's entry ID and item as stored
    {
        KuangDriver k(t.context());
        k.logIn();
        for (qsizetype i = 0; i < c.size(); ++i) {
            const QString remark = c[(i + 1) % c.size()].text;
            t.clock.advance(1000);
            enter(k, u"Cmb"_s, c[i].text);
            enter(k, u"Txt"_s, u"+1 "_s + remark);
            k.click(u"Cmd"_s);
            ids.append(GenerateEntryId(t.session.serverDateText, t.clock.secondsSinceMidnight()));
            items.append(CollapseDashes(CleanInput(c[i].text)));
            r.compare(u"quick-entry"_s, r.said() + k.text(u"Lab5"_s), u"+1  已保存！"_s,
                      c[i].name + u" posted"_s);
            r.compare(u"quick-entry"_s,
                      t.text(u"select ITEM,BZ from Zhang where ZBID='L1' and ID='"_s + ids.last() + u'\''),
                      items.last() + u'|' + SplitQuantity(CleanInput(u"+1 "_s + remark)).remark,
                      c[i].name + u" stored"_s);
        }
        r.noBreakOut(u"quick-entry"_s);
    }

    // The journal lists, for an item typed, exactly the entries stored under the cleaned text.
    MxLst journal(t.context());
    journal.show();
    WindowDriver j(&journal);
    for (qsizetype i = 0; i < c.size(); ++i) {
        const QString cleaned = CleanInput(c[i].text);
        QStringList expected;
        for (qsizetype e = 0; e < items.size(); ++e)
            if (items[e].compare(cleaned, Qt::CaseInsensitive) == 0)
                expected.append(ids[e]);
        enter(j, u"CmbItm"_s, c[i].text);
        j.click(u"Cmd_0"_s);
        r.compare(u"journal"_s, r.said() + listedIds(j),
                  expected.isEmpty() ? u"没有符合条件的数据！"_s : expected.join(u' '),
                  c[i].name + u" as the item"_s);
    }
    // A remark typed as a filter lists the entries whose remark holds it, and only this ledger's.
    j.pickIndex(u"CmbItm"_s, 0);
    for (qsizetype i = 0; i < c.size(); ++i) {
        enter(j, u"TxtBZ"_s, c[i].text);
        j.click(u"Cmd_0"_s);
        const QString listed = listedIds(j);
        const QString own = ids[(i + c.size() - 1) % c.size()];
        const QString said = r.said();
        bool ok = said.isEmpty() || (listed.isEmpty() && said == u"没有符合条件的数据！"_s);
        for (const QString& id : listed.split(u' ', Qt::SkipEmptyParts))
            ok = ok && ids.contains(id);
        const QString stored = t.text(u"select BZ from Zhang where ID='"_s + own + u'\'');
        if (stored.contains(CleanInput(c[i].text), Qt::CaseInsensitive))
            ok = ok && listed.contains(own);
        r.check(u"journal"_s, ok, c[i].name + u" as the remark: "_s + listed);
    }
    r.noBreakOut(u"journal"_s);

    // The summary finds a typed item among the listed ones and sums it; the balance list asks the
    // server for it.
    JournalOpener opener(t.context(), nullptr);
    HzLst summary(t.context(), opener);
    summary.show();
    WindowDriver h(&summary);
    KcLst balances(t.context(), opener);
    balances.show();
    WindowDriver b(&balances);
    for (qsizetype i = 0; i < c.size(); ++i) {
        const QString cleaned = CleanInput(c[i].text);
        const qsizetype found = std::count_if(items.cbegin(), items.cend(), [&cleaned](const QString& item) {
            return item.compare(cleaned, Qt::CaseInsensitive) == 0;
        });
        enter(h, u"CmbItm"_s, c[i].text);
        h.click(u"Cmd_0"_s);
        r.compare(u"reports"_s, r.said() + (found ? reportFigures(h, 3) : QString()),
                  found ? u"0|1|0|1"_s : u"账本中不存在“"_s + cleaned + u"”这个物品"_s,
                  c[i].name + u" in the summary"_s);
        enter(b, u"Cmb"_s, c[i].text);
        b.click(u"Cmd_0"_s);
        r.compare(u"reports"_s, r.said() + reportFigures(b, 2),
                  found ? QStringList(found, u"1"_s).join(u';') : u"没有符合条件的数据！"_s,
                  c[i].name + u" in the balance list"_s);
    }
    // In the "contains" mode a backslash is found as the character it is, on every server kind.
    b.pickIndex(u"CmbGX1"_s, 1);
    enter(b, u"Cmb"_s, u"a\\"_s);
    b.click(u"Cmd_0"_s);
    const qsizetype holding = std::count_if(items.cbegin(), items.cend(), [](const QString& item) {
        return item.contains(u"a\\"_s, Qt::CaseInsensitive);
    });
    r.compare(u"reports"_s, r.said() + reportFigures(b, 2), QStringList(holding, u"1"_s).join(u';'),
              u"a backslash in the balance list's contains mode"_s);
    r.noBreakOut(u"reports"_s);
    FINISH(r);
}

void InjectionTest::administration_data()
{
    addBackendRows(everyServerSetting());
}

// Ledger registration, operators, passwords (set, logged in with, asked by bulk delete) and the
// announcement.
void InjectionTest::administration()
{
    QFETCH(QString, backend);
    Run r(backend);
    TestContext& t = r.t;
    const QList<Payload>& c = corpus();
    const auto next = [&c](qsizetype i) { return c[(i + 1) % c.size()].text; };

    {
        Session s;
        s.serverDateText = u"2026-11-15"_s;
        s.serverDateDay = 15;
        LedgerList ledgers;
        for (qsizetype i = 0; i < c.size(); ++i) {
            ZbTyp z(AppContext{s, *t.db, t.dialogs, t.shell, t.clock, t.settings}, ledgers,
                    ZbTyp::Mode::AddLedger);
            z.show();
            WindowDriver d(&z);
            // A prefix makes every text long enough for a QQ number.
            const QString contact = u"qq%1 "_s.arg(i) + c[i].text;
            d.pick(u"CmbLX"_s, u"QQ号"_s);
            enter(d, u"TxtZbID"_s, contact);
            d.click(u"Cmd_3"_s);
            enter(d, u"TxtZbNm"_s, next(i));
            d.click(u"Cmd_5"_s);
            d.click(u"Opt_4"_s);
            enter(d, u"Txt_0"_s, c[i].text);
            enter(d, u"Txt_1"_s, next(i));
            d.click(u"Cmd_0"_s);
            const QString id = CleanLedgerText(firstCharacters(contact, 50));
            r.compare(u"ledger"_s,
                      r.said() +
                          t.text(u"select ZbNm,Item,SL,Usr from ZbLst join UsrLst on UsrLst.ZBID=ZbLst.ZBid "
                                 "where ZbLst.ZBid='"_s +
                                 SqlLiteral(id) + u'\''),
                      QStringList{CleanLedgerText(firstCharacters(next(i), 50)),
                                  CleanInput(firstCharacters(c[i].text, 20)),
                                  CleanInput(firstCharacters(next(i), 20)), u"管理员"_s}
                          .join(u'|'),
                      c[i].name + u" registered"_s);
        }
        r.noBreakOut(u"ledger"_s);
    }

    t.openLedger(u"L1"_s, u"家庭账"_s);
    rememberLedger(t, u"L1"_s, u"家庭账"_s);
    const auto storedOperator = [&t](const QString& name) {
        return t.text(u"select Usr,PWD,coalesce(QX,'') from UsrLst where ZBID='L1' and Usr='"_s +
                      SqlLiteral(name) + u'\'');
    };
    {
        UsrGL operators(t.context());
        operators.show();
        WindowDriver d(&operators);
        for (qsizetype i = 0; i < c.size(); ++i) {
            d.click(u"Cmd_3"_s);
            enter(d, u"Txt"_s, c[i].text);
            d.click(u"Cmd_0"_s);
            const QString name = CleanInput(c[i].text);
            r.compare(u"operators"_s, r.said() + u'/' + storedOperator(name),
                      u"保存成功！/"_s + name + u"||0000000000000000"_s, c[i].name + u" added"_s);
        }
    }
    for (qsizetype i = 0; i < c.size(); ++i) {
        UsrPwd window(t.context(), UsrPwd::Mode::NewOperator);
        window.show();
        WindowDriver d(&window);
        enter(d, u"Txt_0"_s, u"新"_s + c[i].text);
        enter(d, u"Txt_1"_s, next(i));
        enter(d, u"Txt_2"_s, next(i));
        d.click(u"Cmd_0"_s);
        const QString name = CleanInput(u"新"_s + c[i].text).remove(u'|').remove(u'-');
        const QString row = r.said() + storedOperator(name);
        r.compare(u"operators"_s, row.section(u'|', 0, 0), name, c[i].name + u" added with a password"_s);
        r.compare(u"passwords"_s, row.section(u'|', 1, 1), withoutNul(next(i)),
                  c[i].name + u" as a new operator's"_s);
    }
    r.noBreakOut(u"operators"_s);

    // Each text as the administrator's password: set, logged in with, typed for a bulk delete.
    KuangDriver k(t.context());
    k.logIn(u"管理员"_s);
    for (qsizetype i = 0; i < c.size(); ++i) {
        {
            UsrPwd window(t.context(), UsrPwd::Mode::ChangePassword);
            window.show();
            WindowDriver d(&window);
            enter(d, u"Txt_1"_s, c[i].text);
            enter(d, u"Txt_2"_s, c[i].text);
            d.click(u"Cmd_0"_s);
        }
        r.compare(u"passwords"_s, r.said() + storedOperator(u"管理员"_s),
                  u"管理员|"_s + withoutNul(c[i].text) + u'|', c[i].name + u" set"_s);
        k.chooseMenu(u"CmdMenu"_s, u"Menu_Login"_s);
        k.pick(u"CmbUser"_s, u"管理员"_s);
        enter(k, u"TxtPwd"_s, c[i].text, true);
        k.click(u"Cmd"_s);
        r.compare(u"passwords"_s, r.said() + QString::number(k.panel()), u"2"_s, c[i].name + u" logs in"_s);

        t.clock.advance(1000);
        enter(k, u"Cmb"_s, u"螺丝"_s);
        enter(k, u"Txt"_s, u"+1"_s);
        k.click(u"Cmd"_s);
        MxLst journal(t.context());
        journal.show();
        WindowDriver j(&journal);
        j.click(u"Cmd_0"_s);
        r.said();
        t.dialogs.queueText(withoutNul(c[i].text));
        j.click(u"Cmd_6"_s);
        r.compare(u"passwords"_s,
                  t.dialogs.texts().value(1) + t.text(u"select count(*) from Zhang where ZBID='L1'"_s),
                  u"批量删除完成！0"_s, c[i].name + u" confirms a bulk delete"_s);
        r.said();
    }
    r.noBreakOut(u"passwords"_s);

    for (qsizetype i = 0; i < c.size(); ++i) {
        GongGao window(t.context(), Qt::white);
        window.show();
        WindowDriver d(&window);
        enter(d, u"Txt"_s, c[i].text);
        d.click(u"Cmd_0"_s);
        r.compare(u"announcement"_s,
                  r.said() + Announcement::Parse(t.text(u"select GongGao from ZbLst where ZBid='L1'"_s)).text,
                  CleanInput(c[i].text), c[i].name);
    }
    r.noBreakOut(u"announcement"_s);
    FINISH(r);
}

void InjectionTest::storedTexts_data()
{
    addBackendRows(everyServerSetting());
}

// The texts as another client stored them, one ledger each: its name, labels and announcement, its
// operator and his password, an item with its remark; then used by the program.
void InjectionTest::storedTexts()
{
    QFETCH(QString, backend);
    Run r(backend);
    TestContext& t = r.t;
    const QList<Payload> c = storableCorpus();
    for (qsizetype i = 0; i < c.size(); ++i) {
        const QString id = u"S%1"_s.arg(i), text = c[i].text, other = c[(i + 1) % c.size()].text;
        const QString second = u"乙"_s + other, q = SqlLiteral(text), qOther = SqlLiteral(other);
        t.exec(
            u"insert into Zblst (ZBid,ZbNm,Item,SL,Bz,Msg,GongGao) values ('%1','%2','%2','%3','','','255│%2')"_s
                .arg(id, q, qOther));
        t.exec(
            u"insert into UsrLst (ZBID,Usr,PWD,QX) values ('%1','%2','%3',NULL),('%1','%4','','1111')"_s.arg(
                id, q, qOther, SqlLiteral(second)));
        t.exec(
            u"insert into Zhang (ZBID,USR,TM,ID,ITEM,SL,BZ) values ('%1','%2','2026-10-20 "
            u"08:00','%1A','%2',7,'%3'),"
            "('%1','%2','2026-11-15 08:00','%1B','%2',-2,'%3'),('%1','%4','2026-11-15 10:00','%1C','%2',3,'')"_s
                .arg(id, q, qOther, SqlLiteral(second)));
        const QString name = c[i].name;

        // The ledger opens; its operator logs in with his password and sees the announcement.
        rememberLedger(t, id, text);
        KuangDriver k(t.context());
        k.post();
        k.pick(u"CmbUser"_s, text);
        enter(k, u"TxtPwd"_s, other);
        k.post();
        r.compare(u"passwords"_s, r.said() + QString::number(k.panel()), u"2"_s, name + u" logs in"_s);
        r.compare(u"announcement"_s, k.text(u"Lab3"_s), text, name + u" shown"_s);

        // The reports sum the item, read back from the server.
        {
            JournalOpener opener(t.context(), nullptr);
            HzLst summary(t.context(), opener);
            summary.show();
            WindowDriver h(&summary);
            h.click(u"Cmd_0"_s);
            r.compare(u"reports"_s, r.said() + reportFigures(h, 3), u"7|3|2|8"_s, name + u" summed"_s);
            KcLst balances(t.context(), opener);
            balances.show();
            WindowDriver b(&balances);
            b.click(u"Cmd_0"_s);
            r.compare(u"reports"_s, r.said() + reportFigures(b, 2), u"8"_s, name + u" in the balance list"_s);
        }

        // Picked, the item shows its total; posted, it is stored cleaned, under the operator's name.
        k.pick(u"Cmb"_s, text);
        r.compare(u"quick-entry"_s, k.text(u"Lab4"_s), u"当前"_s + CleanInput(other) + u"：8"_s,
                  name + u" total"_s);
        t.clock.advance(1000);
        enter(k, u"Txt"_s, u"+1"_s);
        k.click(u"Cmd"_s);
        const QString posted = GenerateEntryId(t.session.serverDateText, t.clock.secondsSinceMidnight());
        r.compare(u"quick-entry"_s,
                  r.said() + t.text(u"select USR,ITEM from Zhang where ZBID='"_s + id + u"' and ID='"_s +
                                    posted + u'\''),
                  text + u'|' + CollapseDashes(CleanInput(text)), name + u" posted"_s);

        // The entry editor corrects the entry of 2026-11-15 08:00: tombstoned under the operator's name,
        // written again cleaned as typed text is.
        MxLst journal(t.context());
        journal.show();
        WindowDriver j(&journal);
        j.click(u"Cmd_0"_s);
        const int row = int(j.lines(u"Lst2"_s).indexOf(id + u'B'));
        if (row >= 0) {
            j.clickLine(u"Lst"_s, row);
            j.click(u"Cmd_4"_s);
        }
        MxEd* editor = journal.findChild<MxEd*>();
        if (r.check(u"journal"_s, editor && editor->isVisible(), name + u" entry opens in the editor"_s)) {
            WindowDriver(editor).click(u"Cmd_0"_s);
            r.compare(u"journal"_s,
                      r.said() + t.text(u"select ZBID from Zhang where ID='"_s + id + u"B'"_s) + u'/' +
                          t.text(u"select USR,ITEM,SL,BZ from Zhang where ZBID='"_s + id +
                                 u"' and TM='2026-11-15 08:00'"_s),
                      text + u'#' + id + u"#2026-11-15 09:05/"_s + text + u'|' +
                          CollapseDashes(CleanInput(text)) + u"|-2|"_s + CollapseDashes(CleanInput(other)),
                      name + u" corrected"_s);
        }
        // The operator filter lists his own entries of the day, not the second operator's.
        j.pick(u"CmbUsr"_s, text);
        j.click(u"Cmd_0"_s);
        QStringList own;
        for (const QStringList& found :
             t.rows(u"select ID from Zhang where ZBID='"_s + id + u"' and TM>='2026-11-15' and USR<>'"_s +
                    SqlLiteral(second) + u'\''))
            own.append(found.value(0));
        own.sort();
        r.compare(u"journal"_s, r.said() + listedIds(j), own.join(u' '), name + u" as the operator filter"_s);

        // The second operator's rights are read, saved and he is removed, by his stored name.
        {
            UsrGL operators(t.context());
            operators.show();
            WindowDriver g(&operators);
            g.clickLine(u"Lst"_s, 2);
            g.click(u"Cmd_2"_s);
            g.click(u"Chk_1"_s);
            g.click(u"Cmd_0"_s);
            const QString saved = t.text(u"select QX from UsrLst where ZBID='"_s + id + u"' and Usr='"_s +
                                         SqlLiteral(second) + u'\'');
            g.click(u"Cmd_0"_s);
            r.compare(u"operators"_s,
                      r.said() + u'/' + saved + u'/' +
                          t.text(u"select count(*) from UsrLst where ZBID='"_s + id + u'\''),
                      u"保存成功！/删除成功！/1011111111111111/1"_s, name + u" second operator"_s);
        }

        // Bulk delete asks for the stored password.
        j.pickIndex(u"CmbUsr"_s, 0);
        j.click(u"Cmd_0"_s);
        t.dialogs.queueText(other);
        j.click(u"Cmd_6"_s);
        r.compare(u"passwords"_s,
                  t.dialogs.texts().value(1) +
                      t.text(u"select count(*) from Zhang where ZBID='"_s + id + u"' and TM>='2026-11-15'"_s),
                  u"批量删除完成！0"_s, name + u" confirms a bulk delete"_s);
        r.said();
    }
    r.noBreakOut(u"stored"_s);
    FINISH(r);
}

// The ledger window's boxes count characters, not UTF-16 units: a character outside the basic plane
// at the limit is kept whole or left out whole, typed or pasted.
void InjectionTest::characterLimits()
{
    TestContext t;
    LedgerList ledgers;
    ZbTyp window(t.context(), ledgers, ZbTyp::Mode::AddLedger);
    window.show();
    WindowDriver d(&window);
    const QString astral = u"😀"_s;
    struct Case
    {
        QString box;
        QString typed;
        QString kept;
    };
    const QList<Case> cases{
        {u"Txt_0"_s, QString(19, u'x') + astral + u'y', QString(19, u'x') + astral},
        {u"Txt_1"_s, longText(), firstCharacters(longText(), 20)},
        {u"TxtZbID"_s, u"1"_s + longText(), u"1"_s + firstCharacters(longText(), 49)},
        {u"TxtZbNm"_s, QString(60, QChar(0x957F)), QString(50, QChar(0x957F))},
    };
    for (const Case& c : cases) {
        enter(d, c.box, c.typed);
        QCOMPARE(d.text(c.box), c.kept);
    }
    // A character typed into a full box in the middle is refused; the text stays as it was.
    auto* box = d.w<QLineEdit>(u"Txt_0"_s);
    box->setCursorPosition(3);
    typeText(box, astral);
    QCOMPARE(d.text(u"Txt_0"_s), QString(19, u'x') + astral);
}

} // namespace lanzhou::test
