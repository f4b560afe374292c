#include "stock/Produtos.h"

#include <QSqlQuery>

#include "data/Banco.h"
#include "data/Datas.h"
#include "data/Dinheiro.h"

namespace Produtos {

qint64 numeroDoCodigo(const QString& codpeca)
{
    return prefixoNumerico(codpeca.right(13));
}

qint64 proximoCodigo(Banco& banco)
{
    // The codes are text, so no index order gives the highest number ("9" sorts after
    // "80"): every code is read, which a click on "Incluir" can afford.
    QSqlQuery q = banco.executar(QStringLiteral("SELECT codpeca FROM Produto"));
    qint64 maior = 0;
    while (q.next())
        maior = std::max(maior, numeroDoCodigo(q.value(0).toString()));
    return maior + 1;
}

bool codigoEmUso(Banco& banco, const QString& codpeca, qint64 excetoChave)
{
    return !banco.escalar(QStringLiteral("SELECT 1 FROM Produto WHERE codpeca = ? AND Excluidos = 0 "
                                         "AND CodPecAut <> ? LIMIT 1"),
                          {codpeca, excetoChave}).isNull();
}

void somaEstoque(Banco& banco, qint64 codPecAut, Quantidade diferenca)
{
    if (diferenca == Quantidade())
        return;
    banco.executar(QStringLiteral("UPDATE Produto SET Quantidadeestoque = Quantidadeestoque + ? WHERE CodPecAut = ?"),
                   {diferenca.milesimos(), codPecAut});
}

QString pedeSeAbaixoDoMinimo(Banco& banco, const QString& codpeca, const QString& descricaoDaPeca)
{
    QSqlQuery q = banco.executar(QStringLiteral("SELECT Quantidadeestoque, QuantidadeMinima, Descricao FROM Produto "
                                                "WHERE codpeca = ? AND Excluidos = 0 ORDER BY CodPecAut LIMIT 1"),
                                 {codpeca});
    if (!q.next() || q.value(1).toLongLong() <= q.value(0).toLongLong())
        return {};
    const QString descricao = descricaoDaPeca.isEmpty() ? q.value(2).toString() : descricaoDaPeca;
    banco.executar(QStringLiteral("INSERT INTO PedidoPeca (CodVenda, Descricao, Quantidade, DataPedido, Solicitado) "
                                  "VALUES (?, ?, ?, ?, ?)"),
                   {codpeca, descricao, QStringLiteral("1"), Datas::hoje(), QStringLiteral("Estoque")});
    return descricao;
}

NomesFornecedores nomesFornecedores(Banco& banco)
{
    NomesFornecedores n;
    QSqlQuery q = banco.executar(QStringLiteral("SELECT NomeEmpresa, NomeRevendedor FROM Fornecedor "
                                                "WHERE Excluidos = 0 ORDER BY NomeEmpresa"));
    while (q.next()) {
        if (!q.value(0).toString().isEmpty() && !n.fabricantes.contains(q.value(0).toString()))
            n.fabricantes << q.value(0).toString();
        if (!q.value(1).toString().isEmpty() && !n.revendedores.contains(q.value(1).toString()))
            n.revendedores << q.value(1).toString();
    }
    return n;
}

}
