#pragma once

#include "AppContext.h"

#include <QDialog>
#include <QList>

#include <memory>

class QProgressBar;

namespace Ui {
class ZbCopy;
}

namespace lanzhou {

// The ledger copy window: copies the open ledger, with its operators and all its entries, into the
// ledger database at the address typed, as a shop does when it moves to a shared server. The copy
// runs with the window's events flowing, so that each table's progress shows and the copy can be
// cancelled; cancelled or failed, it leaves the target as it was.
class ZbCopy : public QDialog
{
    Q_OBJECT
public:
    explicit ZbCopy(const AppContext& context, QWidget* parent = nullptr);
    ~ZbCopy() override;

public slots:
    // Closing while a copy runs cancels it; the window goes once the target has been rolled back.
    void reject() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void copy();
    void showProgress(const QString& table, qint64 done, qint64 total);
    void setCopying(bool copying);

    std::unique_ptr<Ui::ZbCopy> m_ui;
    // The services themselves are referenced; the bundle is copied.
    const AppContext m_context;
    QList<QProgressBar*> m_bars;
    bool m_copying = false;
    bool m_cancelled = false;
    bool m_closeAfterCopy = false;
};

} // namespace lanzhou
