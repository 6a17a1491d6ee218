#include "MxEd.h"

#include "ui_MxEd.h"

#include "Clock.h"
#include "Database.h"
#include "DateUtils.h"
#include "Dialogs.h"
#include "EntryDeletion.h"
#include "EntryStatements.h"
#include "EventLoop.h"
#include "JournalRights.h"
#include "LedgerItems.h"
#include "Session.h"
#include "TextUtils.h"
#include "WindowRules.h"

namespace lanzhou {

MxEd::MxEd(const AppContext& context, Use use, const QStringList& items, QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::MxEd>()), m_context(context), m_use(use)
{
    ui->setupUi(this);
    const Session& session = m_context.session;
    setWindowTitle(use == Use::Modify ? QStringLiteral("修改账目") : QStringLiteral("漏账补录"));
    ui->LabItm->setText(session.itemLabel() + QStringLiteral("："));
    ui->LabSL->setText(session.quantityLabel() + QStringLiteral("："));
    ui->CmbItm->addItems(items);
    ui->CmbItm->setCurrentIndex(-1);
    TakeTypedTextAsIs(ui->CmbItm);

    m_time = {ui->Cmb_0, ui->Cmb_1, ui->Cmb_2, ui->Cmb_3, ui->Cmb_4};
    const QDate today = ParseDate(session.serverDateText, m_context.clock.today());
    FillPeriodLists(m_time, today.year());
    const QTime now = m_context.clock.now();
    SelectPeriod(m_time, today.year(), today.month(), today.day(), now.hour(), now.minute());
    ClampDayOnChange(m_time);

    m_cmd = {ui->Cmd_0, ui->Cmd_1, ui->Cmd_2};
    for (int i = 0; i < int(m_cmd.size()); ++i)
        connect(m_cmd[i], &QPushButton::clicked, this, [this, i] { runCommand(i); });
    // Only a loaded entry can be deleted; only a late entry may keep the editor open.
    m_cmd[Delete]->setVisible(use == Use::Modify);
    ui->Chk->setVisible(use == Use::LateEntry);

    connect(ui->TxtSL, &QLineEdit::textChanged, this, &MxEd::completeSign);
    connect(ui->TxtSL, &QLineEdit::returnPressed, ui->TxtBZ, [this] { ui->TxtBZ->setFocus(); });
    connect(ui->TxtBZ, &QLineEdit::returnPressed, this, [this] { runCommand(Save); });
}

MxEd::~MxEd()
{
    DetachHandlers(this);
}

void MxEd::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    FitIntoScreen(this);
}

void MxEd::setWaiting(bool waiting)
{
    ui->FrmWait->setVisible(waiting);
    for (QPushButton* button : m_cmd)
        button->setEnabled(!waiting);
    if (waiting)
        YieldEvents();
}

void MxEd::loadEntry(const QString& entryId)
{
    m_entryId = entryId;
    setWaiting(true);
    const QString count = m_context.db.RunQuery(LoadEntryStatement(m_context.session.ledgerId(), entryId));
    setWaiting(false);
    if (count.isEmpty()) {
        m_context.dialogs.inform(QStringLiteral("连接服务器失败！"));
        reject();
        return;
    }
    if (NumericValue(count) <= 0) {
        m_context.dialogs.inform(
            QStringLiteral("您要修改的记录已经被删除！\n请返回\n重新【统计】再进行修改！"));
        reject();
        return;
    }
    const ResultGrid& grid = m_context.db.grid();
    ui->CmbItm->setCurrentText(grid.cell(1, 1));
    ui->TxtSL->setText(FormatQuantity(NumericValue(grid.cell(1, 2))));
    ui->TxtBZ->setText(grid.cell(1, 3));
    // TM is yyyy-mm-dd hh:mm.
    const QString time = grid.cell(1, 0);
    const auto part = [&time](int from, int length) { return int(NumericValue(time.mid(from, length))); };
    SelectPeriod(m_time, part(0, 4), part(5, 2), part(8, 2), part(11, 2), part(14, 2));
}

void MxEd::completeSign(const QString& text)
{
    QString signedText = text;
    signedText.remove(QLatin1Char(' '));
    if (signedText.startsWith(QLatin1Char('.')))
        signedText.prepend(QStringLiteral("+0"));
    else if (!signedText.isEmpty() && !signedText.startsWith(QLatin1Char('+')) &&
             !signedText.startsWith(QLatin1Char('-')))
        signedText.prepend(QLatin1Char('+'));
    if (signedText != text)
        ui->TxtSL->setText(signedText);
}

void MxEd::runCommand(int index)
{
    switch (index) {
    case Save:
        save();
        break;
    case Delete:
        deleteEntry();
        break;
    case Close:
        reject();
        break;
    default:
        break;
    }
}

QString MxEd::newEntryId(QDateTime& when, QString& time)
{
    for (;;) {
        const QString id = EditorEntryId(when);
        if (m_context.db.RunScalar(IdCheckStatement(m_context.session.ledgerId(), id)).isEmpty())
            return id;
        when = when.addSecs(60);
        time = when.toString(QStringLiteral("yyyy-MM-dd hh:mm"));
    }
}

void MxEd::save()
{
    Session& session = m_context.session;
    Dialogs& dialogs = m_context.dialogs;
    QString item = CleanInput(ui->CmbItm->currentText());
    if (item.isEmpty()) {
        dialogs.inform(QStringLiteral("请输入或选择") + session.itemLabel() + QStringLiteral("！"),
                       QStringLiteral("提示"));
        return;
    }
    const QString quantityText = ui->TxtSL->text();
    if (!IsNumber(quantityText)) {
        dialogs.inform(QStringLiteral("请输入") + session.quantityLabel() + QStringLiteral("的数值！"));
        return;
    }
    const double quantity = NumericValue(quantityText);
    item = CollapseDashes(item);
    const QString allItems = AllItemsEntry(session.itemLabel());
    if (item.contains(allItems)) {
        dialogs.inform(session.itemLabel() + QStringLiteral("中不能包含“") + allItems +
                           QStringLiteral("”这样的词！"),
                       QStringLiteral("提示"));
        return;
    }
    const QString remark = CollapseDashes(CleanInput(ui->TxtBZ->text()));
    QString time = PeriodText(m_time);
    QDateTime when = PeriodDateTime(m_time);

    setWaiting(true);
    const QString id = newEntryId(when, time);
    Database& db = m_context.db;
    // Without its tombstone the old entry would stay beside the new one, so a failed tombstone
    // stops the save.
    bool saved = m_use != Use::Modify ||
                 db.RunQuery(ModifyTombstoneStatement(CurrentTombstone(m_context), session.ledgerId(),
                                                      m_entryId)) == QLatin1String("OK");
    if (saved)
        saved = db.RunQuery(InsertEntryStatement(session.ledgerId(), session.operatorName(), time, id, item,
                                                 quantity, remark)) == QLatin1String("OK");
    setWaiting(false);
    if (!saved) {
        dialogs.inform(QStringLiteral("连接服务器失败，请重试！"), QStringLiteral("提示"));
        return;
    }

    QString entryText = item + QLatin1Char(' ') + quantityText;
    if (!remark.isEmpty())
        entryText += QLatin1Char(' ') + remark;
    ui->Lab5->setText(entryText + QStringLiteral(" 已保存！"));
    ui->TxtSL->clear();
    ui->TxtBZ->clear();
    if (m_use == Use::Modify) {
        session.journalRefreshMarker = id;
        accept();
    } else if (ui->Chk->isChecked()) {
        accept();
    } else {
        ui->TxtSL->setFocus();
    }
}

void MxEd::deleteEntry()
{
    if (!RequireRight(m_context, Right::DeleteEntry))
        return;
    if (!ConfirmEntryDeletion(m_context))
        return;
    setWaiting(true);
    const bool deleted = WriteDeleteTombstone(m_context, m_entryId);
    setWaiting(false);
    if (!deleted)
        return;
    m_context.session.journalRefreshMarker = m_entryId;
    accept();
}

} // namespace lanzhou
