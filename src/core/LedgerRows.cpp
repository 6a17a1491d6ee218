#include "LedgerRows.h"

#include "TextUtils.h"

#include <QLocale>

#include <cmath>

namespace lanzhou {

namespace {

// The ID as a like pattern's body with "!" as the escape: "%" and "_" (and "[", which SQL Server
// reads as a set) stand for themselves.
QString LiteralPattern(const QString& ledgerId)
{
    QString pattern;
    for (const QChar c : SqlLiteral(ledgerId)) {
        if (c == u'!' || c == u'%' || c == u'_' || c == u'[')
            pattern += u'!';
        pattern += c;
    }
    return pattern;
}

QString Condition(const LedgerTable& table, const QString& ledgerId)
{
    QString where = QStringLiteral(" where ") + table.columns.constFirst() + QStringLiteral("='") +
                    SqlLiteral(ledgerId) + u'\'';
    if (table.withTombstones)
        where += QStringLiteral(" or ") + table.columns.constFirst() + QStringLiteral(" like '%#") +
                 LiteralPattern(ledgerId) + QStringLiteral("#%' escape '!'");
    return where;
}

std::optional<QString> QuantityLiteral(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Double:
    case QMetaType::Float: {
        const double number = value.toDouble();
        if (!std::isfinite(number))
            return std::nullopt;
        return QString::number(number, 'g', QLocale::FloatingPointShortest);
    }
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::UInt:
    case QMetaType::ULongLong:
        return value.toString();
    default: {
        // Exact decimals arrive as text (PostgreSQL's numeric, SQL Server's decimal).
        const QString text = value.toString().trimmed();
        if (!IsNumber(text))
            return std::nullopt;
        return text;
    }
    }
}

} // namespace

const QList<LedgerTable>& LedgerTables()
{
    static const QList<LedgerTable> tables{
        {QStringLiteral("ZbLst"),
         QStringLiteral("ZBid,ZbNm,Item,SL,Bz,BgDate,NdDate,MB,SalesMan,Msg,Cmd,GongGao").split(u','), -1,
         false},
        {QStringLiteral("UsrLst"), QStringLiteral("ZBID,Usr,PWD,QX").split(u','), -1, false},
        {QStringLiteral("Zhang"), QStringLiteral("ZBID,USR,TM,ID,ITEM,SL,BZ").split(u','), 5, true},
    };
    return tables;
}

QString SelectLedgerRows(const LedgerTable& table, const QString& ledgerId)
{
    return QStringLiteral("select ") + table.columns.join(u',') + QStringLiteral(" from ") + table.name +
           Condition(table, ledgerId);
}

QString CountLedgerRows(const LedgerTable& table, const QString& ledgerId)
{
    return QStringLiteral("select count(*) from ") + table.name + Condition(table, ledgerId);
}

QString ItemSumsStatement(const QString& ledgerId)
{
    return QStringLiteral("select Item,sum(SL) from Zhang Where ZBID='") + SqlLiteral(ledgerId) +
           QStringLiteral("' Group by Item");
}

bool BelongsToLedger(const LedgerTable& table, const QString& zbid, const QString& ledgerId)
{
    // Ledger IDs compare without regard to case on every server kind.
    return zbid.compare(ledgerId, Qt::CaseInsensitive) == 0 ||
           (table.withTombstones && zbid.contains(u'#' + ledgerId + u'#', Qt::CaseInsensitive));
}

QString InsertHead(const LedgerTable& table)
{
    return QStringLiteral("insert into ") + table.name + QStringLiteral(" (") + table.columns.join(u',') +
           QStringLiteral(") values ");
}

std::optional<QString> RowValues(const LedgerTable& table, const QList<QVariant>& values)
{
    QStringList literals;
    for (qsizetype j = 0; j < values.size(); ++j) {
        const QVariant& value = values.at(j);
        if (value.isNull()) {
            literals.append(QStringLiteral("NULL"));
        } else if (j == table.quantityColumn) {
            const std::optional<QString> quantity = QuantityLiteral(value);
            if (!quantity)
                return std::nullopt;
            literals.append(*quantity);
        } else {
            literals.append(u'\'' + SqlLiteral(value.toString()) + u'\'');
        }
    }
    return u'(' + literals.join(u',') + u')';
}

QString RowText(const LedgerTable& table, const QList<QVariant>& values)
{
    QStringList pairs;
    for (qsizetype j = 0; j < values.size(); ++j)
        pairs.append(table.columns.at(j) + u'=' +
                     (values.at(j).isNull() ? QStringLiteral("NULL") : values.at(j).toString()));
    return pairs.join(QStringLiteral(", "));
}

} // namespace lanzhou
