#pragma once
#include <QList>
#include <QString>
#include <optional>

#include "data/Dinheiro.h"

struct Ordem;
struct ServicoOrdem;
struct PecaAplicada;

// The order's money, worked out from its services and parts in exact cents. Only the
// bench (and the whole-order screen) computes; the delivery screen only re-adds the
// labour and the parts when the labour is changed there.
struct ValoresCalculados {
    Dinheiro MaoObra, ValorVenda, ValorPecas, ValorDescontoPeca, ValorPagar;
};

namespace ValoresOrdem {

// ValorObra minus its discount.
Dinheiro totalServico(const ServicoOrdem& s);
// Quantity × (sale − discount), rounded to the cent: the line total that is printed.
Dinheiro totalPeca(const PecaAplicada& p);

// With `ativaSer` (CfgAtivaSer) MaoObra is the sum of the service totals; without it
// the typed labour stands. ValorVenda is the sum of the printed part totals, so the
// lines add up to it; ValorPecas and ValorDescontoPeca are quantity × cost and quantity ×
// discount summed exactly and rounded once. ValorPagar = MaoObra + ValorVenda.
ValoresCalculados calcular(const QList<ServicoOrdem>& servicos, const QList<PecaAplicada>& pecas,
                           bool ativaSer, Dinheiro maoObraDigitada);

// Runs the computation on the order: every part's ValorTotal and the five columns.
// Any ValorPagar typed by hand gives way here, as it always has.
void recalcular(Ordem& o, bool ativaSer);

// What the delivery screen's parts list owes: the labour typed there plus the parts at
// quantity × unit price, without the discount.
Dinheiro valorPagarNaEntrega(Dinheiro maoObra, const QList<PecaAplicada>& pecas);

// Reads an amount typed in a box. The empty box is "0,00"; a text that is not an amount
// gives nothing and `erro` says which box, so it is refused and never stored as zero.
std::optional<Dinheiro> lerValor(const QString& texto, const QString& campo, QString* erro);

}
