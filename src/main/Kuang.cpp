#include "Kuang.h"

#include "ui_Kuang.h"

#include "AppConstants.h"
#include "Settings.h"
#include "WindowRules.h"

#include <QKeyEvent>
#include <QTimer>

namespace lanzhou {

Kuang::Kuang(const AppContext& context, QWidget* parent)
    : QMainWindow(parent), m_ctx(context), ui(std::make_unique<Ui::Kuang>())
{
    ui->setupUi(this);
    ui->LabTop->setText(QStringLiteral("岚 舟 云 记 账"));
    ui->CmdWait->hide();
    ui->Cmd->setDefault(true);
    ui->Cmb->installEventFilter(this);
    TakeTypedTextAsIs(ui->Cmb);

    connect(ui->Cmd, &QPushButton::clicked, this, &Kuang::post);
    connect(ui->Cmd2, &QPushButton::clicked, this, &Kuang::removeLedger);
    connect(ui->CmbZbNm, &QComboBox::activated, this, &Kuang::onLedgerPicked);
    // The hidden ID list always follows the name list.
    connect(ui->CmbZbNm, &QComboBox::currentIndexChanged, ui->CmbZbID, &QComboBox::setCurrentIndex);
    connect(ui->CmbUser, &QComboBox::activated, this, &Kuang::onOperatorPicked);
    connect(ui->Chk, &QCheckBox::toggled, this, &Kuang::onAutoLoginToggled);
    connect(ui->Chk2, &QCheckBox::toggled, this, &Kuang::onRememberPasswordToggled);
    connect(ui->Cmb, &QComboBox::activated, this, &Kuang::onItemPicked);
    connect(ui->Cmb, &QComboBox::editTextChanged, this, &Kuang::hideConfirmation);
    connect(ui->Txt, &QLineEdit::textChanged, this, &Kuang::onQuantityTextChanged);
    buildMenus();
    buildReportMenu();

    armLedgerPick();
    showPanel(OpenLedgerPanel);
}

Kuang::~Kuang()
{
    DetachHandlers(this);
}

void Kuang::post()
{
    if (m_busy)
        return;
    m_busy = true;
    ui->Cmd->setEnabled(false);
    switch (m_panel) {
    case OpenLedgerPanel:
        openLedger();
        break;
    case LoginPanel:
        login();
        break;
    case EntryPanel:
        postEntry();
        break;
    }
    hideWait();
    ui->Cmd->setEnabled(true);
    m_busy = false;
}

void Kuang::showWait(const QString& caption)
{
    ui->CmdWait->setText(caption);
    ui->CmdWait->show();
}

void Kuang::hideWait()
{
    ui->CmdWait->hide();
}

void Kuang::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    if (!m_startChecked) {
        m_startChecked = true;
        FitIntoScreen(this);
        // Opens after the window has painted, so that its messages stand over it.
        QTimer::singleShot(0, this, &Kuang::openLastLedgerAtStart);
    }
}

void Kuang::openLastLedgerAtStart()
{
    const QString app = AppConstants::settingsApp();
    const QString tag = AppConstants::settingsTag();
    if (m_ctx.settings.read(app, QStringLiteral("AutoOpen"), tag) != QLatin1String("1") ||
        m_ctx.settings.read(app, QStringLiteral("ZBID"), tag).isEmpty())
        return;
    if (m_panel == OpenLedgerPanel && ui->CmbZbNm->currentIndex() < m_ledgers.size())
        post();
}

void Kuang::keyPressEvent(QKeyEvent* event)
{
    // The boxes leave Enter to the window: a line box after it has finished, a plain list untouched.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        post();
        return;
    }
    QMainWindow::keyPressEvent(event);
}

bool Kuang::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == ui->Cmb && m_panel == EntryPanel) {
        if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            if (key == Qt::Key_Return || key == Qt::Key_Enter) {
                ui->Txt->setFocus();
                return true;
            }
        } else if (event->type() == QEvent::FocusOut) {
            // Opening the list or another window taking over is not leaving the box.
            const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
            if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason)
                onItemBoxLeft();
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

} // namespace lanzhou
