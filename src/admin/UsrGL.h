#pragma once

#include "AppContext.h"

#include <QDialog>
#include <QList>
#include <QStringList>

#include <memory>

class QCheckBox;
class QPushButton;

namespace Ui {
class UsrGL;
}

namespace lanzhou {

// The operator window: lists the open ledger's operators, adds and deletes them and edits their
// rights in the rights editor. Every change goes straight to the server; the session's operator list
// follows each addition and deletion, and the logged-in operator's own rights take effect at once.
class UsrGL : public QDialog
{
    Q_OBJECT
public:
    explicit UsrGL(const AppContext& context, QWidget* parent = nullptr);
    ~UsrGL() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fillList();
    // Selects a row as a click would, and shows it even when it was selected already.
    void selectRow(int row);
    void showRow(int row);
    // False (after saying so) when the operator's rights cannot be read from the server.
    bool readRights(const QString& name, QString& rights);
    void showRights(const QString& rights);
    QString checkedRights() const;
    void onBoxToggled(bool checked);
    void setBrowseMode(bool browse);
    void setButtonsEnabled(bool enabled);

    void add();
    void edit();
    void save();
    bool saveNewOperator(const QString& rights);
    bool saveRights(const QString& rights);
    void cancel();
    void remove();
    void addWithPassword();
    // Appends a row whose rights are not read yet, and selects it.
    void appendOperator(const QString& name);

    std::unique_ptr<Ui::UsrGL> m_ui;
    const AppContext m_context;
    QList<QPushButton*> m_cmd;
    QList<QCheckBox*> m_chk;
    // Row for row beside Lst: each operator's rights string; empty while not read yet.
    QStringList m_lstQx;
    bool m_editing = false;
    bool m_adding = false;
    // The row shown before an addition, shown again when the addition is cancelled.
    int m_rowBeforeAdd = 1;
};

} // namespace lanzhou
