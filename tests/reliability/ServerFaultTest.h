#pragma once

#include <QObject>

// The server fails under the windows: down when a ledger opens, stopped and started between two
// posts, hung, holding a lock, killed in the middle of a listing; and a busy journal is closed. Each
// fault ends in the system's message within fifteen seconds, leaves the window ready for a retry
// that works, and loses or doubles no row.
class ServerFaultTest : public QObject
{
    Q_OBJECT
private slots:
    void downAtStart_data();
    void downAtStart();
    void stoppedBetweenPosts_data();
    void stoppedBetweenPosts();
    void hungServer_data();
    void hungServer();
    void lockHeld_data();
    void lockHeld();
    void killedDuringListing_data();
    void killedDuringListing();
    void closeWhileBusy_data();
    void closeWhileBusy();
    void cleanupTestCase();
};
