#pragma once

#include "AppContext.h"

#include <QObject>
#include <QPointer>

class QWidget;

namespace lanzhou {

class HzLst;
class JournalOpener;
class KcLst;

// The windows of the report menu: the journal, the summary and the balance list, each made on
// first use and brought forward after that, each behind its right.
class ReportWindows : public QObject
{
    Q_OBJECT
public:
    ReportWindows(const AppContext& context, QWidget* owner);

    void openJournal();
    void openSummary();
    void openBalanceList();

private:
    AppContext m_ctx;
    QWidget* m_owner;
    JournalOpener* m_journal;
    QPointer<HzLst> m_summary;
    QPointer<KcLst> m_balanceList;
};

} // namespace lanzhou
