#include "UsrGL.h"

#include "ui_UsrGL.h"

#include "Database.h"
#include "Dialogs.h"
#include "Rights.h"
#include "Session.h"
#include "TextUtils.h"
#include "UsrPwd.h"
#include "WindowRules.h"

#include <QCheckBox>
#include <QEvent>

namespace lanzhou {

namespace {

QString failedText()
{
    return QStringLiteral("连接服务器失败，请重试！");
}

} // namespace

UsrGL::UsrGL(const AppContext& context, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::UsrGL>()), m_context(context)
{
    m_ui->setupUi(this);
    m_cmd = {m_ui->Cmd_0, m_ui->Cmd_1, m_ui->Cmd_2, m_ui->Cmd_3};
    for (int i = 0; i < Rights::count; ++i) {
        QCheckBox* box = findChild<QCheckBox*>(QStringLiteral("Chk_%1").arg(i));
        m_chk.append(box);
        box->installEventFilter(this);
        connect(box, &QCheckBox::toggled, this, &UsrGL::onBoxToggled);
    }

    connect(m_cmd[0], &QPushButton::clicked, this, [this] { m_editing ? save() : remove(); });
    connect(m_cmd[1], &QPushButton::clicked, this, [this] { m_editing ? cancel() : reject(); });
    connect(m_cmd[2], &QPushButton::clicked, this, &UsrGL::edit);
    connect(m_cmd[3], &QPushButton::clicked, this, &UsrGL::add);
    connect(m_ui->CmdPwd, &QPushButton::clicked, this, &UsrGL::addWithPassword);
    connect(m_ui->Lst, &QListWidget::currentRowChanged, this, &UsrGL::showRow);

    m_ui->LabZB->setText(QStringLiteral("账本名称：") + m_context.session.ledgerName());
    setBrowseMode(true);
    fillList();
}

UsrGL::~UsrGL()
{
    DetachHandlers(this);
}

bool UsrGL::eventFilter(QObject* watched, QEvent* event)
{
    // In browse mode the boxes only show the rights: a box that gets the focus hands it to 修 改.
    if (event->type() == QEvent::FocusIn && !m_editing && m_chk.contains(watched))
        m_cmd[2]->setFocus();
    return QDialog::eventFilter(watched, event);
}

void UsrGL::fillList()
{
    const Session& session = m_context.session;
    QListWidget* list = m_ui->Lst;
    {
        const QSignalBlocker quiet(list);
        list->clear();
        m_lstQx.clear();
        // The header is a caption, not an operator: it cannot be picked.
        auto* header = new QListWidgetItem(QStringLiteral("    操作员列表"), list);
        header->setFlags(Qt::NoItemFlags);
        m_lstQx.append(QString());
        list->addItem(session.operatorName());
        m_lstQx.append(session.rights());
        for (const QString& name : session.operators()) {
            if (name == session.operatorName())
                continue;
            list->addItem(name);
            m_lstQx.append(QString());
        }
    }
    selectRow(0);
}

void UsrGL::selectRow(int row)
{
    {
        const QSignalBlocker quiet(m_ui->Lst);
        m_ui->Lst->setCurrentRow(row);
    }
    showRow(row);
}

void UsrGL::showRow(int row)
{
    QListWidget* list = m_ui->Lst;
    if (row < 0 || row >= list->count())
        return;
    // The header stands for the logged-in operator below it.
    if (row == 0 && list->count() >= 2) {
        selectRow(1);
        return;
    }
    const QString name = list->item(row)->text();
    m_ui->Txt->setText(name);
    // The blank row of an addition has no rights yet.
    if (name.isEmpty())
        return;
    QString rights = m_lstQx.at(row);
    if (rights.isEmpty()) {
        if (row == 1) {
            rights = m_context.session.rights();
        } else if (!readRights(name, rights)) {
            selectRow(1);
            return;
        }
    }
    showRights(rights);
    m_lstQx[row] = rights;
}

bool UsrGL::readRights(const QString& name, QString& rights)
{
    Database& db = m_context.db;
    setButtonsEnabled(false);
    const QString found = db.RunQuery(QStringLiteral("select  Qx from UsrLst where Zbid='") +
                                      SqlLiteral(m_context.session.ledgerId()) +
                                      QStringLiteral("' and Usr='") + SqlLiteral(name) + u'\'');
    setButtonsEnabled(true);
    // No row: the server is down, or another administrator has deleted the operator meanwhile.
    if (NumericValue(found) <= 0) {
        m_context.dialogs.inform(QStringLiteral("连接服务器失败，未重读取") + name +
                                 QStringLiteral("信息！\n\n请重试！"));
        return false;
    }
    rights = db.grid().cell(1, 0);
    return true;
}

void UsrGL::showRights(const QString& rights)
{
    // Set from the first box to the last: a box that becomes clear only ever clears boxes after it,
    // which are set afterwards, so the boxes end up showing the string as it stands.
    const QList<bool> checks = Rights::ToChecks(rights);
    for (int i = 0; i < m_chk.size(); ++i)
        m_chk[i]->setChecked(checks.at(i));
}

QString UsrGL::checkedRights() const
{
    QList<bool> checks;
    for (const QCheckBox* box : m_chk)
        checks.append(box->isChecked());
    return Rights::FromChecks(checks);
}

void UsrGL::onBoxToggled(bool checked)
{
    if (checked)
        return;
    QList<bool> checks;
    for (const QCheckBox* box : std::as_const(m_chk))
        checks.append(box->isChecked());
    Rights::ApplyClearRules(checks);
    for (int i = 0; i < m_chk.size(); ++i)
        if (!checks.at(i) && m_chk[i]->isChecked())
            m_chk[i]->setChecked(false);
}

void UsrGL::setBrowseMode(bool browse)
{
    m_editing = !browse;
    m_cmd[0]->setText(browse ? QStringLiteral("删 除") : QStringLiteral("保 存"));
    m_cmd[1]->setText(browse ? QStringLiteral("返 回") : QStringLiteral("取 消"));
    m_cmd[2]->setVisible(browse);
    m_cmd[3]->setVisible(browse);
    m_ui->CmdPwd->setVisible(browse);
    m_ui->Lst->setEnabled(browse);
    // Enter saves while editing; in browse mode it must never press 删 除.
    m_cmd[0]->setDefault(!browse);
    if (browse) {
        m_adding = false;
        m_ui->Txt->setEnabled(false);
        m_chk[0]->setEnabled(true);
    }
}

void UsrGL::setButtonsEnabled(bool enabled)
{
    for (QPushButton* button : std::as_const(m_cmd))
        button->setEnabled(enabled);
    m_ui->CmdPwd->setEnabled(enabled);
}

void UsrGL::add()
{
    m_rowBeforeAdd = m_ui->Lst->currentRow();
    setBrowseMode(false);
    m_adding = true;
    m_ui->Txt->clear();
    m_ui->Txt->setEnabled(true);
    for (QCheckBox* box : std::as_const(m_chk))
        box->setChecked(false);
    appendOperator(QString());
    m_ui->Txt->setFocus();
}

void UsrGL::edit()
{
    setBrowseMode(false);
    // The logged-in operator cannot take the administration right from himself.
    if (m_ui->Lst->currentRow() == 1)
        m_chk[0]->setEnabled(false);
}

void UsrGL::save()
{
    const QString rights = checkedRights();
    if (!(m_adding ? saveNewOperator(rights) : saveRights(rights)))
        return;
    m_context.dialogs.inform(QStringLiteral("保存成功！"));
    setBrowseMode(true);
}

bool UsrGL::saveNewOperator(const QString& rights)
{
    const QString name = CleanInput(m_ui->Txt->text());
    m_ui->Txt->setText(name);
    if (name.isEmpty()) {
        m_context.dialogs.inform(QStringLiteral("请输入新增的操作员姓名！"));
        m_ui->Txt->setFocus();
        return false;
    }
    QListWidget* list = m_ui->Lst;
    const int blank = list->count() - 1;
    for (int row = 1; row < blank; ++row) {
        if (list->item(row)->text() == name) {
            m_context.dialogs.inform(QStringLiteral("账本中已经存在【") + name +
                                     QStringLiteral("】这个操作员，新增的操作员不能重名！"));
            m_ui->Txt->setFocus();
            return false;
        }
    }
    const QString added =
        m_context.db.RunQuery(QStringLiteral("insert into UsrLst(ZbId,Usr,Pwd,Qx) values ('") +
                              SqlLiteral(m_context.session.ledgerId()) + QStringLiteral("','") + name +
                              QStringLiteral("','','") + rights + QStringLiteral("')"));
    if (added != QLatin1String("OK")) {
        m_context.dialogs.inform(failedText());
        return false;
    }
    list->item(blank)->setText(name);
    m_lstQx[blank] = rights;
    m_context.session.addOperator(name);
    return true;
}

bool UsrGL::saveRights(const QString& rights)
{
    const int row = m_ui->Lst->currentRow();
    const QString saved = m_context.db.RunQuery(
        QStringLiteral("update UsrLst set Qx='") + rights + QStringLiteral("' Where Zbid='") +
        SqlLiteral(m_context.session.ledgerId()) + QStringLiteral("' and Usr='") +
        SqlLiteral(m_ui->Lst->item(row)->text()) + u'\'');
    if (saved != QLatin1String("OK")) {
        m_context.dialogs.inform(failedText());
        return false;
    }
    m_lstQx[row] = rights;
    // The logged-in operator's own rights hold from now on, not from his next login.
    if (row == 1)
        m_context.session.setRights(rights);
    return true;
}

void UsrGL::cancel()
{
    const bool adding = m_adding;
    setBrowseMode(true);
    QListWidget* list = m_ui->Lst;
    const int row = list->currentRow();
    if (adding && row == list->count() - 1 && list->item(row)->text().isEmpty()) {
        {
            const QSignalBlocker quiet(list);
            delete list->takeItem(row);
        }
        m_lstQx.removeLast();
        selectRow(m_rowBeforeAdd);
        return;
    }
    // Shows the stored rights again in place of the boxes changed meanwhile.
    selectRow(row);
}

void UsrGL::remove()
{
    const QString name = m_ui->Txt->text();
    if (name.isEmpty()) {
        m_context.dialogs.inform(QStringLiteral("请选择要删除的操作员！"));
        return;
    }
    QListWidget* list = m_ui->Lst;
    const int row = list->currentRow();
    if (row <= 1) {
        m_context.dialogs.inform(QStringLiteral("您不能删除您自已！"));
        return;
    }
    const QString deleted = m_context.db.RunQuery(QStringLiteral("delete from Usrlst where Zbid='") +
                                                  SqlLiteral(m_context.session.ledgerId()) +
                                                  QStringLiteral("' and Usr='") + SqlLiteral(name) + u'\'');
    if (deleted != QLatin1String("OK")) {
        m_context.dialogs.inform(QStringLiteral("连接服务器失败！请重试！"));
        return;
    }
    m_context.session.removeOperator(name);
    {
        const QSignalBlocker quiet(list);
        delete list->takeItem(row);
    }
    m_lstQx.removeAt(row);
    selectRow(1);
    m_context.dialogs.inform(QStringLiteral("删除成功！"));
}

void UsrGL::addWithPassword()
{
    m_context.session.modalResult.clear();
    UsrPwd newOperator(m_context, UsrPwd::Mode::NewOperator, this);
    newOperator.exec();
    if (m_context.session.modalResult == QLatin1String("OK"))
        appendOperator(newOperator.operatorName());
}

void UsrGL::appendOperator(const QString& name)
{
    {
        const QSignalBlocker quiet(m_ui->Lst);
        m_ui->Lst->addItem(name);
    }
    m_lstQx.append(QString());
    selectRow(m_ui->Lst->count() - 1);
}

} // namespace lanzhou
