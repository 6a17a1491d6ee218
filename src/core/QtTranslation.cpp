#include "QtTranslation.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace lanzhou {

bool LoadQtChineseTranslation(QCoreApplication* app)
{
    auto* translator = new QTranslator(app);
    if (!translator->load(QLocale(QLocale::Chinese, QLocale::China), QStringLiteral("qtbase"),
                          QStringLiteral("_"), QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        delete translator;
        return false;
    }
    return QCoreApplication::installTranslator(translator);
}

} // namespace lanzhou
