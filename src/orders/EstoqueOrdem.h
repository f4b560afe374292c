#pragma once
#include <QString>
#include <QStringList>

#include "data/Quantidade.h"

class Banco;

// The two moments at which the parts of an order leave stock: the bench's save as
// "Consertado." and the till's posting, whichever comes first. Each part row keeps how
// much of it has left (BaixaEstoque and QuantidadeBaixada), so a part is never taken
// twice, and a quantity raised later takes only the difference at the next moment.
namespace EstoqueOrdem {

// A part typed by hand ("0000", "S/COd" or no code) has no product and moves nothing.
bool temProduto(const QString& codpeca);

// Lowers a product's stock by a relative update in one statement, so that two stations
// taking the same product at once both count.
void retirar(Banco& banco, const QString& codpeca, Quantidade q);

// The bench's moment, inside the save of an order as "Consertado.". Also marks the rows
// as under stock control. Gives the descriptions of the products that fell under their
// minimum, each of which got a PedidoPeca row ("Pedido estoque").
QStringList baixarNaBancada(Banco& banco, qint64 codOsAut);

// The till's moment, inside the posting. Every part row is tested against its minimum,
// also those taken earlier.
QStringList baixarNoCaixa(Banco& banco, qint64 codOsAut);

}
