#pragma once

#include <QString>
#include <QStringList>

namespace lanzhou::test {

// The suite's figures: every check counts one try and, when it fails, one failure, by test and
// backend; a fault's times keep their worst. print() gives one line "RELIABILITY <test> <backend>
// tries=N failures=M" per pair, then "FAULT-TIME <test> <backend> worst_ms=T".
class Figures
{
public:
    // False when `ok` is; the caller still fails the test with QVERIFY2, so that CI turns red.
    static bool count(const QString& test, const QString& backend, bool ok);
    static void time(const QString& test, const QString& backend, qint64 ms);
    static void print();
};

// The classes beside InjectionTest, each run by QTest::qExec.
int RunBadRows(int argc, char** argv);
int RunConcurrency(int argc, char** argv);
int RunServerFaults(int argc, char** argv);
// A copy of the program started by the concurrency test, with the arguments after "--post-worker".
int RunPostWorker(const QStringList& arguments);

} // namespace lanzhou::test
