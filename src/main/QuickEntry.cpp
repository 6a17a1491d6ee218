#include "QuickEntry.h"

#include "Clock.h"
#include "Database.h"
#include "DateUtils.h"
#include "Dialogs.h"
#include "EntryStatements.h"
#include "EventLoop.h"
#include "QuickEntryRules.h"
#include "Session.h"
#include "Settings.h"
#include "TextUtils.h"
#include "WindowRules.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

namespace lanzhou {

namespace {
const QString kAutoShowKey = QStringLiteral("AutoShowSL");
}

QuickEntry::QuickEntry(const AppContext& context, const Widgets& widgets, QObject* parent)
    : QObject(parent), m_ctx(context), m_w(widgets)
{
    m_w.itemBox->installEventFilter(this);
    TakeTypedTextAsIs(m_w.itemBox);
    connect(m_w.itemBox, &QComboBox::activated, this, &QuickEntry::onItemPicked);
    connect(m_w.itemBox, &QComboBox::editTextChanged, this, &QuickEntry::hideConfirmation);
    connect(m_w.quantityBox, &QLineEdit::textChanged, this, &QuickEntry::onQuantityTextChanged);
}

void QuickEntry::start(const QStringList& items)
{
    {
        const QSignalBlocker quiet(m_w.itemBox);
        m_w.itemBox->clear();
        m_w.itemBox->addItems(items);
        m_w.itemBox->setCurrentIndex(-1);
    }
    const Session& s = m_ctx.session;
    m_ctx.session.setItems(items);
    m_autoShowSetting =
        m_ctx.settings.read(s.ledgerId(), s.operatorName(), kAutoShowKey) != QLatin1String("False");
    m_shownItem.clear();
    m_runningTotal = 0;
}

bool QuickEntry::showsByItself() const
{
    return m_autoShowSetting && m_ctx.session.hasRight(Right::SeeQuantity);
}

void QuickEntry::post()
{
    Session& s = m_ctx.session;
    if (HasNoPostingRight(s.rights())) {
        m_ctx.dialogs.inform(NoPostingRightText(), QStringLiteral("提示"));
        return;
    }
    m_w.itemBox->setEditText(CleanInput(m_w.itemBox->currentText()));
    m_w.quantityBox->setText(CleanInput(m_w.quantityBox->text()));
    const PostingCheck check =
        CheckPosting({s.rights(), m_w.itemBox->currentText(), m_w.quantityBox->text(), s.itemLabel(),
                      s.quantityLabel(), s.quantityLabel() + QStringLiteral("增减")});
    if (check.refused()) {
        m_ctx.dialogs.inform(check.refusal, check.refusalTitle);
        return;
    }
    const Posting& p = check.posting;
    const QString serverDate = ServerDate(m_ctx.db, s, m_ctx.clock);
    const QString time = serverDate + u' ' + LocalTimeText(m_ctx.clock);
    const QString id = GenerateEntryId(serverDate, m_ctx.clock.secondsSinceMidnight());
    const QString written = m_ctx.db.RunQuery(
        InsertEntryStatement(s.ledgerId(), s.operatorName(), time, id, p.item, p.quantity, p.remark));
    if (written != QLatin1String("OK")) {
        m_ctx.dialogs.inform(QStringLiteral("连接服务器失败，请重试！"), QStringLiteral("提示"));
        return;
    }

    m_w.quantityBox->clear();
    YieldEvents(7);
    if (m_w.itemBox->findText(p.item) < 0) {
        const QSignalBlocker quiet(m_w.itemBox);
        const QString typed = m_w.itemBox->currentText();
        m_w.itemBox->addItem(p.item);
        m_w.itemBox->setEditText(typed);
        s.addItem(p.item);
    }
    m_w.savedLine->setText(p.numberText + QStringLiteral("  已保存！"));
    if (showsByItself()) {
        if (m_shownItem.isEmpty()) {
            m_shownItem = p.item;
            m_runningTotal = p.quantity;
        } else {
            m_runningTotal += p.quantity;
        }
        showTotal(FormatQuantity(m_runningTotal));
    } else if (m_w.quantityLine->text() != QStringLiteral("新") + s.itemLabel()) {
        showInvitation();
    }
    YieldEvents(2);
    m_w.savedLine->show();
}

void QuickEntry::setAutoShow(bool on)
{
    const Session& s = m_ctx.session;
    m_autoShowSetting = on;
    m_ctx.settings.write(s.ledgerId(), s.operatorName(), kAutoShowKey,
                         on ? QStringLiteral("True") : QStringLiteral("False"));
    if (!showsByItself())
        showInvitation();
    else if (!m_w.itemBox->currentText().isEmpty())
        showQuantityOnce();
}

void QuickEntry::showQuantityOnce()
{
    const QString item = CleanInput(m_w.itemBox->currentText());
    if (item.isEmpty() || !m_ctx.session.hasRight(Right::SeeQuantity))
        return;
    showTotal(readItemTotal(item));
}

QString QuickEntry::readItemTotal(const QString& item)
{
    Database& db = m_ctx.db;
    const QString found = db.RunQuery(QStringLiteral("select sum(SL) from Zhang Where Zbid='") +
                                      SqlLiteral(m_ctx.session.ledgerId()) + QStringLiteral("' and Item='") +
                                      SqlLiteral(item) + QStringLiteral("' group by Zbid,Item"));
    m_runningTotal = NumericValue(found) > 0 ? NumericValue(db.grid().cell(1, 0)) : 0;
    m_shownItem = item;
    return FormatQuantity(m_runningTotal);
}

void QuickEntry::showTotal(const QString& totalText)
{
    m_w.quantityLine->setText(QStringLiteral("当前") + m_ctx.session.quantityLabel() + QStringLiteral("：") +
                              totalText);
    m_w.quantityLine->show();
}

// The status line when the quantity is not shown by itself: an invitation to look, with right 4.
void QuickEntry::showInvitation()
{
    m_w.quantityLine->setText(m_ctx.session.hasRight(Right::SeeQuantity)
                                  ? QStringLiteral("点击这里查看") + m_ctx.session.quantityLabel()
                                  : QString());
}

void QuickEntry::onItemPicked()
{
    if (!m_active)
        return;
    hideConfirmation();
    m_w.quantityLine->show();
    YieldEvents(5);
    if (showsByItself())
        showTotal(readItemTotal(m_w.itemBox->currentText()));
    else
        showInvitation();
}

void QuickEntry::onItemBoxLeft()
{
    hideConfirmation();
    const QString item = CleanInput(m_w.itemBox->currentText());
    m_w.itemBox->setEditText(item);
    if (item.isEmpty())
        return;
    const int index = m_w.itemBox->findText(item, Qt::MatchFixedString);
    if (index >= 0) {
        m_w.itemBox->setCurrentIndex(index);
        onItemPicked();
    } else {
        m_w.quantityLine->setText(QStringLiteral("新") + m_ctx.session.itemLabel());
        m_w.quantityLine->show();
        // A new item has no total yet: the next posting starts its running total afresh.
        m_shownItem.clear();
        m_runningTotal = 0;
    }
}

void QuickEntry::onQuantityTextChanged(const QString& text)
{
    if (!m_active)
        return;
    hideConfirmation();
    const QString signedText = WithAutomaticSign(text);
    if (signedText != text) {
        m_w.quantityBox->setText(signedText);
        m_w.quantityBox->setCursorPosition(int(signedText.size()));
    }
}

void QuickEntry::hideConfirmation()
{
    m_w.savedLine->hide();
}

bool QuickEntry::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_w.itemBox && m_active) {
        if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            if (key == Qt::Key_Return || key == Qt::Key_Enter) {
                m_w.quantityBox->setFocus();
                return true;
            }
        } else if (event->type() == QEvent::FocusOut) {
            // Opening the list or another window taking over is not leaving the box.
            const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
            if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason)
                onItemBoxLeft();
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace lanzhou
