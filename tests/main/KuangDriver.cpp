#include "KuangDriver.h"

#include "AppConstants.h"
#include "LedgerList.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QMenu>
#include <QTest>

namespace lanzhou::test {

KuangDriver::KuangDriver(AppContext context) : window(std::make_unique<Kuang>(context))
{
    window->show();
    activate();
}

void KuangDriver::activate()
{
    if (QApplication::activeWindow() == window.get())
        return;
    QApplication::setActiveWindow(window.get());
    if (!QTest::qWaitForWindowActive(window.get()))
        qFatal("main window not active");
}

void KuangDriver::click(const char* buttonName)
{
    QTest::mouseClick(w<QPushButton>(buttonName), Qt::LeftButton);
}

void KuangDriver::pick(const char* comboName, const QString& entry)
{
    activate();
    auto* combo = w<QComboBox>(comboName);
    const int index = combo->findText(entry, Qt::MatchExactly);
    if (index < 0)
        qFatal("no entry %s", qPrintable(entry));
    combo->setFocus();
    combo->showPopup();
    QAbstractItemView* list = combo->view();
    list->setCurrentIndex(combo->model()->index(index, 0));
    QTest::keyClick(list, Qt::Key_Return);
}

void KuangDriver::type(const char* boxName, const QString& text)
{
    activate();
    auto* box = w<QLineEdit>(boxName);
    box->setFocus();
    box->selectAll();
    QTest::keyClick(box, Qt::Key_Delete);
    typeText(box, text);
}

void KuangDriver::typeItem(const QString& item)
{
    activate();
    auto* combo = w<QComboBox>("Cmb");
    combo->setFocus();
    combo->lineEdit()->selectAll();
    QTest::keyClick(combo, Qt::Key_Delete);
    typeText(combo, item);
}

void KuangDriver::leaveItemBox()
{
    QTest::keyClick(w<QComboBox>("Cmb"), Qt::Key_Tab);
}

void KuangDriver::chooseMenu(const char* buttonName, const char* actionName)
{
    click(buttonName);
    QMenu* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu)
        qFatal("no menu opened by %s", buttonName);
    auto* action = menu->findChild<QAction*>(QString::fromLatin1(actionName));
    if (!action)
        qFatal("no menu entry %s", actionName);
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
}

void prepareLedger(TestContext& t, const QString& id, const QString& name, const QString& op,
                   const QString& password, const QString& rights)
{
    t.exec(QStringLiteral("insert into Zblst (ZBid,ZbNm,Item,SL,Bz,BgDate,NdDate,MB,SalesMan,Msg) values "
                          "('%1','%2','物品','存量','自已注册','2026-11-15','','','','您好！')")
               .arg(id, name));
    t.exec(QStringLiteral("insert into UsrLst (ZBID,Usr,PWD,QX) values ('%1','%2','%3',%4)")
               .arg(id, op, password, rights.isNull() ? QStringLiteral("NULL") : u'\'' + rights + u'\''));
    LedgerList list;
    list.load(t.settings);
    list.append({id, name});
    list.save(t.settings);
    t.settings.write(AppConstants::settingsApp(), QStringLiteral("ZBID"), AppConstants::settingsTag(), id);
    // Entry IDs and times are read against a known server date.
    t.session.serverDateText = QStringLiteral("2026-11-15");
    t.session.serverDateDay = 15;
}

void openAndLogin(KuangDriver& d, const QString& password)
{
    d.post();
    d.type("TxtPwd", password);
    d.post();
}

SecondClient::SecondClient(const DbConfig& config)
    : db(config), dialogs([](const QString& what) { QTest::qFail(qPrintable(what), __FILE__, __LINE__); }),
      clock(QDate(2026, 11, 15), QTime(10, 0)), settings(dir.path())
{
    session.serverDateText = QStringLiteral("2026-11-15");
    session.serverDateDay = 15;
}

} // namespace lanzhou::test
