#pragma once

#include "AppContext.h"
#include "PeriodLists.h"

#include <QObject>
#include <QPointer>

class QWidget;

namespace lanzhou {

class MxLst;

// The session's one journal window: made when it is first asked for and brought forward after that.
// The main window's menu and the reports' drill-downs all open it here.
class JournalOpener : public QObject
{
    Q_OBJECT
public:
    // The journal window becomes a window of its own owned by `owner`; without an owner the opener
    // keeps it and deletes it with itself.
    JournalOpener(const AppContext& context, QWidget* owner);
    ~JournalOpener() override;

    // Shows the journal window, made first when there is none, and brings it forward.
    MxLst* open();
    // Opens the journal on one item and a period, then runs its query.
    void drillDown(const QString& item, const PeriodChoice& start, const PeriodChoice& end);

private:
    AppContext m_context;
    QWidget* m_owner;
    QPointer<MxLst> m_window;
};

} // namespace lanzhou
