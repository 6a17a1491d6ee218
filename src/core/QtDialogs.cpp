#include "QtDialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>

namespace lanzhou {

namespace {

QMessageBox::Icon toQt(DialogIcon icon)
{
    switch (icon) {
    case DialogIcon::Information:
        return QMessageBox::Information;
    case DialogIcon::Question:
        return QMessageBox::Question;
    case DialogIcon::Warning:
        return QMessageBox::Warning;
    case DialogIcon::Critical:
        return QMessageBox::Critical;
    case DialogIcon::None:
    case DialogIcon::Application:
        break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButton toQt(DialogAnswer answer)
{
    switch (answer) {
    case DialogAnswer::Ok:
        return QMessageBox::Ok;
    case DialogAnswer::Cancel:
        return QMessageBox::Cancel;
    case DialogAnswer::Yes:
        return QMessageBox::Yes;
    case DialogAnswer::No:
        return QMessageBox::No;
    }
    return QMessageBox::NoButton;
}

} // namespace

DialogAnswer QtDialogs::show(const QString& text, const QString& title, DialogIcon icon,
                             DialogButtons buttons, DialogAnswer defaultAnswer)
{
    QMessageBox::StandardButtons qtButtons = QMessageBox::Ok;
    if (buttons == DialogButtons::YesNo)
        qtButtons = QMessageBox::Yes | QMessageBox::No;
    else if (buttons == DialogButtons::OkCancel)
        qtButtons = QMessageBox::Ok | QMessageBox::Cancel;

    // Messages end their lines with carriage returns, which a message box would not break at.
    const QString shown =
        QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    QMessageBox box(toQt(icon), title, shown, qtButtons, QApplication::activeWindow());
    box.setDefaultButton(toQt(defaultAnswer));
    if (icon == DialogIcon::Application && !QApplication::windowIcon().isNull())
        box.setIconPixmap(QApplication::windowIcon().pixmap(64, 64));
    switch (box.exec()) {
    case QMessageBox::Yes:
        return DialogAnswer::Yes;
    case QMessageBox::No:
        return DialogAnswer::No;
    case QMessageBox::Cancel:
        return DialogAnswer::Cancel;
    default:
        return buttons == DialogButtons::YesNo ? DialogAnswer::No : DialogAnswer::Ok;
    }
}

QString QtDialogs::inputText(const QString& prompt, const QString& title, const QString& initial)
{
    bool ok = false;
    const QString text =
        QInputDialog::getText(QApplication::activeWindow(), title, prompt, QLineEdit::Normal, initial, &ok);
    return ok ? text : QString();
}

QString QtDialogs::saveFileName(const QString& title, const QString& folder, const QString& filter)
{
    // The filter comes as the system's record: description, NUL, pattern text. Qt's filter syntax
    // holds globs only, so the dialog gets the description with the pattern's first glob.
    const QString description = filter.section(QChar(0), 0, 0);
    const QString glob = filter.section(QChar(0), 1).section(QLatin1Char(' '), 0, 0);
    const QString qtFilter = glob.isEmpty() ? description : description + QStringLiteral(" (") + glob + u')';
    return QFileDialog::getSaveFileName(QApplication::activeWindow(), title, folder, qtFilter, nullptr,
                                        QFileDialog::DontConfirmOverwrite);
}

} // namespace lanzhou
