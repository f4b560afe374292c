#pragma once
#include <QString>
#include <optional>

#include "orders/TravaOrdem.h"

class Banco;
struct Ordem;

// Loads and stores one order with its child rows. The children belong to the order's
// CodOsAut: renaming the customer or two orders whose number and name join into the same
// text never mix them up.
namespace GravacaoOrdem {

// The order with its defects, services and parts (house-call parts stay out).
std::optional<Ordem> carregar(Banco& banco, qint64 codOsAut);

// The order that a panel or a search hands over as its "OS" and "CodAutOs" texts: both
// must match, each compared on its own. `soVivas` leaves deleted orders out (intake).
std::optional<Ordem> reabrir(Banco& banco, const QString& codOs, const QString& codOsAut, bool soVivas = false);

// Which child lists a save writes back: defects and services are rewritten whole, parts
// not yet stored are added and the stored ones updated.
struct Filhas {
    bool sintomas = false;
    bool servicos = false;
    bool pecas = false;
};

// Stores the order and the children named, in one transaction (joining the caller's):
// a failure leaves the order as it was. A new order always takes its number inside it. An order
// that exists is checked against the lock rules of `tela` as it stands in the store,
// and a refused change throws OrdemRecusada. Only the columns changed since the load
// are written.
void gravar(Banco& banco, Ordem& o, const Filhas& filhas, std::optional<TelaOrdem> tela,
            bool copiarFabrica = false);

// Rebuilds Sintoma / ServicoExecutado from the lists: each entry followed by ",".
QString textoDosSintomas(const Ordem& o);
QString textoDosServicos(const Ordem& o);

}
