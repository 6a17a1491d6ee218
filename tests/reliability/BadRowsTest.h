#pragma once

#include <QObject>

namespace lanzhou::test {

// Rows that other clients could have written: NULL quantities, items and labels, posting times in a
// wrong form, rights strings too long or with other characters than 0 and 1. Every window opens on
// them and shows what is stored.
class BadRowsTest : public QObject
{
    Q_OBJECT
private slots:
    void badRows_data();
    void badRows();
};

} // namespace lanzhou::test
