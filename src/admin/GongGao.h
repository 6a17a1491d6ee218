#pragma once

#include "AppContext.h"

#include <QColor>
#include <QDialog>
#include <QList>

#include <memory>

class QLabel;
class QPushButton;

namespace Ui {
class GongGao;
}

namespace lanzhou {

// The announcement window: edits the open ledger's announcement, a coloured text that every operator
// sees in the main window. Publishing or clearing it changes the ledger row and then the session's
// announcement, which the main window shows; the window closes after either.
class GongGao : public QDialog
{
    Q_OBJECT
public:
    // background: the colour of the main window's announcement area, which the text box takes.
    GongGao(const AppContext& context, const QColor& background, QWidget* parent = nullptr);
    ~GongGao() override;

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QColor textColour() const;
    void setTextColour(const QColor& colour);
    void publish();
    void clear();
    // Runs the statement; false (after saying so) when the server did not take it.
    bool write(const QString& sql);

    std::unique_ptr<Ui::GongGao> m_ui;
    // The services themselves are referenced; the bundle is copied.
    const AppContext m_context;

    QList<QPushButton*> m_cmd;
    QList<QLabel*> m_lab;
};

} // namespace lanzhou
