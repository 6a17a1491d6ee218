#include "ReportWindows.h"

#include "HzLst.h"
#include "JournalOpener.h"
#include "KcLst.h"
#include "Rights.h"
#include "WindowRules.h"

namespace lanzhou {

namespace {

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

ReportWindows::ReportWindows(const AppContext& context, QWidget* owner)
    : QObject(owner), m_ctx(context), m_owner(owner), m_journal(new JournalOpener(context, owner))
{}

void ReportWindows::openJournal()
{
    if (RequireRight(m_ctx, Right::Journal))
        m_journal->open();
}

void ReportWindows::openSummary()
{
    if (RequireRight(m_ctx, Right::Summary))
        showReport(m_summary, m_ctx, *m_journal, m_owner);
}

void ReportWindows::openBalanceList()
{
    if (RequireRight(m_ctx, Right::BalanceList))
        showReport(m_balanceList, m_ctx, *m_journal, m_owner);
}

} // namespace lanzhou
