#pragma once

#include "Rights.h"

#include <QObject>
#include <QStringList>

namespace lanzhou {

// The state every window shares while a ledger is open: ledger, labels, operator and rights,
// the ledger's items and operators, the cached server date and the journal's refresh marker.
// The facts a window shows change only through the setters, which emit changed(); the owner of a
// view that shows them (the main window's title, labels, operator list, announcement) listens.
class Session : public QObject
{
    Q_OBJECT
public:
    explicit Session(QObject* parent = nullptr) : QObject(parent) {}

    const QString& ledgerId() const { return m_ledgerId; }
    const QString& ledgerName() const { return m_ledgerName; }
    const QString& itemLabel() const { return m_itemLabel; }
    const QString& quantityLabel() const { return m_quantityLabel; }
    const QString& greeting() const { return m_greeting; }
    // As stored: colour number, "│", text; empty when the ledger has none.
    const QString& announcement() const { return m_announcement; }
    const QString& operatorName() const { return m_operatorName; }
    const QStringList& items() const { return m_items; }
    const QStringList& operators() const { return m_operators; }
    const QString& rights() const { return m_rights; }
    bool hasRight(Right right) const { return Rights::Granted(m_rights, right); }

    // The ledger's row as opened: every fact of the ledger at once.
    void openLedger(const QString& id, const QString& name, const QString& itemLabel,
                    const QString& quantityLabel, const QString& greeting, const QString& announcement);
    void setLedgerId(const QString& id) { update(m_ledgerId, id); }
    void setLedgerName(const QString& name) { update(m_ledgerName, name); }
    void setLabels(const QString& itemLabel, const QString& quantityLabel);
    void setGreeting(const QString& greeting) { update(m_greeting, greeting); }
    void setAnnouncement(const QString& announcement) { update(m_announcement, announcement); }
    // The operator who logged in, with the rights read at login (extended to all positions).
    void logIn(const QString& operatorName, const QString& rights);
    // Empty: nobody is logged in to the open ledger.
    void setOperatorName(const QString& operatorName) { update(m_operatorName, operatorName); }
    void setRights(const QString& rights) { update(m_rights, Rights::Extend(rights)); }
    void setOperators(const QStringList& operators) { update(m_operators, operators); }
    void addOperator(const QString& name) { update(m_operators, m_operators + QStringList{name}); }
    void removeOperator(const QString& name);
    void setItems(const QStringList& items) { update(m_items, items); }
    void addItem(const QString& item) { update(m_items, m_items + QStringList{item}); }

    // Plain working values that no view shows.
    QString serverDateText;
    qint16 serverDateDay = 0;
    // Not empty when the journal must run its query again after an edit.
    QString journalRefreshMarker;
    // "OK" when a modal window reports success to its caller.
    QString modalResult;
    // Where the save dialog of the next export opens: the folder of the last export.
    QString exportFolder;

signals:
    void changed();

private:
    // Views redraw only when a fact really changed.
    template <class T> void update(T& fact, const T& value)
    {
        if (fact == value)
            return;
        fact = value;
        emit changed();
    }

    QString m_ledgerId;
    QString m_ledgerName;
    QString m_itemLabel;
    QString m_quantityLabel;
    QString m_greeting;
    QString m_announcement;
    QString m_operatorName;
    QStringList m_items;
    QStringList m_operators;
    QString m_rights = Rights::Extend(QString());
};

} // namespace lanzhou
