#include "stock/KitProduto.h"

#include <QSqlQuery>

#include "data/Banco.h"

namespace KitProduto {

namespace {
// Text columns hold "" for nothing, never NULL.
QString texto(const QString& t) { return t.isNull() ? QStringLiteral("") : t; }
} // namespace

QList<ItemKit> carregar(Banco& banco, const QString& codKit)
{
    QList<ItemKit> itens;
    QSqlQuery q = banco.executar(QStringLiteral("SELECT codpeca, Descricao, Quantidade, ValorVenda, Fornecedor "
                                                "FROM kitVenda WHERE CodKit = ? ORDER BY Chave"), {codKit});
    while (q.next()) {
        ItemKit i;
        i.codpeca = q.value(0).toString();
        i.descricao = q.value(1).toString();
        i.quantidade = q.value(2).isNull() ? Quantidade::unidades(1) : Quantidade::deMilesimos(q.value(2).toLongLong());
        i.valorVenda = Dinheiro::deCentavos(q.value(3).toLongLong());
        i.fornecedor = q.value(4).toString();
        itens << i;
    }
    return itens;
}

void gravar(Banco& banco, const QString& codAntigo, const QString& codNovo, const QList<ItemKit>& itens)
{
    if (!codAntigo.isEmpty() && codAntigo != codNovo)
        banco.executar(QStringLiteral("DELETE FROM kitVenda WHERE CodKit = ?"), {codAntigo});
    banco.executar(QStringLiteral("DELETE FROM kitVenda WHERE CodKit = ?"), {codNovo});
    for (const ItemKit& i : itens)
        banco.executar(QStringLiteral("INSERT INTO kitVenda (CodKit, codpeca, Descricao, Quantidade, ValorVenda, "
                                      "ValorTotal, Fornecedor) VALUES (?, ?, ?, ?, ?, ?, ?)"),
                       {texto(codNovo), texto(i.codpeca), texto(i.descricao), i.quantidade.milesimos(),
                        i.valorVenda.centavos(), i.total().centavos(), texto(i.fornecedor)});
}

void excluirSemProduto(Banco& banco, const QString& codKit)
{
    // Two products with one code share one kit: it stays while either remains.
    if (!banco.escalar(QStringLiteral("SELECT 1 FROM Produto WHERE codpeca = ? LIMIT 1"), {codKit}).isNull())
        return;
    banco.executar(QStringLiteral("DELETE FROM kitVenda WHERE CodKit = ?"), {codKit});
}

Dinheiro soma(const QList<ItemKit>& itens)
{
    Dinheiro s;
    for (const ItemKit& i : itens)
        s += i.total();
    return s;
}

std::optional<ItemKit> itemDoProduto(Banco& banco, qint64 codPecAut)
{
    QSqlQuery q = banco.executar(QStringLiteral("SELECT codpeca, Descricao, PrecoVenda, Revendedor FROM Produto "
                                                "WHERE CodPecAut = ?"), {codPecAut});
    if (!q.next())
        return std::nullopt;
    ItemKit i;
    i.codpeca = q.value(0).toString();
    i.descricao = q.value(1).toString();
    i.valorVenda = Dinheiro::deCentavos(q.value(2).toLongLong());
    i.fornecedor = q.value(3).toString();
    return i;
}

}
