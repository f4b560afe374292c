#include "documents/ConfigImpressao.h"

#include "data/ArquivoIni.h"
#include "data/Local.h"
#include "data/Sessao.h"

namespace ConfigImpressao {

bool verdadeiro(const QString& valor)
{
    const QString v = valor.trimmed();
    return v == QLatin1String("1") || v == QLatin1String("-1")
        || v.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0
        || v.compare(QLatin1String("Verdadeiro"), Qt::CaseInsensitive) == 0;
}

QString arquivo()
{
    return sessao().ArquivoIni.isEmpty() ? Local::arquivoIni() : sessao().ArquivoIni;
}

QString ler(const QString& secao, const QString& chave)
{
    return ArquivoIni(arquivo()).ler(secao, chave);
}

QString ler(const QString& chave)
{
    return ler(QStringLiteral("Impressao"), chave);
}

bool ligado(const QString& chave)
{
    return verdadeiro(ler(chave));
}

int copias(const QString& chave)
{
    bool ok = false;
    const int n = ler(chave).trimmed().toInt(&ok);
    if (!ok || n < 1)
        return 1;
    // A slip of the finger (100 in place of 1) shouldn't empty the paper tray.
    return qMin(n, 99);
}

}
