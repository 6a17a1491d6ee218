// The report menu and the windows it opens: the journal, the summary and the balance list.
#include "Kuang.h"

#include "ui_Kuang.h"

#include "HzLst.h"
#include "JournalOpener.h"
#include "KcLst.h"
#include "Rights.h"
#include "Session.h"
#include "WindowRules.h"

#include <QMenu>

namespace lanzhou {

namespace {

// Each report is one window of its own: made on first use, brought forward after that.
template <class Report>
void showReport(QPointer<Report>& report, const AppContext& context, JournalOpener& journal, QWidget* owner)
{
    if (!report) {
        report = new Report(context, journal, owner);
        report->setWindowFlag(Qt::Window);
        report->setAttribute(Qt::WA_DeleteOnClose);
    }
    BringForward(report);
}

} // namespace

void Kuang::buildReportMenu()
{
    m_journalOpener = new JournalOpener(m_ctx, this);
    m_reportMenu = new QMenu(this);
    m_reportMenu->setObjectName(QStringLiteral("Menu_Rpt"));
    QAction* journal = m_reportMenu->addAction(QString());
    journal->setObjectName(QStringLiteral("Menu_JxcMx"));
    connect(journal, &QAction::triggered, this, [this] {
        if (RequireRight(m_ctx, Right::Journal))
            m_journalOpener->open();
    });
    QAction* summary = m_reportMenu->addAction(QString());
    summary->setObjectName(QStringLiteral("Menu_JxcHZ"));
    connect(summary, &QAction::triggered, this, [this] {
        if (RequireRight(m_ctx, Right::Summary))
            showReport(m_summary, m_ctx, *m_journalOpener, this);
    });
    QAction* balances = m_reportMenu->addAction(QString());
    balances->setObjectName(QStringLiteral("Menu_SumSL"));
    connect(balances, &QAction::triggered, this, [this] {
        if (RequireRight(m_ctx, Right::BalanceList))
            showReport(m_balanceList, m_ctx, *m_journalOpener, this);
    });
    // The captions follow the ledger's labels, which change with the open ledger.
    connect(m_reportMenu, &QMenu::aboutToShow, this, [this, journal, summary, balances] {
        const Session& session = m_ctx.session;
        journal->setText(session.itemLabel() + QStringLiteral("流水账"));
        summary->setText(session.itemLabel() + QStringLiteral("汇总表"));
        balances->setText(session.itemLabel() + session.quantityLabel() + QStringLiteral("表"));
    });
    connect(ui->CmdRpt, &QPushButton::clicked, this, [this] { popUnder(m_reportMenu, ui->CmdRpt); });
}

} // namespace lanzhou
