#include "orders/EstoqueOrdem.h"

#include <QSqlQuery>

#include "data/Banco.h"
#include "data/Transacao.h"
#include "stock/Produtos.h"

namespace EstoqueOrdem {

namespace {

enum class Momento { Bancada, Caixa };

struct LinhaPeca {
    qint64 chave;
    QString codpeca;
    QString descricao;
    Quantidade quantidade;
    Quantidade baixada;
    qint64 baixaLida;      // BaixaEstoque and QuantidadeBaixada as read, for the guarded update
    qint64 baixadaLida;
};

// A row marked taken before QuantidadeBaixada was kept counts as wholly taken.
Quantidade jaBaixada(bool baixa, Quantidade baixada, Quantidade quantidade)
{
    if (!baixa)
        return {};
    return baixada == Quantidade() ? quantidade : baixada;
}

QStringList baixar(Banco& banco, qint64 codOsAut, Momento momento)
{
    Transacao tr(banco);
    QList<LinhaPeca> linhas;
    {
        QSqlQuery q = banco.executar(QStringLiteral(
            "SELECT CodPecAut, codpeca, Descricao, Quantidade, QuantidadeBaixada, BaixaEstoque FROM PecasAplicadas "
            "WHERE CodOsAut = ? AND TipoVisita = '' ORDER BY CodPecAut"), {codOsAut});
        while (q.next()) {
            const Quantidade quantidade = Quantidade::deMilesimos(q.value(3).toLongLong());
            linhas << LinhaPeca{q.value(0).toLongLong(), q.value(1).toString(), q.value(2).toString(), quantidade,
                                jaBaixada(q.value(5).toLongLong() != 0,
                                          Quantidade::deMilesimos(q.value(4).toLongLong()), quantidade),
                                q.value(5).toLongLong(), q.value(4).toLongLong()};
        }
    }
    QStringList reposicao;
    for (const LinhaPeca& l : linhas) {
        const bool produto = temProduto(l.codpeca);
        if (momento == Momento::Bancada)
            banco.executar(QStringLiteral("UPDATE PecasAplicadas SET ControleEstoque = ? WHERE CodPecAut = ?"),
                           {l.codpeca == QLatin1String("0000") ? 0 : -1, l.chave});
        if (!produto)
            continue;
        const Quantidade falta = l.quantidade - l.baixada;
        if (falta > Quantidade()) {
            // Marked only if nobody marked it since the read: two stations saving the same
            // order at once take each part once, the second finding it already taken.
            QSqlQuery marca = banco.executar(
                QStringLiteral("UPDATE PecasAplicadas SET BaixaEstoque = -1, QuantidadeBaixada = ? "
                               "WHERE CodPecAut = ? AND COALESCE(BaixaEstoque, 0) = ? AND COALESCE(QuantidadeBaixada, 0) = ?"),
                {l.quantidade.milesimos(), l.chave, l.baixaLida, l.baixadaLida});
            if (marca.numRowsAffected() == 1)
                retirar(banco, l.codpeca, falta);
        }
        if (const QString falta = Produtos::pedeSeAbaixoDoMinimo(banco, l.codpeca, l.descricao); !falta.isEmpty())
            reposicao << falta;
    }
    tr.commit();
    return reposicao;
}

} // namespace

bool temProduto(const QString& codpeca)
{
    const QString c = codpeca.trimmed();
    return !c.isEmpty() && c != QLatin1String("0000") && c.compare(QLatin1String("S/COd"), Qt::CaseInsensitive) != 0;
}

void retirar(Banco& banco, const QString& codpeca, Quantidade q)
{
    banco.executar(QStringLiteral("UPDATE Produto SET Quantidadeestoque = Quantidadeestoque - ? WHERE codpeca = ?"),
                   {q.milesimos(), codpeca});
}

QStringList baixarNaBancada(Banco& banco, qint64 codOsAut) { return baixar(banco, codOsAut, Momento::Bancada); }

QStringList baixarNoCaixa(Banco& banco, qint64 codOsAut) { return baixar(banco, codOsAut, Momento::Caixa); }

}
