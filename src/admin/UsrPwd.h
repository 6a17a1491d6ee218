#pragma once

#include "AppContext.h"

#include <QDialog>
#include <QList>

#include <memory>

class QLineEdit;
class QPushButton;

namespace Ui {
class UsrPwd;
}

namespace lanzhou {

// The password window: the logged-in operator sets a new password, or an administrator adds an
// operator with a password to the open ledger. It is modal and reports success by setting the
// session's modal result to "OK" before it closes; a new operator also joins the session's list.
class UsrPwd : public QDialog
{
    Q_OBJECT
public:
    enum class Mode
    {
        ChangePassword,
        NewOperator
    };
    UsrPwd(const AppContext& context, Mode mode, QWidget* parent = nullptr);
    ~UsrPwd() override;

    // The operator whose row the window writes: the logged-in one, or the new one as cleaned.
    QString operatorName() const;

private:
    void confirm();
    // The new operator's name, cleaned and written back; empty (after saying why) when refused.
    QString acceptedNewName();
    bool writeRow(const QString& name, const QString& password);

    std::unique_ptr<Ui::UsrPwd> m_ui;
    const AppContext m_context;
    const Mode m_mode;
    QList<QLineEdit*> m_txt;
    QList<QPushButton*> m_cmd;
};

} // namespace lanzhou
