#include "InjectionTest.h"

#include "Figures.h"
#include "TestContext.h"
#include "WindowDriver.h"

#include "Announcement.h"
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
    QString name, text;
};

// 10,000 characters, every other one outside the basic plane, so that a length limit falls on one.
QString longText()
{
    QString text;
    for (qsizetype i = 0; i < 10000 - kBreakOut.size(); ++i)
        text += i % 2 ? u"😀"_s : u"长"_s;
    return text + kBreakOut;
}

// Two-box windows get a text in the first box and the next one in the second, so that a trailing
// backslash meets a quote-breaking text.
const QList<Payload> kCorpus{
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

QString next(const QList<Payload>& c, qsizetype i)
{
    return c[(i + 1) % c.size()].text;
}

// The first characters of a text, counting a character outside the basic plane once.
QString firstCharacters(const QString& text, qsizetype characters)
{
    qsizetype at = 0;
    for (; at < text.size() && characters > 0; --characters)
        at += text.at(at).isHighSurrogate() && at + 1 < text.size() ? 2 : 1;
    return text.left(at);
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

// Fills boxes as enter() does, then clicks a button.
void submit(const WindowDriver& d, const QList<std::pair<QString, QString>>& boxes,
            const QString& button = u"Cmd_0"_s)
{
    for (const auto& [box, text] : boxes)
        enter(d, box, text);
    d.click(button);
}

// The visible entry IDs of the journal, sorted, joined by blanks.
QString listedIds(const WindowDriver& j)
{
    QStringList ids = j.lines(u"Lst2"_s);
    ids.removeAll(QString());
    ids.sort();
    return ids.join(u' ');
}

// The figures of a report's data lines (every cell but the item's), one line each, joined by ";".
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

// The data row's run: a canary ledger that nothing may touch, and the failed checks.
struct Run
{
    Run() : t(rowBackend())
    {
        t.exec(u"insert into Zblst (ZBid,ZbNm,Item,SL,Bz,BgDate,NdDate,MB,SalesMan,Msg) values "
               "('K9','金丝雀','物品','存量','自已注册','2026-11-01','','','','您好！')"_s);
        t.exec(u"insert into UsrLst (ZBID,Usr,PWD,QX) values ('K9','管理员','k9','1111')"_s);
        t.exec(u"insert into Zhang (ZBID,USR,TM,ID,ITEM,SL,BZ) values "
               "('K9','管理员','2026-11-15 08:00','K1','螺丝',5,'备注')"_s);
        canaryBefore = canary();
        // Sessions start with backslashes taken literally, whatever the server's default.
        if (t.backendName != u"sqlite"_s)
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
        if (!Figures::count(u"injection-"_s + group, t.backendName, ok))
            failures.append(t.backendName + u' ' + group + u": "_s + what);
        return ok;
    }
    // Shows both texts from a little before the first unit where they differ.
    void compare(const QString& group, const QString& got, const QString& expected, const QString& what)
    {
        const qsizetype at =
            std::mismatch(got.begin(), got.end(), expected.begin(), expected.end()).first - got.begin();
        const auto shown = [at](const QString& text) {
            return text.mid(qMax<qsizetype>(0, at - 20), 80).replace(QChar(0), u"\\0"_s);
        };
        check(group, got == expected,
              what + u"\n  got      "_s + shown(got) + u"\n  expected "_s + shown(expected));
    }
    // The canary ledger as it was, and no marker row.
    void noBreakOut(const QString& group)
    {
        compare(group,
                canary() + t.text(u"select count(*) from ZbLst where ZBid='pwn'"_s) +
                    t.text(u"select count(*) from UsrLst where ZBID='pwn' or Usr='pwn'"_s),
                canaryBefore + u"00"_s, u"the canary ledger and no marker rows"_s);
    }
    // What the dialogs showed since the last call, joined by "/".
    QString said() { return t.said().join(u'/'); }
    // The last group's canary check, then the test fails with every failed check.
    void finish(const QString& group)
    {
        noBreakOut(group);
        QVERIFY2(failures.isEmpty(), qPrintable(failures.join(u'\n')));
    }

    TestContext t;
    QString canaryBefore;
    QStringList failures;
};

} // namespace

// Quick entry, then the journal's filters, the summary's and the balance list's item conditions.
void InjectionTest::typedTexts()
{
    Run r;
    TestContext& t = r.t;
    const QList<Payload>& c = kCorpus;
    t.openLedger(u"L1"_s, u"五金仓库"_s);
    RememberLedger(t, u"L1"_s, u"五金仓库"_s);
    QStringList ids, items; // each posting's entry ID and item as stored
    {
        KuangDriver k(t.context());
        k.logIn();
        for (qsizetype i = 0; i < c.size(); ++i) {
            const QString quantity = u"+1 "_s + next(c, i);
            t.clock.advance(1000);
            submit(k, {{u"Cmb"_s, c[i].text}, {u"Txt"_s, quantity}}, u"Cmd"_s);
            ids.append(GenerateEntryId(t.session.serverDateText, t.clock.secondsSinceMidnight()));
            items.append(CollapseDashes(CleanInput(c[i].text)));
            r.compare(
                u"quick-entry"_s,
                r.said() + k.text(u"Lab5"_s) + u'/' +
                    t.text(u"select ITEM,BZ from Zhang where ZBID='L1' and ID='"_s + ids.last() + u'\''),
                u"+1  已保存！/"_s + items.last() + u'|' + SplitQuantity(CleanInput(quantity)).remark,
                c[i].name + u" posted and stored"_s);
        }
        r.noBreakOut(u"quick-entry"_s);
    }

    // An item typed lists exactly the entries stored under the cleaned text; the summary finds it
    // among the listed items and sums it, the balance list asks the server for it.
    Shown<MxLst> j(t.context());
    JournalOpener opener(t.context(), nullptr);
    Shown<HzLst> h(t.context(), opener);
    Shown<KcLst> b(t.context(), opener);
    for (qsizetype i = 0; i < c.size(); ++i) {
        const QString cleaned = CleanInput(c[i].text);
        QStringList matching;
        for (qsizetype e = 0; e < items.size(); ++e)
            if (items[e].compare(cleaned, Qt::CaseInsensitive) == 0)
                matching.append(ids[e]);
        const qsizetype found = matching.size();
        submit(j, {{u"CmbItm"_s, c[i].text}});
        r.compare(u"journal"_s, r.said() + listedIds(j), found ? matching.join(u' ') : kNoDataText,
                  c[i].name + u" as the item"_s);
        submit(h, {{u"CmbItm"_s, c[i].text}});
        submit(b, {{u"Cmb"_s, c[i].text}});
        r.compare(u"reports"_s,
                  r.said() + (found ? reportFigures(h, 3) : QString()) + u'/' + reportFigures(b, 2),
                  found ? u"0|1|0|1/"_s + QStringList(found, u"1"_s).join(u';')
                        : u"账本中不存在“"_s + cleaned + u"”这个物品/"_s + kNoDataText + u'/',
                  c[i].name + u" in the summary and the balance list"_s);
    }
    // A remark typed as a filter lists the entries whose remark holds it, and only this ledger's.
    j.pickIndex(u"CmbItm"_s, 0);
    for (qsizetype i = 0; i < c.size(); ++i) {
        submit(j, {{u"TxtBZ"_s, c[i].text}});
        const QString listed = listedIds(j), own = ids[(i + c.size() - 1) % c.size()], said = r.said();
        bool ok = said.isEmpty() || (listed.isEmpty() && said == kNoDataText);
        for (const QString& id : listed.split(u' ', Qt::SkipEmptyParts))
            ok = ok && ids.contains(id);
        if (t.text(u"select BZ from Zhang where ID='"_s + own + u'\'')
                .contains(CleanInput(c[i].text), Qt::CaseInsensitive))
            ok = ok && listed.contains(own);
        r.check(u"journal"_s, ok, c[i].name + u" as the remark: "_s + listed);
    }
    r.noBreakOut(u"journal"_s);
    // In the "contains" mode a backslash is found as the character it is, on every server kind.
    b.pickIndex(u"CmbGX1"_s, 1);
    submit(b, {{u"Cmb"_s, u"a\\"_s}});
    const auto holding = std::count_if(items.cbegin(), items.cend(), [](const QString& item) {
        return item.contains(u"a\\"_s, Qt::CaseInsensitive);
    });
    r.compare(u"reports"_s, r.said() + reportFigures(b, 2), QStringList(holding, u"1"_s).join(u';'),
              u"a backslash in the balance list's contains mode"_s);
    r.finish(u"reports"_s);
}

// Ledger registration, operators, passwords (set, logged in with, asked by bulk delete) and the
// announcement.
void InjectionTest::administration()
{
    Run r;
    TestContext& t = r.t;
    const QList<Payload>& c = kCorpus;
    Session s;
    s.serverDateText = u"2026-11-15"_s;
    s.serverDateDay = 15;
    LedgerList ledgers;
    for (qsizetype i = 0; i < c.size(); ++i) {
        Shown<ZbTyp> d(AppContext{s, *t.db, t.dialogs, t.shell, t.clock, t.settings}, ledgers,
                       ZbTyp::Mode::AddLedger);
        // A prefix makes every text long enough for a QQ number.
        const QString contact = u"qq%1 "_s.arg(i) + c[i].text;
        d.pick(u"CmbLX"_s, u"QQ号"_s);
        submit(d, {{u"TxtZbID"_s, contact}}, u"Cmd_3"_s);
        submit(d, {{u"TxtZbNm"_s, next(c, i)}}, u"Cmd_5"_s);
        d.click(u"Opt_4"_s);
        submit(d, {{u"Txt_0"_s, c[i].text}, {u"Txt_1"_s, next(c, i)}});
        r.compare(u"ledger"_s,
                  r.said() +
                      t.text(u"select ZbNm,Item,SL,Usr from ZbLst join UsrLst on UsrLst.ZBID=ZbLst.ZBid "
                             "where ZbLst.ZBid='"_s +
                             SqlLiteral(CleanLedgerText(firstCharacters(contact, 50))) + u'\''),
                  CleanLedgerText(firstCharacters(next(c, i), 50)) + u'|' +
                      CleanInput(firstCharacters(c[i].text, 20)) + u'|' +
                      CleanInput(firstCharacters(next(c, i), 20)) + u"|管理员"_s,
                  c[i].name + u" registered"_s);
    }
    r.noBreakOut(u"ledger"_s);

    t.openLedger(u"L1"_s, u"家庭账"_s);
    RememberLedger(t, u"L1"_s, u"家庭账"_s);
    const auto storedOperator = [&t](const QString& name) {
        return t.text(u"select Usr,PWD,coalesce(QX,'') from UsrLst where ZBID='L1' and Usr='"_s +
                      SqlLiteral(name) + u'\'');
    };
    // Each text as an operator added in the list, (prefixed) as one added with a password, and as the
    // announcement.
    Shown<UsrGL> g(t.context());
    for (qsizetype i = 0; i < c.size(); ++i) {
        g.click(u"Cmd_3"_s);
        submit(g, {{u"Txt"_s, c[i].text}});
        const QString name = CleanInput(c[i].text);
        r.compare(u"operators"_s, r.said() + u'/' + storedOperator(name),
                  u"保存成功！/"_s + name + u"||0000000000000000"_s, c[i].name + u" added"_s);
        Shown<UsrPwd> d(t.context(), UsrPwd::Mode::NewOperator);
        submit(d, {{u"Txt_0"_s, u"新"_s + c[i].text}, {u"Txt_1"_s, next(c, i)}, {u"Txt_2"_s, next(c, i)}});
        const QString prefixed = CleanInput(u"新"_s + c[i].text).remove(u'|').remove(u'-');
        const QString row = r.said() + storedOperator(prefixed);
        r.compare(u"operators"_s, row.section(u'|', 0, 0), prefixed, c[i].name + u" added with a password"_s);
        r.compare(u"passwords"_s, row.section(u'|', 1, 1), next(c, i).remove(QChar(0)),
                  c[i].name + u" as a new operator's"_s);
        submit(Shown<GongGao>(t.context(), Qt::white), {{u"Txt"_s, c[i].text}});
        r.compare(u"announcement"_s,
                  r.said() + Announcement::Parse(t.text(u"select GongGao from ZbLst where ZBid='L1'"_s)).text,
                  CleanInput(c[i].text), c[i].name);
    }
    r.noBreakOut(u"operators"_s);

    // Each text as the administrator's password: set, logged in with, typed for a bulk delete.
    KuangDriver k(t.context());
    k.logIn(u"管理员"_s);
    for (qsizetype i = 0; i < c.size(); ++i) {
        submit(Shown<UsrPwd>(t.context(), UsrPwd::Mode::ChangePassword),
               {{u"Txt_1"_s, c[i].text}, {u"Txt_2"_s, c[i].text}});
        r.compare(u"passwords"_s, r.said() + storedOperator(u"管理员"_s),
                  u"管理员|"_s + QString(c[i].text).remove(QChar(0)) + u'|', c[i].name + u" set"_s);
        k.chooseMenu(u"CmdMenu"_s, u"Menu_Login"_s);
        k.pick(u"CmbUser"_s, u"管理员"_s);
        enter(k, u"TxtPwd"_s, c[i].text, true);
        k.click(u"Cmd"_s);
        r.compare(u"passwords"_s, r.said() + QString::number(k.panel()), u"2"_s, c[i].name + u" logs in"_s);
        t.clock.advance(1000);
        submit(k, {{u"Cmb"_s, u"螺丝"_s}, {u"Txt"_s, u"+1"_s}}, u"Cmd"_s);
        Shown<MxLst> j(t.context());
        j.click(u"Cmd_0"_s);
        r.said();
        t.dialogs.queueText(QString(c[i].text).remove(QChar(0)));
        j.click(u"Cmd_6"_s);
        r.compare(u"passwords"_s,
                  t.dialogs.texts().value(1) + t.text(u"select count(*) from Zhang where ZBID='L1'"_s),
                  u"批量删除完成！0"_s, c[i].name + u" confirms a bulk delete"_s);
        r.said();
    }
    r.finish(u"passwords"_s);
}

// The texts as another client stored them, one ledger each: its name, labels and announcement, its
// operator and his password, an item with its remark; then used by the program.
void InjectionTest::storedTexts()
{
    Run r;
    TestContext& t = r.t;
    QList<Payload> c = kCorpus;
    c.removeIf([](const Payload& p) { return p.text.contains(QChar(0)); });
    for (qsizetype i = 0; i < c.size(); ++i) {
        const QString id = u"S%1"_s.arg(i), text = c[i].text, other = next(c, i), name = c[i].name;
        const QString ledger = u" where ZBID='"_s + id + u'\'', q = SqlLiteral(text),
                      qOther = SqlLiteral(other);
        const QString qSecond = SqlLiteral(u"乙"_s + other), cleaned = CollapseDashes(CleanInput(text));
        t.exec(u"insert into Zblst (ZBid,ZbNm,Item,SL,Bz,Msg,GongGao) values "
               "('%1','%2','%2','%3','','','255│%2')"_s.arg(id, q, qOther));
        t.exec(u"insert into UsrLst (ZBID,Usr,PWD,QX) values ('%1','%2','%3',NULL),"
               "('%1','%4','','1111')"_s.arg(id, q, qOther, qSecond));
        t.exec(
            u"insert into Zhang (ZBID,USR,TM,ID,ITEM,SL,BZ) values ('%1','%2','2026-10-20 "
            u"08:00','%1A','%2',7,'%3'),"
            "('%1','%2','2026-11-15 08:00','%1B','%2',-2,'%3'),('%1','%4','2026-11-15 10:00','%1C','%2',3,'')"_s
                .arg(id, q, qOther, qSecond));

        // The ledger opens; its operator logs in with his password and sees the announcement.
        RememberLedger(t, id, text);
        KuangDriver k(t.context());
        k.post();
        k.pick(u"CmbUser"_s, text);
        submit(k, {{u"TxtPwd"_s, other}}, u"Cmd"_s);
        r.compare(u"passwords"_s, r.said() + QString::number(k.panel()), u"2"_s, name + u" logs in"_s);
        r.compare(u"announcement"_s, k.text(u"Lab3"_s), text, name + u" shown"_s);

        // The reports sum the item, read back from the server.
        {
            JournalOpener opener(t.context(), nullptr);
            Shown<HzLst> h(t.context(), opener);
            h.click(u"Cmd_0"_s);
            Shown<KcLst> b(t.context(), opener);
            b.click(u"Cmd_0"_s);
            r.compare(u"reports"_s, r.said() + reportFigures(h, 3) + u'/' + reportFigures(b, 2),
                      u"7|3|2|8/8"_s, name + u" summed"_s);
        }

        // Picked, the item shows its total; posted, it is stored cleaned, under the operator's name.
        k.pick(u"Cmb"_s, text);
        const QString total = k.text(u"Lab4"_s);
        t.clock.advance(1000);
        submit(k, {{u"Txt"_s, u"+1"_s}}, u"Cmd"_s);
        const QString posted = GenerateEntryId(t.session.serverDateText, t.clock.secondsSinceMidnight());
        r.compare(u"quick-entry"_s,
                  total + u'/' + r.said() +
                      t.text(u"select USR,ITEM from Zhang"_s + ledger + u" and ID='"_s + posted + u'\''),
                  u"当前"_s + CleanInput(other) + u"：8/"_s + text + u'|' + cleaned,
                  name + u" total and posted"_s);

        // The entry editor corrects the entry of 2026-11-15 08:00: tombstoned under the operator's name,
        // written again cleaned as typed text is.
        Shown<MxLst> j(t.context());
        j.click(u"Cmd_0"_s);
        const int row = int(j.lines(u"Lst2"_s).indexOf(id + u'B'));
        if (row >= 0) {
            j.clickLine(u"Lst"_s, row);
            j.click(u"Cmd_4"_s);
        }
        MxEd* editor = j->findChild<MxEd*>();
        if (r.check(u"journal"_s, editor && editor->isVisible(), name + u" entry opens in the editor"_s)) {
            WindowDriver(editor).click(u"Cmd_0"_s);
            r.compare(
                u"journal"_s,
                r.said() + t.text(u"select ZBID from Zhang where ID='"_s + id + u"B'"_s) + u'/' +
                    t.text(u"select USR,ITEM,SL,BZ from Zhang"_s + ledger + u" and TM='2026-11-15 08:00'"_s),
                text + u'#' + id + u"#2026-11-15 09:05/"_s + text + u'|' + cleaned + u"|-2|"_s +
                    CollapseDashes(CleanInput(other)),
                name + u" corrected"_s);
        }
        // The operator filter lists his own entries of the day, not the second operator's.
        j.pick(u"CmbUsr"_s, text);
        j.click(u"Cmd_0"_s);
        QStringList own = t.text(u"select ID from Zhang"_s + ledger + u" and TM>='2026-11-15' and USR<>'"_s +
                                 qSecond + u'\'')
                              .split(u';');
        own.sort();
        r.compare(u"journal"_s, r.said() + listedIds(j), own.join(u' '), name + u" as the operator filter"_s);

        // The second operator's rights are read, saved and he is removed, by his stored name.
        {
            Shown<UsrGL> g(t.context());
            g.act(u"Lst@2;Cmd_2;Chk_1;Cmd_0"_s);
            const QString saved =
                t.text(u"select QX from UsrLst"_s + ledger + u" and Usr='"_s + qSecond + u'\'');
            g.click(u"Cmd_0"_s);
            r.compare(u"operators"_s,
                      r.said() + u'/' + saved + u'/' + t.text(u"select count(*) from UsrLst"_s + ledger),
                      u"保存成功！/删除成功！/1011111111111111/1"_s, name + u" second operator"_s);
        }

        // Bulk delete asks for the stored password.
        j.pickIndex(u"CmbUsr"_s, 0);
        j.click(u"Cmd_0"_s);
        t.dialogs.queueText(other);
        j.click(u"Cmd_6"_s);
        r.compare(u"passwords"_s,
                  t.dialogs.texts().value(1) +
                      t.text(u"select count(*) from Zhang"_s + ledger + u" and TM>='2026-11-15'"_s),
                  u"批量删除完成！0"_s, name + u" confirms a bulk delete"_s);
        r.said();
    }
    r.finish(u"stored"_s);
}

// The ledger window's boxes count characters, not UTF-16 units: a character outside the basic plane
// at the limit is kept whole or left out whole, typed or pasted.
void InjectionTest::characterLimits()
{
    TestContext t;
    LedgerList ledgers;
    Shown<ZbTyp> d(t.context(), ledgers, ZbTyp::Mode::AddLedger);
    const QString astral = u"😀"_s, full = QString(19, u'x') + astral;
    const QList<std::array<QString, 3>> cases{
        {u"Txt_0"_s, full + u'y', full},
        {u"Txt_1"_s, longText(), firstCharacters(longText(), 20)},
        {u"TxtZbID"_s, u"1"_s + longText(), u"1"_s + firstCharacters(longText(), 49)},
        {u"TxtZbNm"_s, QString(60, QChar(0x957F)), QString(50, QChar(0x957F))},
    };
    for (const auto& [box, typed, kept] : cases) {
        enter(d, box, typed);
        QCOMPARE(d.text(box), kept);
    }
    // A character typed into a full box in the middle is refused; the text stays as it was.
    auto* box = d.w<QLineEdit>(u"Txt_0"_s);
    box->setCursorPosition(3);
    typeText(box, astral);
    QCOMPARE(d.text(u"Txt_0"_s), full);
}

} // namespace lanzhou::test
