#pragma once

#include "AppContext.h"

#include <QObject>
#include <QStringList>

class QComboBox;
class QLabel;
class QLineEdit;

namespace lanzhou {

// Quick entry on the entry panel: the item box, the quantity box, posting one movement, and the
// item's quantity shown beside the box (by itself, or once on request) under right 4.
class QuickEntry : public QObject
{
    Q_OBJECT
public:
    struct Widgets
    {
        QComboBox* itemBox;     // Cmb
        QLineEdit* quantityBox; // Txt
        QLabel* quantityLine;   // Lab4
        QLabel* savedLine;      // Lab5
    };

    QuickEntry(const AppContext& context, const Widgets& widgets, QObject* parent = nullptr);

    // Fills the item box for the operator who has just logged in and reads his display setting.
    void start(const QStringList& items);
    // Only while the entry panel shows do the boxes react.
    void setActive(bool active) { m_active = active; }
    void post();

    // The operator's "AutoShowSL" setting: true unless he switched the display off.
    bool autoShowSetting() const { return m_autoShowSetting; }
    // Switches the automatic display and remembers it for this operator of this ledger.
    void setAutoShow(bool on);
    // Reads and shows the selected item's quantity once.
    void showQuantityOnce();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool showsByItself() const;
    QString readItemTotal(const QString& item);
    void showTotal(const QString& totalText);
    void showInvitation();
    void onItemPicked();
    void onItemBoxLeft();
    void onQuantityTextChanged(const QString& text);
    void hideConfirmation();

    AppContext m_ctx;
    Widgets m_w;
    bool m_active = false;
    bool m_autoShowSetting = true;
    // The item whose quantity the line shows, and that quantity.
    QString m_shownItem;
    double m_runningTotal = 0;
};

} // namespace lanzhou
