#pragma once

namespace lanzhou {

class Clock;
class Database;
class Dialogs;
class Session;
class Settings;
class Shell;

// The services every window is built from; the application (or a test) owns them.
struct AppContext
{
    Session& session;
    Database& db;
    Dialogs& dialogs;
    Shell& shell;
    const Clock& clock;
    Settings& settings;
};

} // namespace lanzhou
