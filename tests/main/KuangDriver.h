#pragma once

#include "Kuang.h"
#include "TestContext.h"
#include "WindowDriver.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <memory>

namespace lanzhou::test {

// Drives a shown main window through its named controls, as a person would.
class KuangDriver
{
public:
    explicit KuangDriver(AppContext context);

    template <class T> T* w(const char* name) const
    {
        T* found = window->findChild<T*>(QString::fromLatin1(name));
        if (!found)
            qFatal("no control %s", name);
        return found;
    }
    QString text(const char* labelName) const { return w<QLabel>(labelName)->text(); }

    // Gives the window the keyboard again, as after a dialog or another window closed.
    void activate();
    void click(const char* buttonName);
    void post() { click("Cmd"); }
    // Picks an entry from a combo's open list with the keyboard.
    void pick(const char* comboName, const QString& entry);
    // Replaces the text of a box by typing.
    void type(const char* boxName, const QString& text);
    void typeItem(const QString& item);
    // Leaves the item box with the Tab key.
    void leaveItemBox();
    // Triggers a menu entry from the menu its button opens.
    void chooseMenu(const char* buttonName, const char* actionName);

    std::unique_ptr<Kuang> window;
};

// A ledger row with one operator, and the ledger in the local list as its only, last opened entry.
void prepareLedger(TestContext& t, const QString& id, const QString& name,
                   const QString& op = QStringLiteral("管理员"), const QString& password = QString(),
                   const QString& rights = QString());

// Opens the ledger selected in the list and logs in with the given password.
void openAndLogin(KuangDriver& d, const QString& password = QString());

// A second client on the same ledger database: its own session, settings, prompts and clock.
struct SecondClient
{
    explicit SecondClient(const DbConfig& config);
    AppContext context() { return {session, db, dialogs, shell, clock, settings}; }

    QTemporaryDir dir;
    Session session;
    Database db;
    ScriptedDialogs dialogs;
    RecordingShell shell;
    FixedClock clock;
    Settings settings;
};

} // namespace lanzhou::test
