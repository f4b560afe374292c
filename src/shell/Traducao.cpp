#include "shell/Traducao.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace Traducao {

bool instalar()
{
    static bool instalado = false;
    if (instalado)
        return true;
    const QLocale brasil(QLocale::Portuguese, QLocale::Brazil);
    const QString pasta = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    bool algum = false;
    // "qt" gathers the catalogues of every module present (base, multimedia...);
    // "qtbase" alone still serves a system where only that one is installed.
    for (const char* nome : {"qt", "qtbase"}) {
        auto* t = new QTranslator(QCoreApplication::instance());
        if (t->load(brasil, QLatin1String(nome), QStringLiteral("_"), pasta)) {
            QCoreApplication::installTranslator(t);
            algum = true;
            break;
        }
        delete t;
    }
    instalado = algum;
    return algum;
}

}
