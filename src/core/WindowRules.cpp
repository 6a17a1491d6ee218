#include "WindowRules.h"

#include <QComboBox>
#include <QLineEdit>
#include <QScreen>
#include <QValidator>
#include <QWidget>

namespace lanzhou {

namespace {

// A surrogate pair is one character.
qsizetype CharacterCount(const QString& text)
{
    qsizetype count = text.size();
    for (qsizetype i = 1; i < text.size(); ++i)
        if (text.at(i).isLowSurrogate() && text.at(i - 1).isHighSurrogate())
            --count;
    return count;
}

// The box's length limit in characters. A box hands every change to its validator, which may cut the
// text: the characters just before the caret (the text just put in) go first, as the box's own unit
// limit would cut them, but whole.
class CharacterLimit final : public QValidator
{
public:
    CharacterLimit(int characters, QObject* parent) : QValidator(parent), m_characters(characters) {}
    State validate(QString& input, int& pos) const override
    {
        for (qsizetype excess = CharacterCount(input) - m_characters; excess > 0; --excess) {
            const qsizetype end = pos > 0 ? pos : input.size();
            const qsizetype length =
                end >= 2 && input.at(end - 1).isLowSurrogate() && input.at(end - 2).isHighSurrogate() ? 2 : 1;
            input.remove(end - length, length);
            if (pos > 0)
                pos -= int(length);
        }
        return Acceptable;
    }

private:
    int m_characters;
};

} // namespace

void FitIntoScreen(QWidget* window)
{
    const QScreen* screen = window->screen();
    if (!screen)
        return;
    const QRect available = screen->availableGeometry();
    // The frame adds a title bar and borders around the window's own size.
    const QSize frameExtra = window->frameGeometry().size() - window->geometry().size();
    const QSize room = available.size() - frameExtra;
    const QSize size = window->size().boundedTo(room).expandedTo(window->minimumSize().boundedTo(room));
    if (size != window->size()) {
        window->setMinimumSize(window->minimumSize().boundedTo(room));
        window->resize(size);
    }
    QRect frame = window->frameGeometry();
    frame.moveRight(qMin(frame.right(), available.right()));
    frame.moveBottom(qMin(frame.bottom(), available.bottom()));
    frame.moveLeft(qMax(frame.left(), available.left()));
    frame.moveTop(qMax(frame.top(), available.top()));
    if (frame.topLeft() != window->frameGeometry().topLeft())
        window->move(frame.topLeft());
}

void TakeTypedTextAsIs(QComboBox* box)
{
    box->setCompleter(nullptr);
}

void DetachHandlers(QWidget* window)
{
    const QList<QObject*> controls = window->findChildren<QObject*>();
    for (QObject* control : controls) {
        control->removeEventFilter(window);
        QObject::disconnect(control, nullptr, window, nullptr);
    }
}

void BringForward(QWidget* window)
{
    window->show();
    window->raise();
    window->activateWindow();
}

void LimitCharacters(QLineEdit* box, int characters)
{
    box->setValidator(new CharacterLimit(characters, box));
}

} // namespace lanzhou
