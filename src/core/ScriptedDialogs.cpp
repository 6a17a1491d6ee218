#include "ScriptedDialogs.h"

namespace lanzhou {

ScriptedDialogs::ScriptedDialogs(std::function<void(const QString&)> onUnexpected)
    : m_onUnexpected(std::move(onUnexpected))
{}

DialogAnswer ScriptedDialogs::show(const QString& text, const QString& title, DialogIcon icon,
                                   DialogButtons buttons, DialogAnswer defaultAnswer)
{
    m_shown.append({text, title, icon, buttons, defaultAnswer});
    if (buttons == DialogButtons::Ok)
        return DialogAnswer::Ok;
    if (m_answers.isEmpty()) {
        unexpected(QStringLiteral("unexpected question: ") + text);
        return defaultAnswer;
    }
    return m_answers.dequeue();
}

QString ScriptedDialogs::inputText(const QString& prompt, const QString& title, const QString& initial)
{
    m_shown.append({prompt, title, DialogIcon::None, DialogButtons::OkCancel, DialogAnswer::Ok});
    if (m_texts.isEmpty()) {
        unexpected(QStringLiteral("unexpected input box: ") + prompt);
        return initial;
    }
    return m_texts.dequeue();
}

QString ScriptedDialogs::saveFileName(const QString& title, const QString& folder, const QString& filter)
{
    Q_UNUSED(folder)
    Q_UNUSED(filter)
    m_shown.append({QString(), title, DialogIcon::None, DialogButtons::OkCancel, DialogAnswer::Ok});
    if (m_texts.isEmpty()) {
        unexpected(QStringLiteral("unexpected save dialog: ") + title);
        return QString();
    }
    return m_texts.dequeue();
}

QStringList ScriptedDialogs::texts() const
{
    QStringList all;
    for (const Shown& s : m_shown)
        all.append(s.text);
    return all;
}

void ScriptedDialogs::unexpected(const QString& what)
{
    if (m_onUnexpected)
        m_onUnexpected(what);
}

} // namespace lanzhou
