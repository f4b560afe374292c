#include "orders/BancadaOrdem.h"

#include <QSqlQuery>

#include "data/Banco.h"
#include "orders/EstoqueOrdem.h"

namespace BancadaOrdem {

QList<Tecnico> tecnicos(Banco& banco)
{
    QList<Tecnico> r;
    QSqlQuery q = banco.executar(QStringLiteral("SELECT CodUsuario, NomeUsuario FROM Usuario ORDER BY NomeUsuario"));
    while (q.next())
        r << Tecnico{q.value(0).toString(), q.value(1).toString()};
    return r;
}

std::optional<PecaAplicada> pecaDoProduto(Banco& banco, qint64 codPecAut)
{
    QSqlQuery q = banco.executar(
        QStringLiteral("SELECT codpeca, Descricao, PrecoCusto, PrecoVenda, PrecoMinimo, Aliquota, DescricaoAliquota, "
                       "Revendedor, Categoria, Armazenado, GrupoProduto, SubGrupoProduto, Unidade, Modulo "
                       "FROM Produto WHERE CodPecAut = ? AND Excluidos = 0"),
        {codPecAut});
    if (!q.next())
        return std::nullopt;
    PecaAplicada p;
    p.codpeca = q.value(0).toString();
    p.Descricao = q.value(1).toString();
    p.ValorCusto = Dinheiro::deCentavos(q.value(2).toLongLong());
    p.ValorVenda = Dinheiro::deCentavos(q.value(3).toLongLong());
    p.ValorMinimo = Dinheiro::deCentavos(q.value(4).toLongLong());
    p.Aliquota = q.value(5).toString();
    p.TipoAliquota = q.value(6).toString();
    p.Fornecedor = q.value(7).toString();
    p.Departamento = q.value(8).toString();
    p.Armazenado = q.value(9).toString();
    p.Grupo = q.value(10).toString();
    p.SubGrupo = q.value(11).toString();
    p.Unidade = q.value(12).toString();
    p.Modulo = q.value(13).toString();
    return p;
}

std::optional<Quantidade> quantidadeDaCaixa(const QString& texto)
{
    if (texto.trimmed().isEmpty())
        return Quantidade::unidades(1);
    const auto q = Quantidade::lerTexto(texto);
    if (!q || *q <= Quantidade())
        return std::nullopt;
    return q;
}

Inclusao incluirProduto(QList<PecaAplicada>& pecas, const PecaAplicada& produto, Quantidade quantidade)
{
    for (PecaAplicada& p : pecas) {
        if (p.codpeca != produto.codpeca)
            continue;
        if (quantidade < p.Quantidade)
            return Inclusao::Diminuiria;
        p.Quantidade = quantidade;
        return Inclusao::Alterada;
    }
    PecaAplicada nova = produto;
    nova.CodPecAut = 0;
    nova.Quantidade = quantidade;
    nova.ValorDesconto = Dinheiro();
    nova.ControleEstoque = false;
    nova.BaixaEstoque = false;
    nova.QuantidadeBaixada = {};
    pecas << nova;
    return Inclusao::Adicionada;
}

std::optional<QString> receberProduto(Banco& banco, QList<PecaAplicada>& pecas, qint64 codPecAut,
                                      const QString& caixaQuantidade)
{
    const auto produto = pecaDoProduto(banco, codPecAut);
    if (!produto)
        return QStringLiteral("Produto não foi encontrado");
    const auto quantidade = quantidadeDaCaixa(caixaQuantidade);
    if (!quantidade)
        return MsgQuantidade;
    if (incluirProduto(pecas, *produto, *quantidade) == Inclusao::Diminuiria)
        return MsgNaoDiminui;
    return std::nullopt;
}

bool alterarPeca(PecaAplicada& peca, const QString& descricao, Quantidade quantidade, Dinheiro venda,
                 Dinheiro desconto)
{
    if (EstoqueOrdem::temProduto(peca.codpeca) && quantidade < peca.Quantidade)
        return false;
    peca.Descricao = descricao;
    peca.Quantidade = quantidade;
    peca.ValorVenda = venda;
    peca.ValorDesconto = desconto;
    return true;
}

QString linhaStatus(const QString& tipo, Situacao s)
{
    switch (s) {
    case Situacao::Consertado:
        return tipo + QStringLiteral(" CONSERTADO");
    case Situacao::Orcamento:
        return tipo + QStringLiteral(" JÁ ESTÁ ORÇAMENTADO");
    case Situacao::AguardaPeca:
        return tipo + QStringLiteral(" AGUARDA PEÇA");
    case Situacao::Devolver:
        return QStringLiteral("DEVOLVER ") + tipo + QStringLiteral(" AO CLIENTE");
    case Situacao::Nenhuma:
        break;
    }
    return {};
}

}
