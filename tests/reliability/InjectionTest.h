#pragma once

#include "TestContext.h"

#include <QObject>

namespace lanzhou::test {

// Hostile texts typed into every box a person reaches, and stored in the tables by another client,
// on every server kind: no statement beyond the program's own runs, no other ledger is touched, and
// every text is stored as the cleaning rules say (or exactly, where the program keeps it as typed).
class InjectionTest : public QObject
{
    Q_OBJECT
private slots:
    void typedTexts_data() { addBackendRows(everyServerSetting()); }
    void typedTexts();
    void administration_data() { addBackendRows(everyServerSetting()); }
    void administration();
    void storedTexts_data() { addBackendRows(everyServerSetting()); }
    void storedTexts();
    void characterLimits();
};

} // namespace lanzhou::test
