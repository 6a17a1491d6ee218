#pragma once

#include <QWidget>

#include <span>

class QListWidget;
class QPushButton;

namespace lanzhou {

class TextGrid;

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
    // Marks the window busy or idle, shows the caption on its waiting button while busy and keeps its
    // commands from a second click meanwhile.
    void showBusy(bool busy, QPushButton* waitButton, std::span<QPushButton* const> commands,
                  const QString& caption);
    // The window was closed while a run worked: the run stops at its next step and shows nothing.
    bool stopRequested() const { return m_closing; }

    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    bool m_busy = false;
    bool m_closing = false;
    bool m_fitted = false;
};

// Readies a list for drawn lines: the list font, lines of one height kept whole, scrolled sideways.
void PrepareLineList(QListWidget* list);
// Adds drawn lines to a list so that it scrolls sideways to the end of the longest line.
void AddDrawnLines(QListWidget* list, const TextGrid& grid, const QStringList& lines);

} // namespace lanzhou
