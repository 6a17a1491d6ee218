#pragma once

#include <QObject>
#include <QStringList>

namespace lanzhou::test {

// Two copies of the program post to one ledger at the same moment, through the main window's quick
// entry: no entry may be lost or changed, no message may be shown.
class ConcurrencyTest : public QObject
{
    Q_OBJECT
private slots:
    void twoPosters_data();
    void twoPosters();
};

// The worker side, run as "--post-worker <backend> <database address> <ledger> <count> <operator>":
// opens the ledger in a main window, logs in without a password, waits for "GO" on its input and posts
// `count` movements. Prints "POSTED <n> MESSAGES <m>"; every message shown goes to the error output.
int RunPostWorker(const QStringList& arguments);

} // namespace lanzhou::test
