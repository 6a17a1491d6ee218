#include "GongGao.h"

#include "ui_GongGao.h"

#include "Announcement.h"
#include "Database.h"
#include "Dialogs.h"
#include "Session.h"
#include "TextUtils.h"
#include "WindowRules.h"

#include <QEvent>

namespace lanzhou {

namespace {

struct OfferedColour
{
    const char16_t* name;
    QRgb rgb;
};

// The colours the labels offer, in the order they stand.
constexpr OfferedColour kColours[] = {
    {u"黑", 0x000000}, {u"红", 0xD00000}, {u"蓝", 0x0000E0}, {u"绿", 0x008000},
    {u"紫", 0x800080}, {u"橙", 0xE07000}, {u"棕", 0x804000}, {u"灰", 0x707070},
};

// Typed text is cleaned line by line, as every typed text is: apostrophes are removed, so none can
// end the quoted value. The line breaks stay: inside the quotes they are safe on every server kind,
// and the announcement keeps its lines.
QString cleanedAnnouncement(const QString& typed)
{
    QStringList lines = typed.split(QLatin1Char('\n'));
    for (QString& line : lines)
        line = CleanInput(line);
    return lines.join(QLatin1Char('\n'));
}

} // namespace

GongGao::GongGao(const AppContext& context, const QColor& background, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::GongGao>()), m_context(context)
{
    m_ui->setupUi(this);
    m_cmd = {m_ui->Cmd_0, m_ui->Cmd_1, m_ui->Cmd_2};
    m_lab = {m_ui->Lab_0, m_ui->Lab_1, m_ui->Lab_2, m_ui->Lab_3,
             m_ui->Lab_4, m_ui->Lab_5, m_ui->Lab_6, m_ui->Lab_7};

    QFont labelFont = m_lab[0]->font();
    labelFont.setBold(true);
    labelFont.setPointSizeF(labelFont.pointSizeF() * 1.4);
    for (int i = 0; i < m_lab.size(); ++i) {
        QLabel* label = m_lab[i];
        label->setText(QString::fromUtf16(kColours[i].name));
        label->setFont(labelFont);
        QPalette palette = label->palette();
        palette.setColor(QPalette::WindowText, QColor(kColours[i].rgb));
        label->setPalette(palette);
        label->setCursor(Qt::PointingHandCursor);
        label->installEventFilter(this);
    }

    connect(m_cmd[0], &QPushButton::clicked, this, &GongGao::publish);
    connect(m_cmd[1], &QPushButton::clicked, this, &QDialog::reject);
    connect(m_cmd[2], &QPushButton::clicked, this, &GongGao::clear);

    QPalette palette = m_ui->Txt->palette();
    palette.setColor(QPalette::Base, background);
    m_ui->Txt->setPalette(palette);
    const Announcement current = Announcement::Parse(m_context.session.announcement());
    setTextColour(current.colour);
    m_ui->Txt->setPlainText(current.text);
    m_ui->Txt->setFocus();
}

GongGao::~GongGao()
{
    DetachHandlers(this);
}

void GongGao::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    FitIntoScreen(this);
}

bool GongGao::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress) {
        for (QLabel* label : std::as_const(m_lab))
            if (watched == label)
                setTextColour(label->palette().color(QPalette::WindowText));
    }
    return QDialog::eventFilter(watched, event);
}

QColor GongGao::textColour() const
{
    return m_ui->Txt->palette().color(QPalette::Text);
}

void GongGao::setTextColour(const QColor& colour)
{
    QPalette palette = m_ui->Txt->palette();
    palette.setColor(QPalette::Text, colour);
    m_ui->Txt->setPalette(palette);
}

void GongGao::publish()
{
    const QString text = cleanedAnnouncement(m_ui->Txt->toPlainText());
    if (text != m_ui->Txt->toPlainText())
        m_ui->Txt->setPlainText(text);
    const QString stored = Announcement::Stored(textColour(), text);
    if (!write(QStringLiteral("update Zblst set GongGao='") + stored + QStringLiteral("' where Zbid='") +
               SqlLiteral(m_context.session.ledgerId()) + u'\''))
        return;
    m_context.session.setAnnouncement(stored);
    accept();
}

void GongGao::clear()
{
    if (!write(QStringLiteral("update Zblst set GongGao='' where Zbid='") +
               SqlLiteral(m_context.session.ledgerId()) + u'\''))
        return;
    m_context.session.setAnnouncement(QString());
    accept();
}

bool GongGao::write(const QString& sql)
{
    if (m_context.db.RunQuery(sql) == QLatin1String("OK"))
        return true;
    m_context.dialogs.inform(QStringLiteral("连接服务器失败，请重试！"));
    return false;
}

} // namespace lanzhou
