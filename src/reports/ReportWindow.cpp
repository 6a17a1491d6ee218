#include "ReportWindow.h"

#include "Rights.h"

#include <QPushButton>

namespace lanzhou {

ReportWindow::ReportWindow(const AppContext& context, QWidget* parent)
    : ListWindow(parent), m_context(context)
{}

void ReportWindow::setCommandButtons(const std::array<QPushButton*, 3>& buttons)
{
    m_cmd = buttons;
    for (int i = 0; i < int(m_cmd.size()); ++i)
        connect(m_cmd[i], &QPushButton::clicked, this, [this, i] { runCommand(i); });
}

void ReportWindow::runCommand(int index)
{
    if (isBusy())
        return;
    switch (index) {
    case Run:
        runReport();
        break;
    case Export:
        if (RequireRight(m_context, Right::Export))
            exportReport();
        break;
    case Close:
        close();
        break;
    default:
        break;
    }
}

} // namespace lanzhou
