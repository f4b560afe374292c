#include "stock/SaidaPecas.h"

#include <QSqlQuery>

#include "data/Banco.h"
#include "data/ErroBanco.h"
#include "data/Transacao.h"
#include "orders/GravacaoOrdem.h"
#include "orders/Ordem.h"
#include "orders/ValoresOrdem.h"

namespace SaidaPecas {

std::optional<Produto> produto(Banco& banco, const QString& codpeca)
{
    const QString codigo = codpeca.trimmed();
    if (codigo.isEmpty())
        return std::nullopt;
    QSqlQuery q = banco.executar(
        QStringLiteral("SELECT CodPecAut, codpeca, Descricao, Unidade, Modulo, Armazenado, Aliquota, Revendedor, "
                       "Categoria, PrecoCusto, PrecoVenda, PrecoMinimo FROM Produto "
                       "WHERE codpeca = ? AND Excluidos = 0 ORDER BY CodPecAut LIMIT 1"),
        {codigo});
    if (!q.next())
        return std::nullopt;
    Produto p;
    p.CodPecAut = q.value(0).toLongLong();
    QString* textos[] = {&p.codpeca, &p.Descricao, &p.Unidade, &p.Modulo, &p.Armazenado,
                         &p.Aliquota, &p.Revendedor, &p.Categoria};
    for (int i = 0; i < 8; ++i)
        *textos[i] = q.value(i + 1).toString();
    p.PrecoCusto = Dinheiro::deCentavos(q.value(9).toLongLong());
    p.PrecoVenda = Dinheiro::deCentavos(q.value(10).toLongLong());
    p.PrecoMinimo = Dinheiro::deCentavos(q.value(11).toLongLong());
    return p;
}

QString OrdemSaida::descricao() const
{
    QString t = QStringLiteral("%1 - %2").arg(CodOs).arg(NomeCliente);
    const QString aparelho = Tipo + QLatin1Char('-') + Marca;
    if (aparelho != QLatin1String("-"))
        t += QStringLiteral(" (%1)").arg(aparelho);
    if (Saida)
        t += QStringLiteral(" - finalizada");
    return t;
}

QList<OrdemSaida> ordens(Banco& banco, qint64 codOs)
{
    QSqlQuery q = banco.executar(QStringLiteral("SELECT CodOsAut, CodOs, NomeCliente, Tipo, Marca, Saida "
                                                "FROM OrdemServico WHERE CodOs = ? AND Excluidos = 0 "
                                                "ORDER BY CodOsAut"),
                                 {codOs});
    QList<OrdemSaida> r;
    while (q.next())
        r << OrdemSaida{q.value(0).toLongLong(), q.value(1).toLongLong(), q.value(2).toString(),
                        q.value(3).toString(), q.value(4).toString(), q.value(5).toLongLong() != 0};
    return r;
}

namespace {

QList<Linha> linhas(QSqlQuery& q, bool comChave)
{
    QList<Linha> r;
    while (q.next()) {
        Linha l;
        l.chave = comChave ? q.value(4).toLongLong() : 0;
        l.Armazenado = q.value(0).toString();
        l.codpeca = q.value(1).toString();
        l.Descricao = q.value(2).toString();
        l.Quantidade = Quantidade::deMilesimos(q.value(3).toLongLong()).texto();
        r << l;
    }
    return r;
}

} // namespace

QList<Linha> pecasDaOrdem(Banco& banco, qint64 codOsAut)
{
    QSqlQuery q = banco.executar(QStringLiteral("SELECT Armazenado, codpeca, Descricao, Quantidade, CodPecAut "
                                                "FROM PecasAplicadas WHERE CodOsAut = ? AND TipoVisita = '' "
                                                "ORDER BY CodPecAut"),
                                 {codOsAut});
    return linhas(q, true);
}

QList<Linha> pecasDaVenda(Banco& banco, qint64 numeroOs)
{
    QSqlQuery q = banco.executar(QStringLiteral("SELECT Armazenado, codpeca, Descricao, Quantidade FROM "
                                                "CadastroPecasNota WHERE NumeroOS = ? ORDER BY Chave"),
                                 {numeroOs});
    return linhas(q, false);
}

namespace {

Ordem carregarViva(Banco& banco, qint64 codOsAut)
{
    auto o = GravacaoOrdem::carregar(banco, codOsAut);
    if (!o || o->Excluidos)
        throw ErroBanco(QStringLiteral("Saída produto"),
                        QStringLiteral("A ordem de serviço foi excluída em outra estação."));
    return *o;
}

} // namespace

qint64 entregar(Banco& banco, qint64 codOsAut, const Produto& p, Quantidade quantidade, bool ativaSer)
{
    Transacao tr(banco);
    Ordem o = carregarViva(banco, codOsAut);
    PecaAplicada peca;
    peca.codpeca = p.codpeca;
    peca.Descricao = p.Descricao;
    peca.Quantidade = quantidade;
    peca.ValorCusto = p.PrecoCusto;
    peca.ValorVenda = p.PrecoVenda;
    peca.ValorMinimo = p.PrecoMinimo;
    peca.Aliquota = p.Aliquota;
    peca.Fornecedor = p.Revendedor;
    peca.Departamento = p.Categoria;
    peca.Armazenado = p.Armazenado;
    peca.Modulo = p.Modulo;
    peca.Unidade = p.Unidade;
    o.pecas << peca;
    ValoresOrdem::recalcular(o, ativaSer);
    GravacaoOrdem::Filhas filhas;
    filhas.pecas = true;
    GravacaoOrdem::gravar(banco, o, filhas, TelaOrdem::Saida);
    const qint64 chave = o.pecas.last().CodPecAut;
    // It came from the stock room, so it is under stock control from the start.
    banco.executar(QStringLiteral("UPDATE PecasAplicadas SET ControleEstoque = -1 WHERE CodPecAut = ?"), {chave});
    tr.commit();
    return chave;
}

bool remover(Banco& banco, qint64 codOsAut, qint64 chavePeca, bool ativaSer)
{
    Transacao tr(banco);
    Ordem o = carregarViva(banco, codOsAut);
    const qint64 antes = o.pecas.size();
    o.pecas.removeIf([chavePeca](const PecaAplicada& p) { return p.CodPecAut == chavePeca; });
    if (o.pecas.size() == antes)
        return false;
    banco.executar(QStringLiteral("DELETE FROM PecasAplicadas WHERE CodPecAut = ? AND CodOsAut = ?"),
                   {chavePeca, codOsAut});
    ValoresOrdem::recalcular(o, ativaSer);
    GravacaoOrdem::gravar(banco, o, {}, TelaOrdem::Saida);
    tr.commit();
    return true;
}

}
