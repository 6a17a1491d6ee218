#include "Database.h"

#include "ServerDialect.h"
#include "TextUtils.h"
#include "WaitCursor.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

namespace lanzhou {

namespace {

// The text form of one field: NULL reads as "", dates in the form the date parser reads back.
QString fieldText(const QVariant& value)
{
    if (value.isNull())
        return QString();
    switch (value.typeId()) {
    case QMetaType::QDateTime:
        return value.toDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    case QMetaType::QDate:
        return value.toDate().toString(QStringLiteral("yyyy-MM-dd"));
    case QMetaType::Double:
    case QMetaType::Float:
        return GeneralNumberText(value.toDouble());
    default:
        return value.toString();
    }
}

bool runScript(QSqlDatabase& db, const QString& resource)
{
    QFile file(resource);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    // Comment lines go first, so that a ";" inside one cannot cut a statement.
    QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    lines.removeIf([](const QString& line) { return line.trimmed().startsWith(QLatin1String("--")); });
    const QStringList statements = lines.join(QLatin1Char('\n')).split(QLatin1Char(';'));
    QSqlQuery query(db);
    for (const QString& statement : statements) {
        if (statement.trimmed().isEmpty())
            continue;
        if (!query.exec(statement))
            return false;
    }
    return true;
}

} // namespace

Database::Database(DbConfig config)
    : m_config(std::move(config)), m_dialect(ServerDialect::create(m_config)),
      m_watch(std::make_unique<LinkWatch>())
{
    // The plain parameters exist only while a link is opened.
    const ServerDialect* dialect = m_dialect.get();
    LinkWatch* watch = m_watch.get();
    // Asking a rested link whether it is alive may meet a hung server too; it gets as long as a login.
    const int askMs = m_config.loginSeconds() * 1000;
    m_pool = std::make_unique<LinkPool>(
        dialect->qtDriver(),
        [dialect, config = m_config](QSqlDatabase& db) {
            dialect->configure(db, Unscramble(config));
            if (!db.open())
                return false;
            dialect->linkOpened(db);
            return true;
        },
        [dialect, watch, askMs](QSqlDatabase& db, qint64 idleMs) {
            watch->arm(dialect->linkSocket(db), askMs);
            const bool alive = dialect->linkAlive(db, idleMs);
            return !watch->disarm() && alive;
        },
        dialect->idleLimitMs());
}

Database::~Database() = default;
Database::Database(Database&&) noexcept = default;
Database& Database::operator=(Database&&) noexcept = default;

Database::StatementKind Database::classify(const QString& statement)
{
    const QString upper = TrimBlanks(statement.toUpper());
    if (upper.size() < 7)
        return StatementKind::Unknown;
    const QStringView head = QStringView(upper).left(7);
    if (head == QLatin1String("SELECT "))
        return StatementKind::Select;
    if (head == QLatin1String("DELETE ") || head == QLatin1String("UPDATE ") ||
        head == QLatin1String("INSERT "))
        return StatementKind::Write;
    return StatementKind::Unknown;
}

QString Database::RunQuery(const QString& statement)
{
    return run(statement, true);
}

QString Database::RunScalar(const QString& statement)
{
    return run(statement, false);
}

bool Database::prepareEmbeddedFile() const
{
    if (m_config.kind != ServerKind::Sqlite)
        return true;
    // The schema only adds what is missing, so a file made by an earlier version gains its new
    // indexes here too.
    const QString path = m_config.server.plain();
    const bool existed = QFileInfo::exists(path);
    if (!existed)
        QDir().mkpath(QFileInfo(path).absolutePath());
    const QString name = QStringLiteral("lanzhou-schema");
    bool ok = false;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        db.setDatabaseName(path);
        db.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=5000"));
        if (db.open()) {
            QSqlQuery(db).exec(QStringLiteral("PRAGMA journal_mode=WAL"));
            ok = createSchema(db);
            db.close();
        }
    }
    QSqlDatabase::removeDatabase(name);
    if (!ok && !existed)
        QFile::remove(path);
    return ok;
}

bool Database::createSchema(QSqlDatabase& link) const
{
    return runScript(link, m_dialect->schemaResource());
}

bool Database::execute(QSqlDatabase& db, const QString& statement, StatementKind kind, bool fillGrid,
                       QString& result)
{
    QSqlQuery query(db);
    query.setForwardOnly(true);
    query.setNumericalPrecisionPolicy(QSql::HighPrecision);
    const QString sql = m_dialect->rewrite(statement);
    if (!query.exec(sql)) {
        if (fillGrid && kind == StatementKind::Select)
            m_grid.clear();
        return false;
    }
    if (kind == StatementKind::Write) {
        result = QStringLiteral("OK");
        return true;
    }
    if (!query.isSelect()) {
        if (fillGrid)
            m_grid.clear();
        return false;
    }
    if (!fillGrid) {
        const QString first = query.next() ? fieldText(query.value(0)) : QString();
        if (query.lastError().isValid())
            return false;
        result = first;
        return true;
    }
    const QSqlRecord record = query.record();
    QStringList names;
    for (int j = 0; j < record.count(); ++j)
        names.append(record.fieldName(j));
    m_grid.reset(names);
    int rows = 0;
    while (query.next()) {
        QStringList row;
        row.reserve(record.count());
        for (int j = 0; j < record.count(); ++j)
            row.append(fieldText(query.value(j)));
        m_grid.appendRow(std::move(row));
        // A long read is slow, not silent.
        if (++rows % 256 == 0)
            m_watch->rearm();
    }
    // A link dropped mid-read is a failure, not a short result.
    if (query.lastError().isValid()) {
        m_grid.clear();
        return false;
    }
    result = QString::number(rows);
    return true;
}

void Database::onLink(bool repeatable, const std::function<bool(QSqlDatabase&)>& work)
{
    // Opening a missing file would make a new, empty one.
    if (m_config.kind == ServerKind::Sqlite && !QFileInfo::exists(m_config.server.plain()))
        return;
    // Work that fails on a link kept from an earlier statement, because the link is broken or may be,
    // runs once more on a new link when it may be repeated: reads may, a write never, since its
    // outcome is unknown.
    for (int attempt = 0; attempt < 2; ++attempt) {
        bool reused = false;
        const QString link = m_pool->take(&reused);
        if (link.isEmpty())
            return;
        bool healthy = true;
        bool cut = false;
        {
            QSqlDatabase db = QSqlDatabase::database(link, false);
            m_watch->arm(m_dialect->linkSocket(db), m_config.silenceLimitMs());
            const bool done = work(db);
            cut = m_watch->disarm();
            healthy = !cut && (done || linkSurvived(db));
        }
        m_pool->giveBack(link, healthy);
        // A link the watch had to cut met a hung server, not a stale link: no second try.
        if (healthy || !reused || !repeatable || cut)
            return;
    }
}

QString Database::run(const QString& statement, bool fillGrid)
{
    const WaitCursor hourglass;
    const StatementKind kind = classify(statement);
    if (kind == StatementKind::Unknown)
        return QString();
    QString result;
    onLink(kind == StatementKind::Select,
           [&](QSqlDatabase& db) { return execute(db, statement, kind, fillGrid, result); });
    return result;
}

bool Database::RunTransaction(const TransactionWork& work)
{
    bool committed = false;
    onLink(false, [&](QSqlDatabase& db) {
        if (!db.transaction())
            return false;
        const QString untimed = m_dialect->untimedTransaction();
        committed = (untimed.isEmpty() || QSqlQuery(db).exec(untimed)) &&
                    work(db, [this] { m_watch->rearm(); }) && db.commit();
        if (!committed)
            db.rollback();
        return committed;
    });
    return committed;
}

QStringList Database::RunBatch(const QStringList& statements, QList<bool>* failed)
{
    const WaitCursor hourglass;
    QStringList answers(statements.size());
    QList<qsizetype> sent;
    QStringList rewritten;
    bool onlyReads = true;
    for (qsizetype i = 0; i < statements.size(); ++i) {
        const StatementKind kind = classify(statements.at(i));
        if (kind == StatementKind::Unknown)
            continue;
        onlyReads = onlyReads && kind == StatementKind::Select;
        sent.append(i);
        rewritten.append(m_dialect->rewrite(statements.at(i)));
    }
    // Every statement counts as failed until it is answered, also those never sent.
    QList<bool> unanswered(statements.size(), true);
    if (!sent.isEmpty()) {
        onLink(onlyReads, [&](QSqlDatabase& db) {
            unanswered.fill(true);
            if (const auto piped = m_dialect->pipeline(db, rewritten)) {
                for (qsizetype k = 0; k < sent.size(); ++k) {
                    answers[sent.at(k)] = piped->at(k).value_or(QString());
                    unanswered[sent.at(k)] = !piped->at(k).has_value();
                }
                return true;
            }
            bool done = true;
            for (const qsizetype i : std::as_const(sent)) {
                // The link is gone: the rest of the run fails without being sent.
                if (!db.isOpen())
                    return false;
                QString result;
                const bool ran = execute(db, statements.at(i), classify(statements.at(i)), false, result);
                answers[i] = result;
                unanswered[i] = !ran;
                m_watch->rearm();
                done = ran && done;
            }
            return done;
        });
    }
    if (failed)
        *failed = unanswered;
    return answers;
}

bool Database::linkSurvived(QSqlDatabase& db) const
{
    // A statement the server refused leaves the link as good as it was; only a link that can be
    // checked is kept after a failure.
    return m_dialect->checksLinks() && m_dialect->linkAlive(db);
}

int Database::openLinks() const
{
    return m_pool->openLinks();
}

} // namespace lanzhou
