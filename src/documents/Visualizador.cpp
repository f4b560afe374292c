#include "documents/Visualizador.h"

#include <QDesktopServices>
#include <QUrl>

namespace Visualizador {

namespace {
bool doSistema(const QString& arquivo)
{
    // A mail to compose ("mailto:...") goes to the user's mail program, a web address
    // (a WhatsApp chat) to the browser, each as it is, already encoded.
    for (const char* esquema : {"mailto:", "https:", "http:"})
        if (arquivo.startsWith(QLatin1String(esquema), Qt::CaseInsensitive))
            return QDesktopServices::openUrl(QUrl::fromEncoded(arquivo.toUtf8(), QUrl::StrictMode));
    return QDesktopServices::openUrl(QUrl::fromLocalFile(arquivo));
}

std::function<bool(const QString&)>& abridor()
{
    static std::function<bool(const QString&)> f = doSistema;
    return f;
}
} // namespace

bool abrir(const QString& arquivo) { return abridor()(arquivo); }

void definir(std::function<bool(const QString&)> f) { abridor() = f ? std::move(f) : doSistema; }

}
