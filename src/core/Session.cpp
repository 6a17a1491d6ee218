#include "Session.h"

namespace lanzhou {

void Session::openLedger(const QString& id, const QString& name, const QString& itemLabel,
                         const QString& quantityLabel, const QString& greeting, const QString& announcement)
{
    m_ledgerId = id;
    m_ledgerName = name;
    m_itemLabel = itemLabel;
    m_quantityLabel = quantityLabel;
    m_greeting = greeting;
    m_announcement = announcement;
    emit changed();
}

void Session::setLedgerId(const QString& id)
{
    m_ledgerId = id;
    emit changed();
}

void Session::setLedgerName(const QString& name)
{
    m_ledgerName = name;
    emit changed();
}

void Session::setLabels(const QString& itemLabel, const QString& quantityLabel)
{
    m_itemLabel = itemLabel;
    m_quantityLabel = quantityLabel;
    emit changed();
}

void Session::setGreeting(const QString& greeting)
{
    m_greeting = greeting;
    emit changed();
}

void Session::setAnnouncement(const QString& announcement)
{
    m_announcement = announcement;
    emit changed();
}

void Session::logIn(const QString& operatorName, const QString& rights)
{
    m_operatorName = operatorName;
    m_rights = Rights::Extend(rights);
    emit changed();
}

void Session::setOperatorName(const QString& operatorName)
{
    m_operatorName = operatorName;
    emit changed();
}

void Session::setRights(const QString& rights)
{
    m_rights = Rights::Extend(rights);
    emit changed();
}

void Session::setOperators(const QStringList& operators)
{
    m_operators = operators;
    emit changed();
}

void Session::addOperator(const QString& name)
{
    m_operators.append(name);
    emit changed();
}

void Session::removeOperator(const QString& name)
{
    m_operators.removeAll(name);
    emit changed();
}

void Session::setItems(const QStringList& items)
{
    m_items = items;
    emit changed();
}

void Session::addItem(const QString& item)
{
    m_items.append(item);
    emit changed();
}

} // namespace lanzhou
