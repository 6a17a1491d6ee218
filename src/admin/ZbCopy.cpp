#include "ZbCopy.h"

#include "ui_ZbCopy.h"

#include "Database.h"
#include "DbConfig.h"
#include "Dialogs.h"
#include "EventLoop.h"
#include "LedgerCopy.h"
#include "LedgerRows.h"
#include "Session.h"
#include "TextUtils.h"
#include "WindowRules.h"

namespace lanzhou {

ZbCopy::ZbCopy(const AppContext& context, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::ZbCopy>()), m_context(context)
{
    m_ui->setupUi(this);
    m_bars = {m_ui->Bar_0, m_ui->Bar_1, m_ui->Bar_2};
    const Session& session = m_context.session;
    m_ui->LabZB->setText(QStringLiteral("把账本《") + session.ledgerName() + QStringLiteral("》（ID：") +
                         session.ledgerId() +
                         QStringLiteral("）连同操作员和全部账目复制到另一个账本数据库，原数据库保持不变。"));
    connect(m_ui->Cmd_0, &QPushButton::clicked, this, &ZbCopy::copy);
    // While copying the button cancels, the window stays and tells how it ended.
    connect(m_ui->Cmd_1, &QPushButton::clicked, this, [this] {
        if (m_copying)
            m_cancelled = true;
        else
            reject();
    });
}

ZbCopy::~ZbCopy()
{
    DetachHandlers(this);
}

void ZbCopy::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    FitIntoScreen(this);
}

void ZbCopy::reject()
{
    if (!m_copying) {
        QDialog::reject();
        return;
    }
    m_cancelled = true;
    m_closeAfterCopy = true;
}

void ZbCopy::copy()
{
    DbConfig config;
    QString error;
    if (!DbConfig::fromAddress(TrimBlanks(m_ui->TxtTo->text()), &config, &error)) {
        m_context.dialogs.inform(error, QStringLiteral("提示"));
        return;
    }
    setCopying(true);
    Database target(config);
    PacedYield yield;
    const CopyOutcome outcome = CopyLedger(m_context.db, target, m_context.session.ledgerId(),
                                           [&](const QString& table, qint64 done, qint64 total) {
                                               showProgress(table, done, total);
                                               yield();
                                               return !m_cancelled;
                                           });
    setCopying(false);
    m_ui->Lst->clear();
    m_ui->Lst->addItems(outcome.ok ? outcome.lines : QStringList{outcome.error});
    if (m_closeAfterCopy)
        QDialog::reject();
    else if (!outcome.ok)
        m_context.dialogs.inform(outcome.error, QStringLiteral("提示"));
}

void ZbCopy::showProgress(const QString& table, qint64 done, qint64 total)
{
    for (qsizetype i = 0; i < LedgerTables().size(); ++i) {
        if (LedgerTables().at(i).name != table)
            continue;
        m_bars[i]->setValue(total > 0 ? int(done * 100 / total) : 100);
        m_bars[i]->setFormat(QStringLiteral("%1 / %2").arg(done).arg(total));
    }
}

void ZbCopy::setCopying(bool copying)
{
    m_copying = copying;
    m_cancelled = false;
    m_ui->TxtTo->setEnabled(!copying);
    m_ui->Cmd_0->setEnabled(!copying);
    m_ui->Cmd_1->setText(copying ? QStringLiteral("取 消") : QStringLiteral("关 闭"));
    if (!copying)
        return;
    m_ui->Lst->clear();
    for (QProgressBar* bar : std::as_const(m_bars)) {
        bar->setValue(0);
        bar->resetFormat();
    }
}

} // namespace lanzhou
