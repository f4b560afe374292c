#include "orders/ValoresOrdem.h"

#include "orders/Ordem.h"

namespace ValoresOrdem {

namespace {

// quantity × amount summed exactly, in thousandths of a cent, and rounded once.
Dinheiro somaExata(const QList<PecaAplicada>& pecas, Dinheiro PecaAplicada::*valor)
{
    qint64 milesimosDeCentavo = 0;
    for (const PecaAplicada& p : pecas)
        milesimosDeCentavo += p.Quantidade.milesimos() * (p.*valor).centavos();
    return Dinheiro::deCentavos(divideArredondando(milesimosDeCentavo, 1000));
}

} // namespace

Dinheiro totalServico(const ServicoOrdem& s) { return s.ValorObra - s.ValorDesconto; }

Dinheiro totalPeca(const PecaAplicada& p) { return p.Quantidade.vezes(p.ValorVenda - p.ValorDesconto); }

ValoresCalculados calcular(const QList<ServicoOrdem>& servicos, const QList<PecaAplicada>& pecas, bool ativaSer,
                           Dinheiro maoObraDigitada)
{
    ValoresCalculados v;
    if (ativaSer) {
        for (const ServicoOrdem& s : servicos)
            v.MaoObra += totalServico(s);
    } else {
        v.MaoObra = maoObraDigitada;
    }
    for (const PecaAplicada& p : pecas)
        v.ValorVenda += totalPeca(p);
    v.ValorPecas = somaExata(pecas, &PecaAplicada::ValorCusto);
    v.ValorDescontoPeca = somaExata(pecas, &PecaAplicada::ValorDesconto);
    v.ValorPagar = v.MaoObra + v.ValorVenda;
    return v;
}

void recalcular(Ordem& o, bool ativaSer)
{
    for (PecaAplicada& p : o.pecas)
        p.ValorTotal = totalPeca(p);
    const ValoresCalculados v = calcular(o.servicos, o.pecas, ativaSer, o.MaoObra);
    o.MaoObra = v.MaoObra;
    o.ValorVenda = v.ValorVenda;
    o.ValorPecas = v.ValorPecas;
    o.ValorDescontoPeca = v.ValorDescontoPeca;
    o.ValorPagar = v.ValorPagar;
}

Dinheiro valorPagarNaEntrega(Dinheiro maoObra, const QList<PecaAplicada>& pecas)
{
    Dinheiro total = maoObra;
    for (const PecaAplicada& p : pecas)
        total += p.Quantidade.vezes(p.ValorVenda);
    return total;
}

std::optional<Dinheiro> lerValor(const QString& texto, const QString& campo, QString* erro)
{
    const auto v = Dinheiro::lerTexto(texto);
    if (!v && erro)
        *erro = QStringLiteral("O valor \"%1\" em %2 não é um valor válido. Digite o valor com vírgula, como 1.234,56.")
                    .arg(texto.trimmed(), campo);
    return v;
}

}
