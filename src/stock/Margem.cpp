#include "stock/Margem.h"

namespace Margem {

std::optional<qint64> deCustoEVenda(Dinheiro custo, Dinheiro venda)
{
    if (custo.centavos() <= 0)
        return std::nullopt;
    return divideArredondando((venda.centavos() - custo.centavos()) * 10000, custo.centavos());
}

Dinheiro vendaDeMargem(Dinheiro custo, qint64 centesimos)
{
    return custo.comPorcentagem(centesimos);
}

std::optional<qint64> lerPorcentagem(const QString& texto)
{
    QString t = texto.trimmed();
    if (t.endsWith(QLatin1Char('%')))
        t.chop(1);
    // A percentage has the same form as an amount: "12,5" is 12,50.
    const auto d = Dinheiro::lerTexto(t.trimmed());
    if (!d || t.trimmed().isEmpty())
        return std::nullopt;
    return d->centavos();
}

QString textoPorcentagem(qint64 centesimos)
{
    return Dinheiro::deCentavos(centesimos).texto() + QLatin1Char('%');
}

}
