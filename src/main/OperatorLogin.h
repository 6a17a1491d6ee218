#pragma once

#include "AppContext.h"

#include <QObject>
#include <QStringList>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;

namespace lanzhou {

// Operator login on the login panel: the operator list, the remembered password and automatic
// login, the password check on the server and the rights it loads.
class OperatorLogin : public QObject
{
    Q_OBJECT
public:
    struct Widgets
    {
        QComboBox* operators;        // CmbUser
        QLineEdit* password;         // TxtPwd
        QCheckBox* autoLogin;        // Chk
        QCheckBox* rememberPassword; // Chk2
        QLabel* hello;               // labHello
    };

    OperatorLogin(const AppContext& context, const Widgets& widgets, QObject* parent = nullptr);

    // Opening another ledger: its operators and its operator replace this one's.
    void forgetOtherLedger(const QString& ledgerId);
    // Lists the ledger's operators, reading them unless this ledger's are listed already; a ledger
    // without any gets "管理员". False, after the message, when the server could not be read.
    bool fillOperators(const QString& ledgerId);
    // Both boxes cleared, the remembered operator picked, which may log in at once.
    void start(const QString& rememberedOperator, bool autoLogin);
    // Back to the login of the open ledger: nothing ticked, no password, no automatic login.
    void restart();
    // Only while the login panel shows do the boxes react.
    void setActive(bool active) { m_active = active; }
    // Checks the password and loads the rights; emits loggedIn() with the ledger's items.
    void login();

signals:
    void waiting(const QString& caption);
    void waitingDone();
    // A remembered password under automatic login: the window logs in as its post button would.
    void loginRequested();
    void loggedIn(const QStringList& items);

private:
    void onOperatorPicked(int index);
    void rememberLogin(const QString& op);
    void clearChecks();
    // The list follows the session's operators when the operator window adds or removes one.
    void followSession();

    AppContext m_ctx;
    Widgets m_w;
    bool m_active = false;
    bool m_autoLogin = false;
    // The ledger whose operators the list holds.
    QString m_operatorsLedger;
};

} // namespace lanzhou
