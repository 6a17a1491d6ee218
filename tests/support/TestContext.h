#pragma once

#include "AppContext.h"
#include "Clock.h"
#include "Database.h"
#include "ScriptedDialogs.h"
#include "Session.h"
#include "Settings.h"
#include "Shell.h"

#include <QSqlDatabase>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <memory>

namespace lanzhou::test {

// The backends a server-dependent test runs on. "postgresql" and "odbc" use the throwaway server
// whose address the test command puts in LANZHOU_TEST_POSTGRES; each test program gets its own
// database there, emptied when a context is made.
QStringList backends(bool withOdbc = false);
// Every backend, and PostgreSQL whose database starts sessions with standard_conforming_strings off
// ("pg-backslash"), where a backslash in a quoted value escapes the next character.
QStringList everyServerSetting();
// Adds one data row per backend, with a QString column "backend".
void addBackendRows(const QStringList& names = backends());
// Adds a QString column of each name.
void addTextColumns(std::initializer_list<const char*> names);
// The backend of the data row that runs.
QString rowBackend();

// Messages that windows all over the program show.
inline const QString kRetryText = QStringLiteral("连接服务器失败，请重试！");
inline const QString kNoRightText = QStringLiteral("对不起，您无此权限！");
inline const QString kNoDataText = QStringLiteral("没有符合条件的数据！");

// Everything a window needs, on a fresh ledger database, with scripted dialogs, a recording shell,
// a fixed clock (2026-11-15 09:05:30.25) and settings in a temporary folder.
class TestContext
{
public:
    explicit TestContext(const QString& backend = QStringLiteral("sqlite"));

    AppContext context() { return {session, *db, dialogs, shell, clock, settings}; }
    // Runs a fixture statement and fails the test when it does not succeed.
    QString exec(const QString& sql);
    // A connection of the test's own to the ledger database, as another tool opens it; removed by name.
    QSqlDatabase ownConnection(const QString& name) const;
    // Runs statements the program never sends (schema changes, as another tool would make them) on a
    // connection of the test's own, and fails the test when one does not succeed.
    void alter(const QStringList& statements);
    // All rows of a fixture read, data rows only, each row's fields in order.
    QList<QStringList> rows(const QString& sql);
    // The same as one text: fields joined by "|", rows by ";".
    QString text(const QString& sql);
    // Points the runners at a server that is down, or back at the ledger database.
    void setServerDown(bool down);
    // Changes the ledger database's configuration (its time-outs, its port) and reopens the runners
    // on it; windows holding the context keep working on the changed one.
    void reconfigure(const std::function<void(DbConfig&)>& change);
    // Points a shared server's runners at the port of a relay in front of it, 0 back at the server.
    void pointAt(quint16 port);
    // The ledger database's address, as the program reads one (README).
    QString address() const;
    // The texts of the dialogs shown since the last call, which forgets them.
    QStringList said();
    // The session has read the server's date already: the fixed clock's day.
    void knowServerDate();
    // Adds a ledger row and opens it in the session with all rights, as after a login.
    void openLedger(const QString& id, const QString& name, const QString& item = QStringLiteral("物品"),
                    const QString& quantity = QStringLiteral("存量"),
                    const QString& op = QStringLiteral("管理员"));

    QString backendName;
    QTemporaryDir dir;
    Session session;
    std::unique_ptr<Database> db;
    ScriptedDialogs dialogs;
    RecordingShell shell;
    FixedClock clock;
    Settings settings;

private:
    DbConfig m_working;
    quint16 m_serverPort = 0;
};

// The address of a database that is down: nothing listens on the port.
DbConfig unreachableConfig(const QString& backend);

} // namespace lanzhou::test
