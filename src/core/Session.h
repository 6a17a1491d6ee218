#pragma once

#include "Rights.h"

#include <QObject>
#include <QStringList>

namespace lanzhou {

// The state every window shares while a ledger is open: ledger, labels, operator and rights,
// the ledger's items and operators, the cached server date and the journal's refresh marker.
// The owner of a view that shows session facts listens to changed().
class Session : public QObject
{
    Q_OBJECT
public:
    explicit Session(QObject* parent = nullptr) : QObject(parent) {}

    QString ledgerId;
    QString ledgerName;
    QString itemLabel;
    QString quantityLabel;
    QString greeting;
    QString announcement;
    QString operatorName;
    QStringList items;
    QStringList operators;

    QString serverDateText;
    qint16 serverDateDay = 0;
    // Not empty when the journal must run its query again after an edit.
    QString journalRefreshMarker;
    // "OK" when a modal window reports success to its caller.
    QString modalResult;
    // Where the save dialog of the next export opens: the folder of the last export.
    QString exportFolder;

    // Stores the rights read at login, extended to all positions.
    void setRights(const QString& rights) { m_rights = Rights::Extend(rights); }
    const QString& rights() const { return m_rights; }
    bool hasRight(Right right) const { return Rights::Granted(m_rights, right); }

    void notifyChanged() { emit changed(); }

signals:
    void changed();

private:
    QString m_rights = Rights::Extend(QString());
};

} // namespace lanzhou
