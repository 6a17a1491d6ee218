#pragma once

#include "AppContext.h"
#include "PeriodLists.h"

#include <QDialog>

#include <array>
#include <memory>

class QPushButton;

namespace Ui {
class MxEd;
}

namespace lanzhou {

// The entry editor: modifies the entry behind a journal line (tombstone and new entry under a new
// ID), posts a late entry with a time in the past, or deletes the entry it shows.
class MxEd : public QDialog
{
    Q_OBJECT
public:
    enum class Use
    {
        LateEntry,
        Modify
    };
    enum Command
    {
        Save = 0,
        Delete = 1,
        Close = 2
    };

    MxEd(const AppContext& context, Use use, const QStringList& items, QWidget* parent = nullptr);
    ~MxEd() override;

    // Modify: reads the entry into the fields; when it cannot be read, says so and closes.
    void loadEntry(const QString& entryId);
    void runCommand(int index);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void save();
    void deleteEntry();
    // Gives the typed quantity its sign: "5" becomes "+5", ".5" becomes "+0.5".
    void completeSign(const QString& text);
    // The first free ID for the entry time; an ID in use moves the time on by one minute.
    QString newEntryId(QDateTime& when, QString& time);
    void setWaiting(bool waiting);

    std::unique_ptr<Ui::MxEd> ui;
    AppContext m_context;
    Use m_use;
    QString m_entryId;
    PeriodLists m_time;
    std::array<QPushButton*, 3> m_cmd;
};

} // namespace lanzhou
