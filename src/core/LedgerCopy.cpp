#include "LedgerCopy.h"

#include "Database.h"
#include "LedgerRows.h"
#include "TextUtils.h"

#include <QFile>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

#include <map>
#include <optional>

namespace lanzhou {

namespace {

// Rows per insert: few round trips over a slow link, and no more than SQL Server takes in one VALUES.
constexpr qsizetype runRows = 1000;

// Rows of the ledger per table, in the order of LedgerTables().
using Counts = QList<qint64>;
// The live entries' total per item. Items are keyed without regard to case, as the servers group
// them; where one server kind groups two spellings that another keeps apart, their totals are added.
using ItemSums = std::map<QString, double>;
// Each key's item as a server wrote it, to name it in a message.
using ItemNames = std::map<QString, QString>;

QSqlQuery ReadQuery(QSqlDatabase& link)
{
    QSqlQuery query(link);
    query.setForwardOnly(true);
    // Exact decimals come as their text, not as a rounded double.
    query.setNumericalPrecisionPolicy(QSql::HighPrecision);
    return query;
}

std::optional<Counts> CountRows(QSqlDatabase& link, const QString& ledgerId, QString* error)
{
    Counts counts;
    for (const LedgerTable& table : LedgerTables()) {
        QSqlQuery query = ReadQuery(link);
        if (!query.exec(CountLedgerRows(table, ledgerId)) || !query.next()) {
            *error = query.lastError().text();
            return std::nullopt;
        }
        counts.append(query.value(0).toLongLong());
    }
    return counts;
}

double Quantity(const QVariant& value)
{
    return value.typeId() == QMetaType::Double ? value.toDouble() : NumericValue(value.toString());
}

std::optional<ItemSums> SumItems(QSqlDatabase& link, const QString& ledgerId, ItemNames* names)
{
    QSqlQuery query = ReadQuery(link);
    if (!query.exec(ItemSumsStatement(ledgerId)))
        return std::nullopt;
    ItemSums sums;
    while (query.next()) {
        // Entries without an item (NULL) stay apart from those of an empty item name.
        const QVariant item = query.value(0);
        const QString key = item.isNull() ? QString() : u'=' + item.toString().toCaseFolded();
        sums[key] += Quantity(query.value(1));
        (*names)[key] = item.toString();
    }
    if (query.lastError().isValid())
        return std::nullopt;
    return sums;
}

// A copy under way between a held source link and a held target link in its transaction.
class CopyRun
{
public:
    CopyRun(QSqlDatabase& from, QSqlDatabase& to, const Database& target, const QString& ledgerId,
            const CopyProgress& progress, std::function<void()> answered)
        : m_from(from), m_to(to), m_target(target), m_ledgerId(ledgerId), m_progress(progress),
          m_answered(std::move(answered))
    {}

    // Writes the ledger and checks it; true when the target may commit. The source counts give each
    // table's progress its end.
    bool run(const Counts& sourceCounts, CopyOutcome& outcome)
    {
        outcome.ok = makeTables() && targetLacksLedger();
        for (qsizetype i = 0; outcome.ok && i < LedgerTables().size(); ++i)
            outcome.ok = copyTable(LedgerTables().at(i), sourceCounts.at(i));
        outcome.ok = outcome.ok && verify(outcome.lines);
        if (!outcome.ok) {
            outcome.lines.clear();
            outcome.error = m_error;
        }
        return outcome.ok;
    }

private:
    bool fail(const QString& error)
    {
        m_error = error;
        return false;
    }

    // A new database gets the tables of its server kind; one that has them is left as it is.
    bool makeTables()
    {
        const QStringList present = m_to.tables();
        for (const LedgerTable& table : LedgerTables()) {
            if (!present.contains(table.name, Qt::CaseInsensitive)) {
                if (m_target.createSchema(m_to))
                    return true;
                return fail(QStringLiteral("无法在目标数据库中建立账本数据表，请确认登录用户有建表的权限。"));
            }
        }
        return true;
    }

    bool targetLacksLedger()
    {
        QString error;
        const std::optional<Counts> counts = CountRows(m_to, m_ledgerId, &error);
        if (!counts)
            return fail(QStringLiteral("读取目标数据库失败：") + error);
        if (*counts != Counts(counts->size(), 0))
            return fail(QStringLiteral("目标数据库中已有账本“") + m_ledgerId +
                        QStringLiteral("”，没有复制任何数据。"));
        return true;
    }

    bool copyTable(const LedgerTable& table, qint64 total)
    {
        if (!report(table, 0, total))
            return false;
        QSqlQuery read = ReadQuery(m_from);
        if (!read.exec(SelectLedgerRows(table, m_ledgerId)))
            return fail(QStringLiteral("读取源数据库的 ") + table.name + QStringLiteral(" 失败：") +
                        read.lastError().text());
        QStringList rows;
        qint64 done = 0;
        while (read.next()) {
            QList<QVariant> values;
            for (qsizetype j = 0; j < table.columns.size(); ++j)
                values.append(read.value(int(j)));
            if (!BelongsToLedger(table, values.constFirst().toString(), m_ledgerId))
                continue;
            const std::optional<QString> row = RowValues(table, values);
            if (!row)
                return fail(QStringLiteral("源数据库 ") + table.name +
                            QStringLiteral(" 中的这一行数量不是数字，") +
                            QStringLiteral("目标数据库无法接收：") + RowText(table, values));
            rows.append(*row);
            if (rows.size() == runRows && !write(table, rows, done, total))
                return false;
        }
        if (read.lastError().isValid())
            return fail(QStringLiteral("读取源数据库的 ") + table.name + QStringLiteral(" 时中断：") +
                        read.lastError().text());
        return write(table, rows, done, total);
    }

    // One insert for the run of rows read, then the progress.
    bool write(const LedgerTable& table, QStringList& rows, qint64& done, qint64 total)
    {
        if (rows.isEmpty())
            return true;
        QSqlQuery insert(m_to);
        if (!insert.exec(InsertHead(table) + rows.join(u',')))
            return fail(QStringLiteral("目标数据库拒绝了 ") + table.name +
                        QStringLiteral(" 的第 %1 至 %2 行：").arg(done + 1).arg(done + rows.size()) +
                        insert.lastError().text());
        done += rows.size();
        rows.clear();
        m_answered();
        return report(table, done, total);
    }

    bool report(const LedgerTable& table, qint64 done, qint64 total)
    {
        if (m_progress && !m_progress(table.name, done, total))
            return fail(QStringLiteral("复制已取消，目标数据库没有任何改动。"));
        return true;
    }

    // Both sides, read the same way inside their transactions, must hold the same rows per table and
    // the same total per item, compared as the reports show quantities.
    bool verify(QStringList& lines)
    {
        QString error;
        const std::optional<Counts> source = CountRows(m_from, m_ledgerId, &error);
        const std::optional<Counts> target = source ? CountRows(m_to, m_ledgerId, &error) : std::nullopt;
        if (!target)
            return fail(QStringLiteral("复制后无法核对行数：") + error);
        m_answered();
        const QString differ = QStringLiteral("复制后核对不符，目标数据库没有任何改动：");
        for (qsizetype i = 0; i < source->size(); ++i) {
            lines.append(QStringLiteral("%1: source %2, target %3")
                             .arg(LedgerTables().at(i).name)
                             .arg(source->at(i))
                             .arg(target->at(i)));
            if (source->at(i) != target->at(i))
                return fail(differ + lines.constLast());
        }
        ItemNames names;
        const std::optional<ItemSums> sourceSums = SumItems(m_from, m_ledgerId, &names);
        const std::optional<ItemSums> targetSums = SumItems(m_to, m_ledgerId, &names);
        if (!sourceSums || !targetSums)
            return fail(QStringLiteral("复制后无法核对各项合计。"));
        m_answered();
        for (const auto& [key, sum] : *sourceSums) {
            const QString there =
                targetSums->count(key) ? FormatQuantity(targetSums->at(key)) : QStringLiteral("无");
            if (FormatQuantity(sum) != there)
                return fail(differ + QStringLiteral("“") + names[key] +
                            QStringLiteral("”的合计在源数据库为 ") + FormatQuantity(sum) +
                            QStringLiteral("，在目标数据库为 ") + there);
        }
        if (sourceSums->size() != targetSums->size())
            return fail(differ + QStringLiteral("目标数据库的项目与源数据库不同。"));
        lines.append(QStringLiteral("copied: 1 ledger, %1 operators, %2 entries; sums agree")
                         .arg(source->at(1))
                         .arg(source->at(2)));
        return true;
    }

    QSqlDatabase& m_from;
    QSqlDatabase& m_to;
    const Database& m_target;
    const QString m_ledgerId;
    const CopyProgress& m_progress;
    std::function<void()> m_answered;
    QString m_error;
};

} // namespace

CopyOutcome CopyLedger(Database& source, Database& target, const QString& ledgerId,
                       const CopyProgress& progress)
{
    CopyOutcome outcome;
    // A SQLite target that is not there yet is made with its tables; a copy that fails removes it again.
    const QString file = target.config().server.plain();
    const bool newFile = target.config().kind == ServerKind::Sqlite && !QFileInfo::exists(file);
    if (newFile && !target.prepareEmbeddedFile()) {
        outcome.error = QStringLiteral("无法创建目标数据库文件：") + file;
        return outcome;
    }
    bool sourceOpen = false;
    source.RunTransaction([&](QSqlDatabase& from, const std::function<void()>& sourceAnswered) {
        sourceOpen = true;
        QString error;
        const std::optional<Counts> counts = CountRows(from, ledgerId, &error);
        if (!counts) {
            outcome.error = QStringLiteral("读取源数据库失败：") + error;
            return false;
        }
        if (counts->constFirst() == 0) {
            outcome.error = QStringLiteral("源数据库中没有账本“") + ledgerId + QStringLiteral("”。");
            return false;
        }
        bool targetOpen = false;
        const bool committed =
            target.RunTransaction([&](QSqlDatabase& to, const std::function<void()>& answered) {
                targetOpen = true;
                CopyRun run(from, to, target, ledgerId, progress, [&] {
                    sourceAnswered();
                    answered();
                });
                return run.run(*counts, outcome);
            });
        if (!targetOpen)
            outcome.error = QStringLiteral("无法连接目标数据库：服务器没有响应，或登录被拒绝。");
        else if (outcome.ok && !committed)
            outcome = {false, {}, QStringLiteral("目标数据库没有接受提交，没有任何改动。")};
        return outcome.ok;
    });
    if (!sourceOpen)
        outcome.error = QStringLiteral("无法连接源数据库：服务器没有响应、登录被拒绝或数据库文件不存在。");
    if (!outcome.ok && newFile) {
        // Closes the links to the file before it goes.
        target = Database(target.config());
        for (const QString& suffix : {QString(), QStringLiteral("-wal"), QStringLiteral("-shm")})
            QFile::remove(file + suffix);
    }
    return outcome;
}

} // namespace lanzhou
