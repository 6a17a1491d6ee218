#pragma once

#include <QString>

namespace lanzhou {

enum class DialogIcon
{
    None,
    Information,
    Question,
    Warning,
    Critical,
    // The program's own icon, as the about box shows it.
    Application
};
enum class DialogButtons
{
    Ok,
    YesNo,
    OkCancel
};
enum class DialogAnswer
{
    Ok,
    Cancel,
    Yes,
    No
};

// Every message box, question, input box and save-file dialog of the program goes through here,
// so that windows can be driven offscreen and their prompts asserted.
class Dialogs
{
public:
    virtual ~Dialogs() = default;

    virtual DialogAnswer show(const QString& text, const QString& title, DialogIcon icon,
                              DialogButtons buttons, DialogAnswer defaultAnswer) = 0;
    // Answers the typed text, or a null QString when cancelled.
    virtual QString inputText(const QString& prompt, const QString& title, const QString& initial) = 0;
    // Answers the chosen path, or the empty text when cancelled.
    virtual QString saveFileName(const QString& title, const QString& folder, const QString& filter) = 0;

    // An information box with one OK button; the title is empty unless given.
    void inform(const QString& text, const QString& title = QString())
    {
        show(text, title, DialogIcon::Information, DialogButtons::Ok, DialogAnswer::Ok);
    }
    // A Yes/No question; true on Yes.
    bool askYesNo(const QString& text, const QString& title, DialogIcon icon, DialogAnswer defaultAnswer)
    {
        return show(text, title, icon, DialogButtons::YesNo, defaultAnswer) == DialogAnswer::Yes;
    }
};

} // namespace lanzhou
