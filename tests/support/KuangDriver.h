#pragma once

#include "AppConstants.h"
#include "Kuang.h"
#include "Settings.h"
#include "TestContext.h"
#include "WindowDriver.h"

#include <memory>

// The main window's driver, for the test programs that link the main window.
namespace lanzhou::test {

// The ledger as the only entry of this computer's ledger list and the last one opened.
inline void RememberLedger(Settings& settings, const QString& id, const QString& name)
{
    settings.write(AppConstants::settingsApp(), QStringLiteral("FR"), QStringLiteral("0Z"), id + u'#' + name);
    settings.write(AppConstants::settingsApp(), QStringLiteral("ZBID"), QStringLiteral("FR"), id);
}

// The same, and the session has read the server's date already.
inline void RememberLedger(TestContext& t, const QString& id, const QString& name)
{
    RememberLedger(t.settings, id, name);
    t.knowServerDate();
}

// The main window, shown and active, driven as a person does.
class KuangDriver : public WindowDriver
{
public:
    explicit KuangDriver(const AppContext& context) : kuang(std::make_unique<Kuang>(context))
    {
        setWindow(kuang.get());
        kuang->show();
        activate();
    }
    Kuang::Panel panel() const { return kuang->panel(); }
    // The one command button: opens the ledger, logs in or posts, as the panel has it.
    void post() const { click(QStringLiteral("Cmd")); }
    // Opens the chosen ledger and logs in: as the operator offered, or as `op` with `password`.
    void logIn(const QString& op = QString(), const QString& password = QString()) const
    {
        post();
        if (!op.isEmpty())
            pick(QStringLiteral("CmbUser"), op);
        if (!password.isEmpty())
            type(QStringLiteral("TxtPwd"), password);
        post();
    }
    // Posts one movement as typed into the item and quantity boxes.
    void enter(const QString& item, const QString& quantity) const
    {
        type(QStringLiteral("Cmb"), item);
        type(QStringLiteral("Txt"), quantity);
        post();
    }

    std::unique_ptr<Kuang> kuang;
};

} // namespace lanzhou::test
