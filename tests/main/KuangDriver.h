#pragma once

#include "AppConstants.h"
#include "Kuang.h"
#include "TestContext.h"
#include "WindowDriver.h"

#include <memory>

namespace lanzhou::test {

// The main window, shown and active, driven through the shared window driver.
class KuangDriver : public WindowDriver
{
public:
    explicit KuangDriver(AppContext context) : kuang(std::make_unique<Kuang>(context))
    {
        setWindow(kuang.get());
        kuang->show();
        activate();
    }
    Kuang::Panel panel() const { return kuang->panel(); }
    // The one command button: opens the ledger, logs in or posts, as the panel has it.
    void post() const { click(QStringLiteral("Cmd")); }
    // Posts one movement as typed into the item and quantity boxes.
    void enter(const QString& item, const QString& quantity) const
    {
        type(QStringLiteral("Cmb"), item);
        type(QStringLiteral("Txt"), quantity);
        post();
    }

    std::unique_ptr<Kuang> kuang;
};

inline QString setting(const Settings& settings, const QString& section, const QString& key)
{
    return settings.read(AppConstants::settingsApp(), section, key);
}
inline void writeSetting(Settings& settings, const QString& section, const QString& key, const QString& value)
{
    settings.write(AppConstants::settingsApp(), section, key, value);
}

// The title and the text of the last message shown.
inline QStringList lastMessage(const TestContext& t)
{
    const auto shown = t.dialogs.shown().value(t.dialogs.shown().size() - 1);
    return {shown.title, shown.text};
}

// The ledger as the only, last opened entry of the local list, read against a known server date.
inline void rememberLedger(TestContext& t, const QString& id, const QString& name)
{
    writeSetting(t.settings, QStringLiteral("FR"), QStringLiteral("0Z"), id + u'#' + name);
    writeSetting(t.settings, QStringLiteral("ZBID"), QStringLiteral("FR"), id);
    t.session.serverDateText = QStringLiteral("2026-11-15");
    t.session.serverDateDay = 15;
}

// A ledger row on the server with one operator, remembered in the local list.
inline void prepareLedger(TestContext& t, const QString& id, const QString& name,
                          const QString& op = QStringLiteral("管理员"), const QString& password = QString(),
                          const QString& rights = QString())
{
    t.exec(QStringLiteral("insert into Zblst (ZBid,ZbNm,Item,SL,Bz,BgDate,NdDate,MB,SalesMan,Msg) values "
                          "('%1','%2','物品','存量','自已注册','2026-11-15','','','','您好！')")
               .arg(id, name));
    t.exec(QStringLiteral("insert into UsrLst (ZBID,Usr,PWD,QX) values ('%1','%2','%3',%4)")
               .arg(id, op, password, rights.isNull() ? QStringLiteral("NULL") : u'\'' + rights + u'\''));
    rememberLedger(t, id, name);
}

} // namespace lanzhou::test
