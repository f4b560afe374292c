#pragma once
#include <QList>
#include <QString>
#include <optional>

#include "data/Dinheiro.h"
#include "data/Quantidade.h"

class Banco;

// House calls: their numbers, their parts and money, the call that fetches an appliance
// for an order at the counter, and the posting of a visit's money to the cash book. A
// visit's parts live in PecasAplicadas beside the orders' parts, told apart by TipoVisita
// and found only by the visit's own number, so an order of the same number or a customer
// of a similar name never shares them.
namespace Visitas {

inline const QString Tabela = QStringLiteral("VisitaTecnico");
inline const QString TipoVisita = QStringLiteral("VisitaTecnico");
inline const QString MsgNome = QStringLiteral("Coloque o nome do cliente");

// One row of the parts grid. An empty quantity counts one, an empty price zero.
struct PecaVisita {
    QString descricao;
    QString codPeca;  // "S/COd" when none was chosen
    Quantidade quantidade = Quantidade::unidades(1);
    Dinheiro valorVenda, valorCusto;
    Dinheiro total() const { return quantidade.vezes(valorVenda); }
};

struct Totais {
    Dinheiro venda;  // quantity times the sale price, over the rows with a description
    Dinheiro pecas;  // quantity times the cost
    Dinheiro pagar;  // venda plus labour
};
Totais totais(const QList<PecaVisita>& pecas, Dinheiro maoObra);

// A grid cell as typed: nothing when it isn't a number ("1,,5", "A").
std::optional<Quantidade> lerQuantidade(const QString& texto);
std::optional<Dinheiro> lerValor(const QString& texto);

// The service date as typed or as the attended button wrote it ("07/11/2025" or
// "2025/11/07") in the form it is stored, "" when empty; nothing for a date that
// doesn't exist.
std::optional<QString> dataAtendidaParaBanco(const QString& texto);

QList<PecaVisita> pecas(Banco& banco, qint64 codManu);
// The users who may be sent on a call, by name.
QStringList tecnicos(Banco& banco);
// Replaces the visit's parts by these (rows without a description are left out); joins
// the caller's transaction, so the visit and its parts are stored together.
void gravarPecas(Banco& banco, qint64 codManu, const QString& nomeCliente, const QList<PecaVisita>& pecas);
void excluirPecas(Banco& banco, qint64 codManu);

// The call that fetches the appliance of a stored order: a new visit waiting to be
// served, whose request names the order. Returns its number.
struct PedidoEntrada {
    QString codCliente, nomeCliente, endereco;
    qint64 codOs = 0;  // must be a stored order's number
};
QString solicitacaoEntrada(qint64 codOs);
qint64 pedirDaEntrada(Banco& banco, const PedidoEntrada& pedido);
inline QString textoNumero(qint64 codManu) { return QStringLiteral("OS de visita nº  ") + QString::number(codManu); }

// Posts a served visit's money to the cash book: one VendaDetalhada and one Movimento
// row, in one transaction. Kept ready for a shop that wants its visits there; closing a
// visit posts nothing by itself.
struct Caixa {
    qint64 codManu = 0;
    QString nomeCliente, tecnico, usuario;
    Dinheiro maoObra, valorVenda, valorPecas;
    bool horaPendente = false;  // CfgOsCaixa: the hour is filled when the cash is closed
};
void lancarCaixa(Banco& banco, const Caixa& c);

}
