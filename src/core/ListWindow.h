#pragma once

#include <QWidget>

namespace lanzhou {

// A window of its own that lists what a long run reads (the journal, the reports). It fits into the
// screen when first shown; while a run works it refuses to close, because the run yields to the
// event loop and must keep its window; and it cuts its controls' handlers before they are destroyed.
class ListWindow : public QWidget
{
    Q_OBJECT
public:
    explicit ListWindow(QWidget* parent = nullptr) : QWidget(parent) {}
    ~ListWindow() override;

protected:
    bool isBusy() const { return m_busy; }
    void markBusy(bool busy) { m_busy = busy; }

    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    bool m_busy = false;
    bool m_fitted = false;
};

} // namespace lanzhou
