#pragma once

#include <QList>
#include <QString>

namespace lanzhou {

class Settings;

// The ledgers known on this computer (ID and name), kept only in the local settings under
// keys "0Z" .. "999Z" as ID + "#" + name. The main window shows it; the registration window adds to it.
class LedgerList
{
public:
    struct Entry
    {
        QString id;
        QString name;
    };

    // The last line of the name list, which starts registration.
    static QString addEntryText() { return QStringLiteral("   点击这里增加账本"); }

    // Reads keys until the first empty one; entries without "#" or beginning with it are skipped.
    void load(const Settings& settings);
    // Writes every entry, then an empty key that ends the list on the next load.
    void save(Settings& settings) const;

    const QList<Entry>& entries() const { return m_entries; }
    int size() const { return int(m_entries.size()); }
    int indexOfId(const QString& id, Qt::CaseSensitivity cs = Qt::CaseSensitive) const;
    // Adds an entry at the end (just before the add-entry line) and answers its index.
    int append(const Entry& entry);
    void removeAt(int index);
    void rename(int index, const QString& name);

    // The entry the list's owner should select; -1 for none.
    int selected = -1;

private:
    QList<Entry> m_entries;
};

} // namespace lanzhou
