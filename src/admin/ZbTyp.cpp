#include "ZbTyp.h"

#include "ui_ZbTyp.h"

#include "AppContext.h"
#include "ContactCheck.h"
#include "Database.h"
#include "DateUtils.h"
#include "Dialogs.h"
#include "EventLoop.h"
#include "KeywordBoxes.h"
#include "LedgerList.h"
#include "LedgerTypes.h"
#include "Session.h"
#include "TextGrid.h"
#include "TextUtils.h"
#include "WindowRules.h"

#include <QEvent>

namespace lanzhou {

namespace {

// Each line of an explanation ends with a carriage return.
QString explanation(const QStringList& lines)
{
    QString text;
    for (const QString& line : lines)
        text += line + QLatin1Char('\r');
    return text;
}

QString contactInfoText()
{
    return explanation({QStringLiteral("您的数据存放在云端服务器上，称为一个“账本”。"),
                        QStringLiteral("一个账本对应一个手机号（或QQ号、或邮箱），"),
                        QStringLiteral("用于明确账本归属，在忘记密码时也用于找回密码。"),
                        QStringLiteral("请准确输入您的手机号码、或QQ号码、或电子邮箱。")});
}

QString nameInfoText()
{
    return explanation({QStringLiteral("请输入账本名称，如："),
                        QStringLiteral("   “现金银行收支账”、“库存物品进出账”、"),
                        QStringLiteral("   “对外应收应付账”、“专项资金消费账”……")});
}

// Labels break lines at line feeds; the explanation keeps its own carriage returns for the messages.
QString labelText(const QString& explanationText)
{
    return QString(explanationText).replace(QLatin1Char('\r'), QLatin1Char('\n')).trimmed();
}

QString promptTitle()
{
    return QStringLiteral("提示");
}

} // namespace

ZbTyp::ZbTyp(const AppContext& context, LedgerList& ledgers, Mode mode, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::ZbTyp>()), m_context(context), m_ledgers(ledgers),
      m_mode(mode), m_openLedgerName(context.session.ledgerName())
{
    m_ui->setupUi(this);
    m_frm = {m_ui->Frm_0, m_ui->Frm_1, m_ui->Frm_2};
    m_cmd = {m_ui->Cmd_0, m_ui->Cmd_1, m_ui->Cmd_2, m_ui->Cmd_3, m_ui->Cmd_4, m_ui->Cmd_5};
    m_opt = {m_ui->Opt_0, m_ui->Opt_1, m_ui->Opt_2, m_ui->Opt_3, m_ui->Opt_4};
    m_txt = {m_ui->Txt_0, m_ui->Txt_1};
    m_labInfo = {m_ui->LabInfo_0, m_ui->LabInfo_1};

    m_labInfo[0]->setText(labelText(contactInfoText()));
    m_labInfo[1]->setText(labelText(nameInfoText()));

    connect(m_cmd[3], &QPushButton::clicked, this, &ZbTyp::lookUpContact);
    connect(m_cmd[5], &QPushButton::clicked, this, &ZbTyp::acceptName);
    connect(m_cmd[0], &QPushButton::clicked, this, &ZbTyp::saveType);
    for (const int closer : {1, 2, 4})
        connect(m_cmd[closer], &QPushButton::clicked, this, &QDialog::reject);

    LimitCharacters(m_ui->TxtZbID, 50);
    LimitCharacters(m_ui->TxtZbNm, 50);
    for (QLineEdit* keyword : std::as_const(m_txt))
        LimitCharacters(keyword, 20);
    m_txt[0]->setText(m_context.session.itemLabel());
    m_txt[1]->setText(m_context.session.quantityLabel());
    // In the list font a blank is half a character wide, so the custom type's blanks hold its keywords.
    for (QRadioButton* option : std::as_const(m_opt))
        option->setFont(TextGrid::listFont());
    for (QLineEdit* keyword : std::as_const(m_txt))
        keyword->setFont(TextGrid::listFont());
    QRadioButton* custom = m_opt[LedgerTypes::custom];
    // The keyword boxes must be able to sit over the caption without covering its neighbours.
    custom->setMinimumHeight(m_txt[0]->sizeHint().height());
    custom->installEventFilter(this);
    // Typing a keyword picks the custom type.
    for (QLineEdit* keyword : std::as_const(m_txt))
        connect(keyword, &QLineEdit::textEdited, custom, [custom] { custom->setChecked(true); });

    switch (m_mode) {
    case Mode::AddLedger:
        setWindowTitle(QStringLiteral("增加账本"));
        showFrame(ContactFrame);
        break;
    case Mode::TypeSettings:
        setWindowTitle(QStringLiteral("账本设置"));
        m_ui->TxtZbID->setText(m_context.session.ledgerId());
        m_ui->TxtZbNm->setText(m_context.session.ledgerName());
        presetTypeOption();
        showFrame(TypeFrame);
        break;
    case Mode::NameOnly:
        setWindowTitle(QStringLiteral("账本名称"));
        m_ui->TxtZbID->setText(m_context.session.ledgerId());
        m_ui->TxtZbNm->setText(m_context.session.ledgerName());
        showFrame(NameFrame);
        break;
    }
}

ZbTyp::~ZbTyp()
{
    DetachHandlers(this);
}

void ZbTyp::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    FitIntoScreen(this);
}

bool ZbTyp::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_opt[LedgerTypes::custom] &&
        (event->type() == QEvent::Resize || event->type() == QEvent::Move))
        PlaceOverBlankRuns(m_opt[LedgerTypes::custom], m_txt);
    return QDialog::eventFilter(watched, event);
}

void ZbTyp::showFrame(Frame frame)
{
    for (int i = 0; i < m_frm.size(); ++i)
        m_frm[i]->setVisible(i == frame);
    // Enter in any box of the frame presses the frame's own button.
    static constexpr int frameButton[] = {3, 5, 0};
    m_cmd[frameButton[frame]]->setDefault(true);

    switch (frame) {
    case ContactFrame:
        m_ui->TxtZbID->setFocus();
        break;
    case NameFrame:
        m_ui->TxtZbNm->setFocus();
        m_ui->TxtZbNm->selectAll();
        break;
    case TypeFrame: {
        QRadioButton* picked = m_opt[0];
        for (QRadioButton* option : std::as_const(m_opt))
            if (option->isChecked())
                picked = option;
        picked->setFocus();
        break;
    }
    }
    // The window takes the size of the frame it shows.
    adjustSize();
}

void ZbTyp::lookUpContact()
{
    const ContactCheck check = CheckContact(m_ui->TxtZbID->text(), ContactKind(m_ui->CmbLX->currentIndex()),
                                            m_ui->CmbLX->currentText());
    m_ui->TxtZbID->setText(check.text);
    if (!check.refusal.isEmpty()) {
        m_context.dialogs.inform(check.refusal);
        return;
    }

    const QString id = check.text;
    Database& db = m_context.db;
    // The runner shows the busy pointer while it asks the server.
    const QString found = db.RunQuery(QStringLiteral("select ZBNM  from zblst Where ZBID='") + id + u'\'');
    if (found.isEmpty()) {
        m_context.dialogs.inform(QStringLiteral("连接服务器失败，请重试！"));
        return;
    }
    if (NumericValue(found) > 0) {
        const int known = m_ledgers.indexOfId(id, Qt::CaseInsensitive);
        m_ledgers.selected = known >= 0 ? known : m_ledgers.append({id, db.grid().cell(1, 0)});
        finishOk();
        return;
    }

    // No ledger under this contact yet: go on to register one.
    m_registering = true;
    Session& session = m_context.session;
    session.setLedgerId(id);
    m_ui->TxtZbNm->setText(m_openLedgerName.isEmpty() ? QStringLiteral("我的云账本")
                                                      : QStringLiteral("新建") + m_openLedgerName);
    showFrame(NameFrame);
}

void ZbTyp::acceptName()
{
    const QString name = CleanLedgerText(m_ui->TxtZbNm->text());
    m_ui->TxtZbNm->setText(name);
    if (name.isEmpty()) {
        m_context.dialogs.inform(nameInfoText());
        return;
    }
    m_context.session.setLedgerName(name);
    if (m_mode == Mode::NameOnly)
        finishOk();
    else
        showFrame(TypeFrame);
}

bool ZbTyp::pickedLabels(QString& itemLabel, QString& quantityLabel)
{
    int picked = LedgerTypes::fallback;
    for (int i = 0; i < m_opt.size(); ++i)
        if (m_opt[i]->isChecked())
            picked = i;
    if (picked != LedgerTypes::custom) {
        const LedgerType type = LedgerTypes::labels(picked);
        itemLabel = type.itemLabel;
        quantityLabel = type.quantityLabel;
        return true;
    }
    for (QLineEdit* keyword : std::as_const(m_txt))
        keyword->setText(CleanInput(keyword->text()));
    itemLabel = m_txt[0]->text();
    quantityLabel = m_txt[1]->text();
    if (itemLabel.isEmpty() || quantityLabel.isEmpty()) {
        m_context.dialogs.inform(QStringLiteral("如果选择自定义账本类型，请输入关键词！"));
        return false;
    }
    return true;
}

void ZbTyp::saveType()
{
    QString itemLabel;
    QString quantityLabel;
    if (!pickedLabels(itemLabel, quantityLabel))
        return;
    if (m_registering) {
        m_context.session.setLabels(itemLabel, quantityLabel);
        if (registerLedger())
            finishOk();
    } else if (updateSettings(itemLabel, quantityLabel)) {
        finishOk();
    }
}

bool ZbTyp::registerLedger()
{
    Session& session = m_context.session;
    Database& db = m_context.db;
    const QString today = ServerDate(db, session, m_context.clock);
    const QString inserted = db.RunQuery(
        QStringLiteral("insert into Zblst (ZBid,ZbNm,Item,SL,Bz,BgDate,NdDate,MB,SalesMan,Msg) values ('") +
        session.ledgerId() + QStringLiteral("','") + session.ledgerName() + QStringLiteral("','") +
        session.itemLabel() + QStringLiteral("','") + session.quantityLabel() +
        QStringLiteral("','自已注册','") + today + QStringLiteral("','','','','您好！')"));
    if (inserted != QLatin1String("OK")) {
        m_context.dialogs.inform(QStringLiteral("注册新账本失败，请检查网络连接是否正常，然后重试！"),
                                 promptTitle());
        // Start again from the contact, as nothing was registered.
        session.setLabels(QString(), session.quantityLabel());
        showFrame(ContactFrame);
        return false;
    }
    // The first operator has no password and no rights string, which grants him every right.
    db.RunQuery(QStringLiteral("insert into UsrLst (Zbid,Usr,Pwd) values ('") + session.ledgerId() +
                QStringLiteral("','管理员','')"));

    const int added = m_ledgers.append({session.ledgerId(), session.ledgerName()});
    YieldEvents();
    m_ledgers.selected = added;
    return true;
}

bool ZbTyp::updateSettings(const QString& itemLabel, const QString& quantityLabel)
{
    const QString id = m_ui->TxtZbID->text();
    const QString name = m_ui->TxtZbNm->text();
    // The ledger's ID and name come from the local list, not from typing: quoted through SqlLiteral.
    const QString updated = m_context.db.RunQuery(
        QStringLiteral("Update Zblst Set ZbNm='") + SqlLiteral(name) + QStringLiteral("', Item='") +
        SqlLiteral(itemLabel) + QStringLiteral("',SL='") + SqlLiteral(quantityLabel) +
        QStringLiteral("' Where Zbid='") + SqlLiteral(id) + u'\'');
    if (updated != QLatin1String("OK")) {
        // The session keeps the labels the server still has.
        m_context.dialogs.inform(QStringLiteral("账本设置保存失败，请检查网络连接是否正常，然后重试！"),
                                 promptTitle());
        return false;
    }
    m_context.session.setLedgerName(name);
    m_context.session.setLabels(itemLabel, quantityLabel);
    return true;
}

void ZbTyp::finishOk()
{
    m_context.session.modalResult = QStringLiteral("OK");
    accept();
}

void ZbTyp::presetTypeOption()
{
    const Session& session = m_context.session;
    const int known = LedgerTypes::find(session.itemLabel(), session.quantityLabel());
    if (known >= 0)
        m_opt[known]->setChecked(true);
    else if (!session.itemLabel().isEmpty() || !session.quantityLabel().isEmpty())
        m_opt[LedgerTypes::custom]->setChecked(true);
}

} // namespace lanzhou
