#include "ListWindow.h"

#include "TextGrid.h"
#include "WindowRules.h"

#include <QCloseEvent>
#include <QFontMetrics>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>

#include <cmath>

namespace lanzhou {

ListWindow::~ListWindow()
{
    DetachHandlers(this);
}

void ListWindow::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!std::exchange(m_fitted, true))
        FitIntoScreen(this);
}

void ListWindow::markBusy(bool busy)
{
    m_busy = busy;
    // Closed from the next turn of the event loop, once the run that stopped has returned.
    if (!busy && m_closing)
        QTimer::singleShot(0, this, &QWidget::close);
}

void ListWindow::showBusy(bool busy, QPushButton* waitButton, std::span<QPushButton* const> commands,
                          const QString& caption)
{
    markBusy(busy);
    waitButton->setText(caption);
    waitButton->setVisible(busy);
    for (QPushButton* button : commands)
        button->setEnabled(!busy);
}

void ListWindow::closeEvent(QCloseEvent* event)
{
    if (m_busy) {
        m_closing = true;
        event->ignore();
        hide();
        return;
    }
    m_closing = false;
    QWidget::closeEvent(event);
}

void PrepareLineList(QListWidget* list)
{
    list->setFont(TextGrid::listFont());
    list->setUniformItemSizes(true);
    list->setTextElideMode(Qt::ElideNone);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

void AddDrawnLines(QListWidget* list, const TextGrid& grid, const QStringList& lines)
{
    if (lines.isEmpty())
        return;
    // With uniform item sizes the list gives every line the size of its last one: that line is made
    // as wide as the widest, so that no line is cut and the list scrolls sideways to the end of the
    // longest.
    double widest = 0;
    for (const QString& line : lines)
        widest = qMax(widest, grid.widthPixels(line));
    list->addItems(lines.first(lines.size() - 1));
    const int height = list->count() > 0 ? list->sizeHintForRow(0) : QFontMetrics(list->font()).height();
    auto* last = new QListWidgetItem(lines.last());
    last->setSizeHint(QSize(int(std::ceil(widest)) + 8, height));
    list->addItem(last);
}

} // namespace lanzhou
