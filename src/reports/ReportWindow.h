#pragma once

#include "AppContext.h"
#include "ListWindow.h"

#include <array>

class QPushButton;

namespace lanzhou {

// What the summary and the balance list share: the command array (run, export under the export right,
// close), which does nothing while a run works.
class ReportWindow : public ListWindow
{
    Q_OBJECT
public:
    enum Command : int
    {
        Run = 0,
        Export = 1,
        Close = 2
    };

    void runCommand(int index);

protected:
    ReportWindow(const AppContext& context, QWidget* parent);
    // Takes the buttons of the command array, each clicking its command.
    void setCommandButtons(const std::array<QPushButton*, 3>& buttons);
    virtual void runReport() = 0;
    virtual void exportReport() = 0;

    AppContext m_context;
    std::array<QPushButton*, 3> m_cmd{};
};

} // namespace lanzhou
