#include "JournalOpener.h"

#include "EventLoop.h"
#include "JournalRights.h"
#include "MxLst.h"
#include "WindowRules.h"

namespace lanzhou {

JournalOpener::JournalOpener(const AppContext& context, QWidget* owner)
    : QObject(owner), m_context(context), m_owner(owner)
{}

JournalOpener::~JournalOpener()
{
    if (m_window && !m_window->parent())
        delete m_window;
}

MxLst* JournalOpener::open()
{
    if (!m_window) {
        m_window = new MxLst(m_context, m_owner);
        m_window->setWindowFlag(Qt::Window);
        m_window->setAttribute(Qt::WA_DeleteOnClose);
    }
    BringForward(m_window);
    return m_window;
}

void JournalOpener::drillDown(const QString& item, const PeriodChoice& start, const PeriodChoice& end)
{
    MxLst* journal = open();
    journal->setItemCondition(item);
    journal->choosePeriod(start, end);
    YieldEvents();
    // The window may have been closed while the events ran.
    if (m_window)
        m_window->runCommand(JournalCmd::Query);
}

} // namespace lanzhou
