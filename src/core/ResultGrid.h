#pragma once

#include <QList>
#include <QStringList>

namespace lanzhou {

// The rows of the last grid read: field names in row 0, data in rows 1..n, NULL read as "".
class ResultGrid
{
public:
    int fieldCount() const { return m_fieldCount; }
    // One more than the number of data rows.
    int rowLimit() const { return m_rows.size(); }
    // Any cell outside the result reads as the empty text.
    QString cell(int row, int column) const
    {
        if (row < 0 || row >= m_rows.size())
            return QString();
        return m_rows.at(row).value(column);
    }

    void reset(QStringList fieldNames)
    {
        m_fieldCount = int(fieldNames.size());
        m_rows.clear();
        m_rows.append(std::move(fieldNames));
    }
    void appendRow(QStringList row) { m_rows.append(std::move(row)); }
    void clear()
    {
        m_fieldCount = 0;
        m_rows.clear();
    }

private:
    int m_fieldCount = 0;
    QList<QStringList> m_rows;
};

} // namespace lanzhou
