#include "TrendChart.h"

#include "ui_TrendChart.h"

#include "Clock.h"
#include "CsvExport.h"
#include "Database.h"
#include "DateUtils.h"
#include "Dialogs.h"
#include "Session.h"
#include "TrendPlot.h"
#include "WaitCursor.h"
#include "WindowRules.h"

#include <QChart>

namespace lanzhou {

namespace {

// The save dialog's filter, as the system writes it: description, NUL, pattern.
const QString pictureFilter = QStringLiteral("PNG图片") + QChar(0) + QStringLiteral("*.png");

// A name the file system takes: the characters it refuses become "_".
QString fileNameOf(QString text)
{
    for (QChar& c : text)
        if (QStringLiteral("\\/:*?\"<>|").contains(c))
            c = u'_';
    return text;
}

} // namespace

TrendChart::TrendChart(const AppContext& context, const QString& item, QWidget* parent)
    : ListWindow(parent), ui(std::make_unique<Ui::TrendChart>()), m_context(context), m_item(item)
{
    ui->setupUi(this);
    const Session& session = m_context.session;
    setWindowTitle(item + QStringLiteral(" 趋势图"));
    auto* chart = new QChart;
    chart->setTitle(session.itemLabel() + QStringLiteral("：") + item + QStringLiteral(" · ") +
                    session.quantityLabel() + QStringLiteral("走势"));
    // The view lets go of the chart the form made for it without deleting it.
    QChart* formChart = ui->ChartView->chart();
    ui->ChartView->setChart(chart);
    delete formChart;
    ui->ChartView->setRenderHint(QPainter::Antialiasing);
    // Thousands of bars come and go with every drawing: an index of the scene would cost more than it saves.
    ui->ChartView->scene()->setItemIndexMethod(QGraphicsScene::NoIndex);
    m_plot = std::make_unique<TrendPlot>(chart, session.quantityLabel());

    // The last twelve months up to the server's date, the first of them whole; the years the
    // journal's period lists offer.
    const QDate today = ParseDate(session.serverDateText, m_context.clock.today());
    ui->DtpStart->setDateRange(QDate(today.year() - 10, 1, 1), QDate(today.year() + 20, 12, 31));
    ui->DtpEnd->setDateRange(ui->DtpStart->minimumDate(), ui->DtpStart->maximumDate());
    ui->DtpStart->setDate(QDate(today.year(), today.month(), 1).addMonths(-11));
    ui->DtpEnd->setDate(today);
    ui->CmbStep->addItems({QStringLiteral("按日"), QStringLiteral("按周"), QStringLiteral("按月")});

    connect(ui->CmbStep, &QComboBox::currentIndexChanged, this, &TrendChart::plot);
    connect(ui->Cmd_0, &QPushButton::clicked, this, &TrendChart::draw);
    connect(ui->Cmd_1, &QPushButton::clicked, this, [this] {
        if (RequireRight(m_context, Right::Export))
            savePicture();
    });
    connect(ui->Cmd_2, &QPushButton::clicked, this, &QWidget::close);
}

// Out of line, where the form's class is complete.
TrendChart::~TrendChart() = default;

TrendStep TrendChart::step() const
{
    return TrendStep(ui->CmbStep->currentIndex());
}

void TrendChart::draw()
{
    const QDate from = ui->DtpStart->date();
    const QDate to = ui->DtpEnd->date();
    if (from > to) {
        m_context.dialogs.inform(QStringLiteral("开始日期不能晚于结束日期！"));
        return;
    }
    Database& db = m_context.db;
    QString read;
    {
        const WaitCursor hourglass;
        read = db.RunQuery(TrendStatement(db.config().kind, m_context.session.ledgerId(), m_item, from, to));
    }
    if (read.isEmpty()) {
        m_context.dialogs.inform(QStringLiteral("连接服务器失败，请重试！"), QStringLiteral("提示"));
        return;
    }
    m_moves = ReadDailyMoves(db.grid());
    m_from = from;
    m_to = to;
    ui->LabNote->setText(m_moves.days.isEmpty() ? QStringLiteral("该时段内没有账目") : QString());
    plot();
}

void TrendChart::plot()
{
    if (m_from.isValid())
        m_plot->show(TrendPoints(m_moves, m_from, m_to, step()), step());
}

void TrendChart::savePicture()
{
    const QString name =
        fileNameOf(m_item + u' ' + m_context.session.quantityLabel() + QStringLiteral("走势"));
    const QString path =
        AskSaveFileName(m_context, windowTitle() + QStringLiteral(" 保存为图片"),
                        name + QStringLiteral(".png"), pictureFilter, QStringLiteral(".png"));
    if (path.isEmpty())
        return;
    if (!ui->ChartView->grab().save(path, "PNG"))
        m_context.dialogs.inform(QStringLiteral("图片保存失败！"));
}

void OpenTrendChart(const AppContext& context, Right right, const QString& item, QWidget* owner)
{
    if (!RequireRight(context, right))
        return;
    if (item.isEmpty()) {
        context.dialogs.inform(QStringLiteral("请首先选择一个") + context.session.itemLabel() +
                               QStringLiteral("！"));
        return;
    }
    auto* chart = new TrendChart(context, item, owner);
    chart->setWindowFlag(Qt::Window);
    chart->setAttribute(Qt::WA_DeleteOnClose);
    BringForward(chart);
    chart->draw();
}

} // namespace lanzhou
