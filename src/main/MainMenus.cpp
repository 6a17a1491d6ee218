#include "MainMenus.h"

#include "AppConstants.h"
#include "Dialogs.h"
#include "LedgerAdministration.h"
#include "QuickEntry.h"
#include "ReportWindows.h"
#include "Rights.h"
#include "Session.h"
#include "Shell.h"

#include <QEvent>
#include <QLabel>
#include <QMenu>
#include <QPushButton>

namespace lanzhou {

namespace {

QAction* addEntry(QMenu* menu, const QString& name, const QString& caption = QString())
{
    QAction* action = menu->addAction(caption);
    action->setObjectName(name);
    return action;
}

QMenu* makeMenu(QWidget* window, const QString& name)
{
    auto* menu = new QMenu(window);
    menu->setObjectName(name);
    return menu;
}

void popUnder(QMenu* menu, QWidget* anchor)
{
    menu->popup(anchor->mapToGlobal(QPoint(0, anchor->height())));
}

} // namespace

MainMenus::MainMenus(const AppContext& context, const Buttons& buttons, const Actions& actions,
                     QWidget* window)
    : QObject(window), m_ctx(context), m_buttons(buttons), m_window(window)
{
    buildLedgerMenu(actions);
    buildReportMenu(actions.reports);
    buildQuantityMenu(actions.quickEntry);
    buildHelpMenu(actions.administration);
    m_buttons.quantityLine->installEventFilter(this);
}

void MainMenus::buildLedgerMenu(const Actions& actions)
{
    m_ledger = makeMenu(m_window, QStringLiteral("Menu_Cmd"));
    LedgerAdministration& admin = actions.administration;
    QList<QAction*> operatorEntries;
    operatorEntries << addEntry(m_ledger, QStringLiteral("Menu_ReName"), QStringLiteral("账本改名"));
    connect(operatorEntries.constLast(), &QAction::triggered, &admin, &LedgerAdministration::rename);
    operatorEntries << addEntry(m_ledger, QStringLiteral("Menu_ZbTyp"), QStringLiteral("账本类型设置"));
    connect(operatorEntries.constLast(), &QAction::triggered, &admin, &LedgerAdministration::changeType);
    operatorEntries << m_ledger->addSeparator();
    operatorEntries.constLast()->setObjectName(QStringLiteral("Menu_Line1"));
    operatorEntries << addEntry(m_ledger, QStringLiteral("Menu_Login"), QStringLiteral("重新登入"));
    connect(operatorEntries.constLast(), &QAction::triggered, this, &MainMenus::loginRequested);
    operatorEntries << addEntry(m_ledger, QStringLiteral("Menu_ReSetPwd"), QStringLiteral("修改密码"));
    connect(operatorEntries.constLast(), &QAction::triggered, &admin, &LedgerAdministration::changePassword);
    operatorEntries << m_ledger->addSeparator();
    operatorEntries.constLast()->setObjectName(QStringLiteral("Menu_Line2"));
    operatorEntries << addEntry(m_ledger, QStringLiteral("Menu_Guanli"), QStringLiteral("操作员管理"));
    connect(operatorEntries.constLast(), &QAction::triggered, &admin, &LedgerAdministration::manageOperators);
    operatorEntries << addEntry(m_ledger, QStringLiteral("Menu_GongGao"), QStringLiteral("发布公告"));
    connect(operatorEntries.constLast(), &QAction::triggered, &admin,
            &LedgerAdministration::editAnnouncement);
    operatorEntries << m_ledger->addSeparator();
    connect(addEntry(m_ledger, QStringLiteral("Menu_SeeZbID"), QStringLiteral("查看账本ID")),
            &QAction::triggered, &admin, &LedgerAdministration::showLedgerId);
    connect(addEntry(m_ledger, QStringLiteral("Menu_BackZB"), QStringLiteral("返回账本列表")),
            &QAction::triggered, this, &MainMenus::ledgerSelectionRequested);
    // Before login there is no operator whose rights could be tested.
    connect(m_ledger, &QMenu::aboutToShow, this, [this, operatorEntries] {
        for (QAction* entry : operatorEntries)
            entry->setVisible(m_loggedIn);
    });
    connect(m_buttons.ledgerMenu, &QPushButton::clicked, this,
            [this] { popUnder(m_ledger, m_buttons.ledgerMenu); });
}

void MainMenus::buildReportMenu(ReportWindows& reports)
{
    m_report = makeMenu(m_window, QStringLiteral("Menu_Rpt"));
    QAction* journal = addEntry(m_report, QStringLiteral("Menu_JxcMx"));
    connect(journal, &QAction::triggered, &reports, &ReportWindows::openJournal);
    QAction* summary = addEntry(m_report, QStringLiteral("Menu_JxcHZ"));
    connect(summary, &QAction::triggered, &reports, &ReportWindows::openSummary);
    QAction* balances = addEntry(m_report, QStringLiteral("Menu_SumSL"));
    connect(balances, &QAction::triggered, &reports, &ReportWindows::openBalanceList);
    connect(m_report, &QMenu::aboutToShow, this, [this, journal, summary, balances] {
        const Session& s = m_ctx.session;
        journal->setText(s.itemLabel() + QStringLiteral("流水账"));
        summary->setText(s.itemLabel() + QStringLiteral("汇总表"));
        balances->setText(s.itemLabel() + s.quantityLabel() + QStringLiteral("表"));
    });
    connect(m_buttons.reportMenu, &QPushButton::clicked, this,
            [this] { popUnder(m_report, m_buttons.reportMenu); });
}

void MainMenus::buildQuantityMenu(QuickEntry& quickEntry)
{
    m_quantity = makeMenu(m_window, QStringLiteral("Menu_ShowSL"));
    QAction* seeOnce = addEntry(m_quantity, QStringLiteral("Menu_SeeSL"));
    connect(seeOnce, &QAction::triggered, &quickEntry, &QuickEntry::showQuantityOnce);
    QAction* autoShow = addEntry(m_quantity, QStringLiteral("Menu_AutoShowSet"));
    connect(autoShow, &QAction::triggered, &quickEntry,
            [&quickEntry] { quickEntry.setAutoShow(!quickEntry.autoShowSetting()); });
    connect(m_quantity, &QMenu::aboutToShow, this, [this, seeOnce, autoShow, &quickEntry] {
        const QString label = m_ctx.session.quantityLabel();
        seeOnce->setText(QStringLiteral("查看【") + label + QStringLiteral("】"));
        autoShow->setText(quickEntry.autoShowSetting()
                              ? QStringLiteral("取消") + label + QStringLiteral("显示（记账加速）")
                              : QStringLiteral("自动显示") + label);
    });
}

void MainMenus::buildHelpMenu(LedgerAdministration& administration)
{
    m_help = makeMenu(m_window, QStringLiteral("traymenu"));
    connect(addEntry(m_help, QStringLiteral("Menu_Form"), QStringLiteral("显示主窗口")), &QAction::triggered,
            this, &MainMenus::showWindowRequested);
    connect(addEntry(m_help, QStringLiteral("Menu_About"), QStringLiteral("关于本软件")), &QAction::triggered,
            this, &MainMenus::showAbout);
    connect(addEntry(m_help, QStringLiteral("Menu_TJ"), QStringLiteral("推荐给朋友")), &QAction::triggered,
            this, &MainMenus::openWebSite);
    connect(addEntry(m_help, QStringLiteral("Menu_ToWeb"), QStringLiteral("访问软件网站")),
            &QAction::triggered, this, &MainMenus::openWebSite);
    // Copying acts on the open ledger, offered once its operator has logged in.
    QAction* copyLine = m_help->addSeparator();
    QAction* copy = addEntry(m_help, QStringLiteral("Menu_CopyZb"), QStringLiteral("复制账本到其他数据库…"));
    connect(copy, &QAction::triggered, &administration, &LedgerAdministration::copyLedger);
    connect(m_help, &QMenu::aboutToShow, this, [this, copyLine, copy] {
        copyLine->setVisible(m_loggedIn);
        copy->setVisible(m_loggedIn);
    });
    m_help->addSeparator();
    connect(addEntry(m_help, QStringLiteral("MenuExit"), QStringLiteral("退出本软件")), &QAction::triggered,
            this, &MainMenus::exitRequested);
    connect(m_buttons.helpMenu, &QPushButton::clicked, this,
            [this] { popUnder(m_help, m_buttons.helpMenu); });
}

void MainMenus::showAbout()
{
    m_ctx.dialogs.show(AppConstants::title() + u' ' + AppConstants::versionText() + QStringLiteral("\n\n") +
                           AppConstants::makerLines(),
                       QStringLiteral("关于本软件"), DialogIcon::Application, DialogButtons::Ok,
                       DialogAnswer::Ok);
}

void MainMenus::openWebSite()
{
    if (!m_ctx.shell.openUrl(AppConstants::webSite()))
        m_ctx.dialogs.inform(QStringLiteral("无法打开网址：") + AppConstants::webSite());
}

// A click on the quantity line opens its menu, offered only to an operator who may see quantities.
bool MainMenus::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_buttons.quantityLine && event->type() == QEvent::MouseButtonRelease &&
        m_ctx.session.hasRight(Right::SeeQuantity))
        popUnder(m_quantity, m_buttons.quantityLine);
    return QObject::eventFilter(watched, event);
}

} // namespace lanzhou
