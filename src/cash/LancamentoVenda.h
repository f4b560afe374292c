#pragma once
#include <QStringList>
#include <functional>

class Banco;
struct OrdemCaixa;
struct PagamentoCaixa;

// The rows a delivered order leaves behind: stock taken for the parts not yet taken,
// one sale line per part and one for the labour, a copy of each part for the tax note,
// the tax-note row and the cash movement. Only what was not posted before goes in: a
// reopened order posts its new parts and new labour, and the amounts of the till.
namespace LancamentoVenda {

// True when a reopened order brings nothing to post: no amount, no new part, no new
// labour. The till then only closes it.
bool nadaNovo(Banco& banco, const OrdemCaixa& o, const PagamentoCaixa& p);

// Runs inside the till's transaction; marks the parts it posts. Gives the products that
// fell under their minimum.
QStringList lancar(Banco& banco, const OrdemCaixa& o, const PagamentoCaixa& p,
                   const std::function<void(const QString&)>& progresso);

inline const QString TextoBaixa = QStringLiteral("Dando baixa no estoque");
inline const QString TextoMovimento = QStringLiteral("Registrando movimento de caixa");

}
