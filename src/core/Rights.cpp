#include "Rights.h"

#include "AppContext.h"
#include "Dialogs.h"
#include "Session.h"

namespace lanzhou {

bool RequireRight(const AppContext& context, Right right)
{
    if (context.session.hasRight(right))
        return true;
    context.dialogs.inform(Rights::RefusalText());
    return false;
}

namespace Rights {

QString Extend(const QString& rights, int length)
{
    QString s = rights;
    while (s.size() < length)
        s.append(QLatin1Char('1'));
    return s;
}

bool Granted(const QString& rights, int position)
{
    return position >= 1 && position <= rights.size() && rights.at(position - 1) == QLatin1Char('1');
}

QString FromChecks(const QList<bool>& checks)
{
    QString s;
    for (bool checked : checks)
        s.append(checked ? QLatin1Char('1') : QLatin1Char('0'));
    return s;
}

QList<bool> ToChecks(const QString& rights, int boxes)
{
    const QString s = Extend(rights, boxes);
    QList<bool> checks;
    for (int k = 1; k <= boxes; ++k)
        checks.append(Granted(s, k));
    return checks;
}

void ApplyClearRules(QList<bool>& checks)
{
    if (checks.size() < count)
        return;
    auto on = [&](int position) { return checks.at(position - 1); };
    auto clear = [&](int from, int to) {
        for (int k = from; k <= to; ++k)
            checks[k - 1] = false;
    };
    if (!on(6))
        clear(9, 13);
    if (!on(5) && !on(6) && !on(7))
        clear(8, 8);
    if (!on(2) && !on(3))
        clear(10, 11);
}

QString RefusalText()
{
    return QStringLiteral("对不起，您无此权限！");
}

} // namespace Rights

} // namespace lanzhou
