#include "LedgerGenerator.h"

#include "EntryStatements.h"
#include "ServerDialect.h"

#include <QRandomGenerator>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

#include <cstdio>

namespace lanzhou::bench {

void generateLedger(test::TestContext& t, const LedgerShape& shape)
{
    t.openLedger(shape.ledgerId, QStringLiteral("基准账本"));
    const auto dialect = ServerDialect::create(t.db->config());
    const DbConfig& c = t.db->config();
    const PlainConnection params = Unscramble(c);
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(dialect->qtDriver(), QStringLiteral("bench-generator"));
        dialect->configure(db, params);
        if (!db.open())
            qFatal("generator: %s", qPrintable(db.lastError().text()));
        db.transaction();
        QSqlQuery insert(db);
        insert.prepare(
            QStringLiteral("insert into Zhang (ZBID,USR,TM,ID,ITEM,SL,BZ) values (?,?,?,?,?,?,?)"));
        QRandomGenerator random(20261115);
        const QDateTime start(QDate(shape.year - 2, 1, 1), QTime(0, 0));
        const auto span = quint32(start.secsTo(QDateTime(QDate(shape.year + 1, 1, 1), QTime(0, 0))));
        const QString minutes = QStringLiteral("yyyy-MM-dd hh:mm");
        const auto add = [&](const QString& ledger, const QString& time, const QString& id,
                             const QString& item, int amount, const QString& remark) {
            for (const QVariant& value :
                 {QVariant(ledger), QVariant(QStringLiteral("管理员")), QVariant(time), QVariant(id),
                  QVariant(item), QVariant(amount), QVariant(remark)})
                insert.addBindValue(value);
            if (!insert.exec())
                qFatal("generator: %s", qPrintable(insert.lastError().text()));
        };
        for (int i = 0; i < shape.entries; ++i) {
            const QDateTime when = start.addSecs(qint64(random.bounded(span)));
            const QString time = when.toString(minutes);
            const QString item =
                QStringLiteral("物品%1").arg(random.bounded(shape.items), 4, 10, QLatin1Char('0'));
            const int amount = random.bounded(1, 200);
            const int quantity = random.bounded(3) == 0 ? -amount : amount;
            const QString remark = i % 7 == 0 ? QStringLiteral("备注") : QString(QLatin1String(""));
            const QString id = QStringLiteral("B%1").arg(i, 11, 10, QLatin1Char('0'));
            if (i >= shape.tombstones) {
                add(shape.ledgerId, time, id, item, quantity, remark);
                continue;
            }
            const QString stamp = when.addSecs(3600 * (1 + i % 48)).toString(minutes);
            add(QStringLiteral("管理员#") + shape.ledgerId + u'#' + stamp, time, id, item, quantity, remark);
            if (i % 2 == 1)
                add(shape.ledgerId, time, EditorEntryId(when), item, quantity + 1, remark);
        }
        db.commit();
        // A table at rest, as the server's autovacuum leaves it: statistics for the planner and a
        // visibility map, so that the covering index answers without reading the table.
        if (dialect->qtDriver() == QLatin1String("QPSQL"))
            QSqlQuery(db).exec(QStringLiteral("vacuum analyze Zhang"));
    }
    QSqlDatabase::removeDatabase(QStringLiteral("bench-generator"));
    std::printf("generated %d entries over %d items on %s\n", shape.entries, shape.items,
                qPrintable(t.backendName));
}

BenchLedger::BenchLedger(const QString& backend, const LedgerShape& shape)
    : t(backend == QLatin1String("postgresql-odbc")       ? QStringLiteral("odbc")
        : backend.startsWith(QLatin1String("postgresql")) ? QStringLiteral("postgresql")
                                                          : backend)
{
    generateLedger(t, shape);
    t.backendName = backend;
    if (!backend.endsWith(QLatin1String("-30ms")))
        return;
    relay = std::make_unique<test::ServerRelay>(quint16(t.db->config().port), 15);
    DbConfig slow = t.db->config();
    slow.port = relay->port();
    *t.db = Database(slow);
}

} // namespace lanzhou::bench
