// The report menu and the journal window it opens.
#include "Kuang.h"

#include "ui_Kuang.h"

#include "Dialogs.h"
#include "MxLst.h"
#include "Rights.h"
#include "Session.h"

#include <QMenu>

namespace lanzhou {

void Kuang::buildReportMenu()
{
    m_reportMenu = new QMenu(this);
    m_reportMenu->setObjectName(QStringLiteral("Menu_Rpt"));
    QAction* journal = m_reportMenu->addAction(QString());
    journal->setObjectName(QStringLiteral("Menu_JxcMx"));
    connect(journal, &QAction::triggered, this, &Kuang::openJournal);
    connect(m_reportMenu, &QMenu::aboutToShow, this,
            [this, journal] { journal->setText(m_ctx.session.itemLabel + QStringLiteral("流水账")); });
    connect(ui->CmdRpt, &QPushButton::clicked, this, [this] { popUnder(m_reportMenu, ui->CmdRpt); });
}

void Kuang::openJournal()
{
    if (!RequireRight(m_ctx, Right::Journal))
        return;
    if (!m_journal) {
        auto* journal = new MxLst(m_ctx, this);
        journal->setWindowFlag(Qt::Window);
        journal->setAttribute(Qt::WA_DeleteOnClose);
        m_journal = journal;
    }
    m_journal->show();
    m_journal->raise();
    m_journal->activateWindow();
}

} // namespace lanzhou
