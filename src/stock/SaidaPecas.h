#pragma once
#include <QList>
#include <QString>
#include <optional>

#include "data/Dinheiro.h"
#include "data/Quantidade.h"

class Banco;

// Parts handed from the stock room to a service order at the counter, and the lists of
// what went to an order or out with a sale. A handed-out part waits on the order like a
// part put there at the bench: it leaves stock once, at the bench's "Consertado." or at
// the till, whichever comes first (EstoqueOrdem), and the order owes it at once.
namespace SaidaPecas {

struct Produto {
    qint64 CodPecAut = 0;
    QString codpeca, Descricao, Unidade, Modulo, Armazenado, Aliquota, Revendedor, Categoria;
    Dinheiro PrecoCusto, PrecoVenda, PrecoMinimo;
};
// The live product with exactly this code (the oldest, when two share it).
std::optional<Produto> produto(Banco& banco, const QString& codpeca);

struct OrdemSaida {
    qint64 CodOsAut = 0;
    qint64 CodOs = 0;
    QString NomeCliente, Tipo, Marca;
    bool Saida = false;
    // "1234 - JOÃO (TV-SONY)", to choose between two orders of one number.
    QString descricao() const;
};
// The live orders with this number; usually one.
QList<OrdemSaida> ordens(Banco& banco, qint64 codOs);

struct Linha {
    qint64 chave = 0;  // PecasAplicadas.CodPecAut; 0 for a sale's rows
    QString Armazenado, codpeca, Descricao, Quantidade;
};
QList<Linha> pecasDaOrdem(Banco& banco, qint64 codOsAut);
// What went out with the sale of an order, by its number.
QList<Linha> pecasDaVenda(Banco& banco, qint64 numeroOs);

// Adds the part to the order and recomputes the order's money, in one transaction. A
// finished order needs DireitoAltOs (OrdemRecusada). Returns the new row's key.
qint64 entregar(Banco& banco, qint64 codOsAut, const Produto& p, Quantidade quantidade, bool ativaSer);
// Removes one part row of the order by its key and recomputes the money, in one
// transaction; the stock is not given back. False when another station removed it first.
bool remover(Banco& banco, qint64 codOsAut, qint64 chavePeca, bool ativaSer);

}
