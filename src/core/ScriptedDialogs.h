#pragma once

#include "Dialogs.h"

#include <QList>
#include <QQueue>
#include <QStringList>

#include <functional>

namespace lanzhou {

// Test double: records every prompt and answers from a queue. A prompt that needs an answer
// (a question, an input box, a save dialog) with nothing queued is reported to the failure handler.
class ScriptedDialogs final : public Dialogs
{
public:
    struct Shown
    {
        QString text;
        QString title;
        DialogIcon icon = DialogIcon::None;
        DialogButtons buttons = DialogButtons::Ok;
        DialogAnswer defaultAnswer = DialogAnswer::Ok;
    };

    explicit ScriptedDialogs(std::function<void(const QString&)> onUnexpected = {});

    DialogAnswer show(const QString& text, const QString& title, DialogIcon icon, DialogButtons buttons,
                      DialogAnswer defaultAnswer) override;
    QString inputText(const QString& prompt, const QString& title, const QString& initial) override;
    QString saveFileName(const QString& title, const QString& folder, const QString& filter) override;

    void queueAnswer(DialogAnswer answer) { m_answers.enqueue(answer); }
    void queueText(const QString& text) { m_texts.enqueue(text); }

    const QList<Shown>& shown() const { return m_shown; }
    QStringList texts() const;
    // The text of the last prompt, or the empty text when none was shown.
    QString lastText() const { return m_shown.isEmpty() ? QString() : m_shown.constLast().text; }
    void clear() { m_shown.clear(); }
    bool allAnswersUsed() const { return m_answers.isEmpty() && m_texts.isEmpty(); }

private:
    void unexpected(const QString& what);

    std::function<void(const QString&)> m_onUnexpected;
    QList<Shown> m_shown;
    QQueue<DialogAnswer> m_answers;
    QQueue<QString> m_texts;
};

} // namespace lanzhou
