#pragma once

#include <QPointer>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <memory>

namespace lanzhou::test {

// Drives any window of the program through its named controls, as a person would: keys, clicks,
// picks from open lists, menu entries. A missing control or entry fails loudly.
class WindowDriver
{
public:
    explicit WindowDriver(QWidget* window = nullptr) : m_window(window) {}

    QWidget* window() const { return m_window; }
    void setWindow(QWidget* window) { m_window = window; }

    template <class T> T* w(const QString& name) const
    {
        T* found = m_window ? m_window->findChild<T*>(name) : nullptr;
        if (!found)
            missing(name);
        return found;
    }
    // The text of a label, button, line box or combo box.
    QString text(const QString& name) const;
    // All the window shows: its title and each named control's text, tick, lines, whether it is
    // shown and enabled. Equal before and after a step that must leave the window as it was.
    QString state() const;
    // Every line of a list box.
    QStringList lines(const QString& listName) const;

    // Makes the window the active one again, as after a dialog or another window closed.
    void activate() const;
    // Clicks a button, or any control that reacts to a click.
    void click(const QString& buttonName) const;
    // Presses a key in a control (Enter, Tab, ...).
    void press(const QString& name, Qt::Key key) const;
    // Picks an entry from a combo box's open list with the keyboard.
    void pick(const QString& comboName, const QString& entry) const;
    void pickIndex(const QString& comboName, int index) const;
    // Replaces the text of a line box, a text page or an editable combo box by typing it key by key.
    void type(const QString& boxName, const QString& text) const;
    // Works through steps separated by ";" as a person would: "Cmd_0" clicks a control, "Lst@2"
    // clicks a list's line, "Txt=text" picks the text from a fixed list or types it; "MxEd/Cmd_0"
    // acts in the window named MxEd that this one opened.
    void act(const QString& steps) const;
    // Chooses an entry of the menu that a click on a control pops up.
    void chooseMenu(const QString& buttonName, const QString& actionName) const;
    void clickLine(const QString& listName, int row) const;
    void doubleClickLine(const QString& listName, int row) const;

private:
    [[noreturn]] void missing(const QString& what) const;

    QPointer<QWidget> m_window;
};

// A window of the program, shown, with its driver; open() shows a new one in its place.
template <class W> class Shown : public WindowDriver
{
public:
    Shown() = default;
    template <class... A> explicit Shown(A&&... args) { open(std::forward<A>(args)...); }
    template <class... A> W& open(A&&... args)
    {
        m_shown = std::make_unique<W>(std::forward<A>(args)...);
        m_shown->show();
        setWindow(m_shown.get());
        return *m_shown;
    }
    W* operator->() const { return m_shown.get(); }

private:
    std::unique_ptr<W> m_shown;
};

// Runs `steps` on the modal window that the next action opens.
void whenModal(const std::function<void(const WindowDriver&)>& steps);

// The trimmed cells of a drawn table line, joined by "|" in place of its bars.
QString CellTexts(const QString& line);

// Types text key by key, as a keyboard (or an input method, for Chinese) would; a character outside
// the basic plane arrives as one key.
void typeText(QWidget* field, const QString& text);
// Saves a picture of the window into LANZHOU_SCREENSHOT_DIR when that is set (for the README).
void saveScreenshot(QWidget* window, const QString& fileName);

} // namespace lanzhou::test
