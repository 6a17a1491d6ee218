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

void Session::setLabels(const QString& itemLabel, const QString& quantityLabel)
{
    m_itemLabel = itemLabel;
    m_quantityLabel = quantityLabel;
    emit changed();
}

void Session::logIn(const QString& operatorName, const QString& rights)
{
    m_operatorName = operatorName;
    m_rights = Rights::Extend(rights);
    emit changed();
}

void Session::removeOperator(const QString& name)
{
    QStringList operators = m_operators;
    operators.removeAll(name);
    update(m_operators, operators);
}

} // namespace lanzhou
