#pragma once
#include <QString>
#include <QStringList>

#include "data/Quantidade.h"

class Banco;

// The rules of the product table that more than one screen needs: the code a new
// product is offered, the code that must stay unique among live products, the stock
// moved by difference, and the automatic line of the material order.
namespace Produtos {

// The code offered to a new product: the number at the start of the last thirteen
// characters of each code, the highest of them plus one. Deleted products count, so a
// code in the bin is never offered again ("80" deleted after 1 to 79: 81).
qint64 proximoCodigo(Banco& banco);
// The number a code gives for that rule ("ABC123" gives 0).
qint64 numeroDoCodigo(const QString& codpeca);

// Another live product (not the row `excetoChave`) already has the code.
bool codigoEmUso(Banco& banco, const QString& codpeca, qint64 excetoChave);
inline const QString MensagemCodigoEmUso = QStringLiteral("Já existe produto com este código interno.");

// Adds a difference to the stock of one product row in one relative statement, so that
// what the till or the bench took meanwhile is kept.
void somaEstoque(Banco& banco, qint64 codPecAut, Quantidade diferenca);

// After a product's stock went down: when the live product of that exact code stands
// below its minimum, a line "Estoque" is added to the material order. The line and the
// notice carry the part's own description when one is given (an order's part row),
// the product's otherwise. Gives that description, or nothing.
QString pedeSeAbaixoDoMinimo(Banco& banco, const QString& codpeca, const QString& descricaoDaPeca = {});

// The makes and the resellers the register offers: the suppliers' company names and
// reseller names, each once, in order.
struct NomesFornecedores {
    QStringList fabricantes;
    QStringList revendedores;
};
NomesFornecedores nomesFornecedores(Banco& banco);

}
