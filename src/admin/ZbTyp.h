#pragma once

#include "AppContext.h"

#include <QDialog>
#include <QList>

#include <memory>

class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace Ui {
class ZbTyp;
}

namespace lanzhou {

class LedgerList;

// The ledger window: adds a ledger to the local list by its contact ID, registers a new ledger under
// that ID (name, then type), changes the open ledger's type, or asks for a new ledger name.
// It is modal and reports success by setting the session's modal result to "OK" before it closes.
class ZbTyp : public QDialog
{
    Q_OBJECT
public:
    enum class Mode
    {
        AddLedger,
        TypeSettings,
        NameOnly
    };
    ZbTyp(const AppContext& context, LedgerList& ledgers, Mode mode, QWidget* parent = nullptr);
    ~ZbTyp() override;

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum Frame
    {
        ContactFrame,
        NameFrame,
        TypeFrame
    };

    void showFrame(Frame frame);
    void lookUpContact();
    void acceptName();
    void saveType();
    // The labels of the picked type; false (after saying why) when custom keywords are missing.
    bool pickedLabels(QString& itemLabel, QString& quantityLabel);
    bool registerLedger();
    bool updateSettings(const QString& itemLabel, const QString& quantityLabel);
    void finishOk();
    void presetTypeOption();

    std::unique_ptr<Ui::ZbTyp> m_ui;
    // The services themselves are referenced; the bundle is copied.
    const AppContext m_context;
    LedgerList& m_ledgers;
    const Mode m_mode;
    // Set when the contact lookup found no ledger: saving the type frame registers instead of updating.
    bool m_registering = false;
    // The ledger open when the window came up; a new ledger's name is proposed from it.
    const QString m_openLedgerName;

    QList<QFrame*> m_frm;
    QList<QPushButton*> m_cmd;
    QList<QRadioButton*> m_opt;
    QList<QLineEdit*> m_txt;
    QList<QLabel*> m_labInfo;
};

} // namespace lanzhou
