#pragma once

#include <QString>

namespace lanzhou::test {

// The suite's figures: every check counts one try and, when it fails, one failure, by test and
// backend. At the end each pair prints one line "RELIABILITY <test> <backend> tries=N failures=M".
class Figures
{
public:
    // Counts one try; false (with the failure counted) when `ok` is false. The caller still fails
    // the test with QVERIFY2, so that CI turns red on any failure.
    static bool count(const QString& test, const QString& backend, bool ok);
    static void print();
};

} // namespace lanzhou::test
