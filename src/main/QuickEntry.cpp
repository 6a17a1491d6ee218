// Quick entry on the entry panel: the item box, the quantity box and posting one movement.
#include "Kuang.h"

#include "ui_Kuang.h"

#include "Clock.h"
#include "Database.h"
#include "DateUtils.h"
#include "Dialogs.h"
#include "EntryStatements.h"
#include "EventLoop.h"
#include "QuickEntryRules.h"
#include "Session.h"
#include "TextUtils.h"

namespace lanzhou {

void Kuang::postEntry()
{
    Session& s = m_ctx.session;
    if (HasNoPostingRight(s.rights())) {
        m_ctx.dialogs.inform(NoPostingRightText(), QStringLiteral("提示"));
        return;
    }
    ui->Cmb->setEditText(CleanInput(ui->Cmb->currentText()));
    ui->Txt->setText(CleanInput(ui->Txt->text()));
    const PostingCheck check = CheckPosting({s.rights(), ui->Cmb->currentText(), ui->Txt->text(),
                                             s.itemLabel(), s.quantityLabel(), ui->Lab2->text()});
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

    ui->Txt->clear();
    YieldEvents(7);
    if (ui->Cmb->findText(p.item) < 0) {
        const QSignalBlocker quiet(ui->Cmb);
        const QString typed = ui->Cmb->currentText();
        ui->Cmb->addItem(p.item);
        ui->Cmb->setEditText(typed);
        s.addItem(p.item);
    }
    ui->Lab5->setText(p.numberText + QStringLiteral("  已保存！"));
    if (m_autoShowQuantity) {
        if (m_shownItem.isEmpty()) {
            m_shownItem = p.item;
            m_runningTotal = p.quantity;
        } else {
            m_runningTotal += p.quantity;
        }
        ui->Lab4->setText(QStringLiteral("当前") + s.quantityLabel() + QStringLiteral("：") +
                          FormatQuantity(m_runningTotal));
        ui->Lab4->show();
    } else if (ui->Lab4->text() != QStringLiteral("新") + s.itemLabel()) {
        showQuantityLine();
    }
    YieldEvents(2);
    ui->Lab5->show();
}

void Kuang::fillItems(const QStringList& items)
{
    const QSignalBlocker quiet(ui->Cmb);
    ui->Cmb->clear();
    ui->Cmb->addItems(items);
    ui->Cmb->setCurrentIndex(-1);
    m_ctx.session.setItems(items);
}

QString Kuang::ShowItemTotal(const QString& item)
{
    Database& db = m_ctx.db;
    const QString found = db.RunQuery(QStringLiteral("select sum(SL) from Zhang Where Zbid='") +
                                      SqlLiteral(m_ctx.session.ledgerId()) + QStringLiteral("' and Item='") +
                                      SqlLiteral(item) + QStringLiteral("' group by Zbid,Item"));
    m_runningTotal = NumericValue(found) > 0 ? NumericValue(db.grid().cell(1, 0)) : 0;
    m_shownItem = item;
    return FormatQuantity(m_runningTotal);
}

// The status line when the quantity is not shown by itself: an invitation to look, with right 4.
void Kuang::showQuantityLine()
{
    ui->Lab4->setText(m_ctx.session.hasRight(Right::SeeQuantity)
                          ? QStringLiteral("点击这里查看") + m_ctx.session.quantityLabel()
                          : QString());
}

void Kuang::onItemPicked()
{
    if (m_panel != EntryPanel)
        return;
    hideConfirmation();
    ui->Lab4->show();
    YieldEvents(5);
    if (m_autoShowQuantity)
        ui->Lab4->setText(QStringLiteral("当前") + m_ctx.session.quantityLabel() + QStringLiteral("：") +
                          ShowItemTotal(ui->Cmb->currentText()));
    else
        showQuantityLine();
}

void Kuang::onItemBoxLeft()
{
    hideConfirmation();
    const QString item = CleanInput(ui->Cmb->currentText());
    ui->Cmb->setEditText(item);
    if (item.isEmpty())
        return;
    const int index = ui->Cmb->findText(item, Qt::MatchFixedString);
    if (index >= 0) {
        ui->Cmb->setCurrentIndex(index);
        onItemPicked();
    } else {
        ui->Lab4->setText(QStringLiteral("新") + m_ctx.session.itemLabel());
        ui->Lab4->show();
        // A new item has no total yet: the next posting starts its running total afresh.
        m_shownItem.clear();
        m_runningTotal = 0;
    }
}

void Kuang::onQuantityTextChanged(const QString& text)
{
    if (m_panel != EntryPanel)
        return;
    hideConfirmation();
    const QString signedText = WithAutomaticSign(text);
    if (signedText != text) {
        ui->Txt->setText(signedText);
        ui->Txt->setCursorPosition(int(signedText.size()));
    }
}

void Kuang::hideConfirmation()
{
    ui->Lab5->hide();
}

} // namespace lanzhou
