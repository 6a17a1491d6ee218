#include "Start.h"

#include "ui_Start.h"

#include "AppConstants.h"

namespace lanzhou {

Start::Start(QWidget* parent) : QWidget(parent, Qt::SplashScreen), ui(std::make_unique<Ui::Start>())
{
    ui->setupUi(this);
    ui->Label1->setText(QStringLiteral("正在启动《") + AppConstants::title() + u' ' +
                        AppConstants::versionText() + QStringLiteral("》……"));
}

Start::~Start() = default;

} // namespace lanzhou
