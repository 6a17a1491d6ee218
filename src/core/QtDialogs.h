#pragma once

#include "Dialogs.h"

class QWidget;

namespace lanzhou {

// Real message boxes and file dialogs, owned by (and centred on) the active window.
class QtDialogs final : public Dialogs
{
public:
    DialogAnswer show(const QString& text, const QString& title, DialogIcon icon, DialogButtons buttons,
                      DialogAnswer defaultAnswer) override;
    QString inputText(const QString& prompt, const QString& title, const QString& initial) override;
    QString saveFileName(const QString& title, const QString& folder, const QString& filter) override;
};

} // namespace lanzhou
