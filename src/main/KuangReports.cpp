// The report menu and the windows it opens: the journal, the summary and the balance list.
#include "Kuang.h"

#include "ui_Kuang.h"

#include "JournalOpener.h"
#include "Rights.h"
#include "Session.h"

#include <QMenu>

namespace lanzhou {

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
    // The captions follow the ledger's labels, which change with the open ledger.
    connect(m_reportMenu, &QMenu::aboutToShow, this,
            [this, journal] { journal->setText(m_ctx.session.itemLabel + QStringLiteral("流水账")); });
    connect(ui->CmdRpt, &QPushButton::clicked, this, [this] { popUnder(m_reportMenu, ui->CmdRpt); });
}

} // namespace lanzhou
