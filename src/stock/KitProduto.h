#pragma once
#include <QList>
#include <QString>
#include <optional>

#include "data/Dinheiro.h"
#include "data/Quantidade.h"

class Banco;

// One item of a kit: a product sold as part of another.
struct ItemKit {
    QString codpeca;
    QString descricao;
    Quantidade quantidade = Quantidade::unidades(1);
    Dinheiro valorVenda;
    QString fornecedor;

    Dinheiro total() const { return quantidade.vezes(valorVenda); }
};

// The items of a kit, kept under the kit's own code as it stands (the exact text, so
// "005" and "5" are two kits). Deleting a kit into the bin leaves its items, so it comes
// back whole; only a deletion for good removes them.
namespace KitProduto {

QList<ItemKit> carregar(Banco& banco, const QString& codKit);
// Replaces the items of the kit, inside the caller's transaction. A kit whose code
// changed takes its items along: those under the old code go.
void gravar(Banco& banco, const QString& codAntigo, const QString& codNovo, const QList<ItemKit>& itens);
// The items of a code that no product row keeps any longer.
void excluirSemProduto(Banco& banco, const QString& codKit);
Dinheiro soma(const QList<ItemKit>& itens);
// A product as a new item of a kit: one of it at its sale price, with its supplier.
std::optional<ItemKit> itemDoProduto(Banco& banco, qint64 codPecAut);

}
