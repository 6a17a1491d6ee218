#pragma once

#include <QWidget>

namespace lanzhou {

// A window of its own that lists what a long run reads (the journal, the reports). It fits into the
// screen when first shown; closed while a run works, it goes from the screen at once and the run
// stops at its next step, after which the window really closes (the run yields to the event loop
// and must keep its window until then); and it cuts its controls' handlers before they are
// destroyed.
class ListWindow : public QWidget
{
    Q_OBJECT
public:
    explicit ListWindow(QWidget* parent = nullptr) : QWidget(parent) {}
    ~ListWindow() override;

protected:
    bool isBusy() const { return m_busy; }
    void markBusy(bool busy);
    // The window was closed while a run worked: the run stops at its next step and shows nothing.
    bool stopRequested() const { return m_closing; }

    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    bool m_busy = false;
    bool m_closing = false;
    bool m_fitted = false;
};

} // namespace lanzhou
