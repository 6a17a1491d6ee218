#include "LedgerList.h"

#include "AppConstants.h"
#include "Settings.h"

namespace lanzhou {

void LedgerList::load(const Settings& settings)
{
    m_entries.clear();
    selected = -1;
    for (int n = 0; n < AppConstants::maxLedgers; ++n) {
        const QString value = settings.read(AppConstants::settingsApp(), AppConstants::settingsTag(),
                                            QString::number(n) + u'Z');
        if (value.isEmpty())
            break;
        const qsizetype hash = value.indexOf(QLatin1Char('#'));
        if (hash >= 1)
            m_entries.append({value.left(hash), value.mid(hash + 1)});
    }
}

void LedgerList::save(Settings& settings) const
{
    const QString app = AppConstants::settingsApp();
    const QString tag = AppConstants::settingsTag();
    for (int i = 0; i < size(); ++i)
        settings.write(app, tag, QString::number(i) + u'Z', m_entries.at(i).id + u'#' + m_entries.at(i).name);
    settings.write(app, tag, QString::number(size()) + u'Z', QString());
}

int LedgerList::indexOfId(const QString& id, Qt::CaseSensitivity cs) const
{
    for (int i = 0; i < size(); ++i)
        if (m_entries.at(i).id.compare(id, cs) == 0)
            return i;
    return -1;
}

int LedgerList::append(const Entry& entry)
{
    m_entries.append(entry);
    return size() - 1;
}

void LedgerList::removeAt(int index)
{
    if (index >= 0 && index < size())
        m_entries.removeAt(index);
}

void LedgerList::rename(int index, const QString& name)
{
    if (index >= 0 && index < size())
        m_entries[index].name = name;
}

} // namespace lanzhou
