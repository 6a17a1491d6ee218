#include "UsrPwd.h"

#include "ui_UsrPwd.h"

#include "Database.h"
#include "Dialogs.h"
#include "Session.h"
#include "TextUtils.h"
#include "WindowRules.h"

namespace lanzhou {

namespace {

QString failedText()
{
    return QStringLiteral("连接服务器失败，请重试！");
}

} // namespace

UsrPwd::UsrPwd(const AppContext& context, Mode mode, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::UsrPwd>()), m_context(context), m_mode(mode)
{
    m_ui->setupUi(this);
    m_txt = {m_ui->Txt_0, m_ui->Txt_1, m_ui->Txt_2};
    m_cmd = {m_ui->Cmd_0, m_ui->Cmd_1};
    connect(m_cmd[0], &QPushButton::clicked, this, &UsrPwd::confirm);
    connect(m_cmd[1], &QPushButton::clicked, this, &QDialog::reject);

    const Session& session = m_context.session;
    m_ui->LabZB->setText(QStringLiteral("账本名称： ") + session.ledgerName());
    if (m_mode == Mode::ChangePassword) {
        setWindowTitle(QStringLiteral(" 修改密码"));
        // The locked name box is what makes this a password change.
        m_txt[0]->setText(session.operatorName());
        m_txt[0]->setReadOnly(true);
        m_txt[0]->setFocusPolicy(Qt::NoFocus);
        m_txt[1]->setFocus();
    } else {
        setWindowTitle(QStringLiteral(" 新增操作员"));
        m_txt[0]->setFocus();
    }
}

UsrPwd::~UsrPwd()
{
    DetachHandlers(this);
}

QString UsrPwd::operatorName() const
{
    return m_txt[0]->text();
}

QString UsrPwd::acceptedNewName()
{
    QString name = CleanInput(m_txt[0]->text());
    name.remove(QLatin1Char('|'));
    name.remove(QLatin1Char('-'));
    m_txt[0]->setText(name);
    if (name.isEmpty()) {
        m_context.dialogs.inform(QStringLiteral("请输入新增操作员的姓名！"));
        return QString();
    }
    if (name == QStringLiteral("管理员")) {
        m_context.dialogs.inform(QStringLiteral("新增操作员不能使用“管理员”这个名称！"));
        return QString();
    }
    return name;
}

void UsrPwd::confirm()
{
    const bool newOperator = m_mode == Mode::NewOperator;
    const QString name = newOperator ? acceptedNewName() : m_context.session.operatorName();
    if (name.isEmpty())
        return;
    const QString password = m_txt[1]->text();
    if (password != m_txt[2]->text()) {
        m_context.dialogs.inform(QStringLiteral("两次输入的密码不相同！"));
        return;
    }
    if (password.isEmpty()) {
        m_context.dialogs.inform(QStringLiteral("请两次输入密码，再点击【确定】！"));
        return;
    }

    Database& db = m_context.db;
    const QString id = SqlLiteral(m_context.session.ledgerId());
    if (newOperator) {
        const QString found = db.RunQuery(QStringLiteral("select Usr from UsrLst where  ZBID='") + id +
                                          QStringLiteral("' and Usr='") + name + u'\'');
        if (found.isEmpty()) {
            m_context.dialogs.inform(failedText());
            return;
        }
        if (NumericValue(found) > 0) {
            m_context.dialogs.inform(QStringLiteral("该账本中已经存在 ") + name +
                                     QStringLiteral(" 这个操作员！"));
            return;
        }
    } else {
        // The operator's row is written anew: the new row holds no rights string, which grants every
        // right from his next login on.
        const QString removed = db.RunQuery(QStringLiteral("delete from Usrlst where ZBID='") + id +
                                            QStringLiteral("' and Usr='") + SqlLiteral(name) + u'\'');
        if (removed != QLatin1String("OK")) {
            m_context.dialogs.inform(failedText());
            return;
        }
    }
    // The password is kept exactly as typed, as login compares it: only its apostrophes are doubled.
    const QString written = db.RunQuery(QStringLiteral("insert into Usrlst (ZBID,Usr,PWD) Values ('") + id +
                                        QStringLiteral("','") + SqlLiteral(name) + QStringLiteral("','") +
                                        SqlLiteral(password) + QStringLiteral("')"));
    // Without the new row the window stays open, so that the operator can try again.
    if (written != QLatin1String("OK")) {
        m_context.dialogs.inform(failedText());
        return;
    }
    if (newOperator)
        m_context.session.addOperator(name);
    m_context.session.modalResult = QStringLiteral("OK");
    accept();
}

} // namespace lanzhou
