#pragma once

#include "AppContext.h"
#include "LedgerList.h"

#include <QObject>

#include <optional>

namespace lanzhou {

class OperatorLogin;

// Opening the ledger chosen in the list: its row of ZbLst, the command the server left for it,
// and what this computer remembers of it.
class LedgerOpening : public QObject
{
    Q_OBJECT
public:
    // What the login needs once the ledger is open.
    struct Opened
    {
        QString rememberedOperator;
        bool autoLogin = false;
    };

    LedgerOpening(const AppContext& context, OperatorLogin& login, QObject* parent = nullptr);

    // Makes the ledger the session's and remembers it as the last opened (with the state of
    // "下次自动打开该账本"). Empty, after its message, when the ledger cannot be opened.
    std::optional<Opened> open(const LedgerList::Entry& ledger, bool autoOpen);

signals:
    void waiting(const QString& caption);

private:
    // False when the server's command abandons the opening.
    bool actOnServerCommand(const QString& ledgerId, const QString& command, const QString& message);

    AppContext m_ctx;
    OperatorLogin& m_login;
};

} // namespace lanzhou
