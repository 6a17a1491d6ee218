#include "JournalQuery.h"

#include "ServerDialect.h"
#include "TextUtils.h"

namespace lanzhou {

JournalStatement BuildJournalStatement(const JournalFilter& filter)
{
    JournalStatement st;
    QString& sql = st.sql;
    sql = QStringLiteral("select id ,usr,tm,item,sl,bz  from Zhang Where ZBID='") +
          SqlLiteral(filter.ledgerId) + QStringLiteral("' ");
    sql += QStringLiteral(" And TM>='") + filter.periodStart + QStringLiteral("' ");
    sql += QStringLiteral(" And TM<='") + filter.periodEnd + QStringLiteral("' ");

    const QString item = CleanInput(filter.itemText);
    if (!item.isEmpty() && item != filter.allItemsEntry) {
        if (filter.itemContains)
            sql += QStringLiteral(" And Item like '%") + LikeText(filter.serverKind, item) +
                   QStringLiteral("%' ");
        else
            sql += QStringLiteral(" And Item='") + item + QStringLiteral("' ");
    }

    if (filter.signIndex == 1) {
        sql += QStringLiteral(" And SL>=0 ");
        st.balanceMode = false;
    } else if (filter.signIndex == 2) {
        sql += QStringLiteral(" And SL<0 ");
        st.balanceMode = false;
    }

    const QString remark = CleanInput(filter.remarkText);
    if (!remark.isEmpty()) {
        sql +=
            QStringLiteral(" And Bz like '%") + LikeText(filter.serverKind, remark) + QStringLiteral("%' ");
        st.balanceMode = false;
    }

    if (!filter.operatorName.isEmpty()) {
        sql += QStringLiteral(" And Usr = '") + SqlLiteral(filter.operatorName) + QStringLiteral("' ");
        st.balanceMode = false;
    }

    switch (filter.sortIndex) {
    case 1:
        sql += QStringLiteral(" order by TM,ID ");
        st.balanceMode = false;
        break;
    case 2:
        sql += QStringLiteral(" order by SL desc,Item,TM ");
        st.balanceMode = false;
        break;
    default:
        sql += QStringLiteral(" order by Item,TM,ID ");
        break;
    }
    return st;
}

QString OpeningBalanceStatement(const QString& ledgerId, const QString& item, const QString& periodStart)
{
    // The item comes from the listing, as the server stored it.
    return QStringLiteral("select sum(sl) from Zhang Where ZBID='") + SqlLiteral(ledgerId) +
           QStringLiteral("' and Item='") + SqlLiteral(item) + QStringLiteral("' and TM<'") + periodStart +
           QStringLiteral("'  ");
}

} // namespace lanzhou
