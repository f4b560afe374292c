#include "cash/SerieMovimento.h"

#include "data/Datas.h"

namespace SerieMovimento {

bool porMes(const QDate& de, const QDate& ate) { return de.daysTo(ate) + 1 > MaximoDias; }

QList<Ponto> pontos(const MovimentoCaixa::Lista& lista, const QDate& de, const QDate& ate)
{
    QList<Ponto> r;
    if (!de.isValid() || !ate.isValid() || de > ate)
        return r;
    const bool mes = porMes(de, ate);
    auto inicio = [mes](const QDate& d) { return mes ? QDate(d.year(), d.month(), 1) : d; };
    for (QDate d = inicio(de); d <= ate; d = mes ? d.addMonths(1) : d.addDays(1)) {
        Ponto p;
        p.inicio = d;
        p.rotulo = d.toString(mes ? QStringLiteral("MM/yyyy") : QStringLiteral("dd/MM"));
        r << p;
    }
    // The rows come day after day: a date is read once for its run of rows.
    QString diaAnterior;
    qint64 i = -1;
    for (const MovimentoCaixa::Linha& l : lista.linhas) {
        if (l.data != diaAnterior) {
            diaAnterior = l.data;
            const std::optional<QDate> dia = Datas::lerBanco(l.data);
            const QDate chave = dia ? inicio(*dia) : QDate();
            i = !dia ? -1
                : mes ? (chave.year() - r.first().inicio.year()) * 12 + chave.month() - r.first().inicio.month()
                      : r.first().inicio.daysTo(chave);
        }
        if (i < 0 || i >= r.size())
            continue;
        Ponto& p = r[int(i)];
        p.pecas += l.vendido;
        p.maoObra += l.maoObra;
        p.lucro += l.lucroProduto + l.lucroMaoObra - l.descontoVenda;
    }
    return r;
}

}
