#include "stock/ReajustePreco.h"

#include <QSqlQuery>

#include "data/Banco.h"
#include "data/Transacao.h"

namespace ReajustePreco {

namespace {

struct Onde {
    QString sql;
    QVariantList valores;
};

Onde condicao(const Filtro& f)
{
    Onde o{QStringLiteral("Excluidos = 0"), {}};
    const QList<QPair<QString, QString>> partes = {{QStringLiteral("Descricao"), f.descricao},
                                                   {QStringLiteral("Fabricante"), f.fabricante},
                                                   {QStringLiteral("Categoria"), f.categoria}};
    for (const auto& [coluna, valor] : partes)
        if (!valor.isEmpty()) {
            o.sql += QStringLiteral(" AND %1 = ?").arg(coluna);
            o.valores << valor;
        }
    return o;
}

} // namespace

QString nomeColuna(Coluna c)
{
    switch (c) {
    case Coluna::Custo: return QStringLiteral("PrecoCusto");
    case Coluna::Venda: return QStringLiteral("PrecoVenda");
    case Coluna::Minimo: return QStringLiteral("PrecoMinimo");
    }
    return {};
}

Dinheiro Ajuste::aplicado(Dinheiro antigo) const
{
    return porcentagem ? antigo.comPorcentagem(valor) : antigo + Dinheiro::deCentavos(valor);
}

QStringList valores(Banco& banco, const QString& coluna)
{
    QStringList v;
    QSqlQuery q = banco.executar(QStringLiteral("SELECT DISTINCT %1 FROM Produto WHERE Excluidos = 0 AND %1 <> '' "
                                                "ORDER BY %1").arg(coluna));
    while (q.next())
        v << q.value(0).toString();
    return v;
}

QList<Linha> previa(Banco& banco, const Filtro& filtro, const Ajuste& ajuste)
{
    const Onde o = condicao(filtro);
    QSqlQuery q = banco.executar(QStringLiteral("SELECT CodPecAut, codpeca, Descricao, %1 FROM Produto WHERE %2 "
                                                "ORDER BY codpeca, CodPecAut").arg(nomeColuna(ajuste.coluna), o.sql),
                                 o.valores);
    QList<Linha> linhas;
    while (q.next()) {
        Linha l;
        l.chave = q.value(0).toLongLong();
        l.codpeca = q.value(1).toString();
        l.descricao = q.value(2).toString();
        l.antigo = Dinheiro::deCentavos(q.value(3).toLongLong());
        l.novo = ajuste.aplicado(l.antigo);
        linhas << l;
    }
    return linhas;
}

Resultado aplicar(Banco& banco, const Filtro& filtro, const Ajuste& ajuste, const QList<Linha>& previa)
{
    for (const Linha& l : previa)
        if (l.novo < Dinheiro())
            return Resultado::PrecoNegativo;
    const QString col = nomeColuna(ajuste.coluna);
    const Onde o = condicao(filtro);
    Transacao tr(banco);
    {
        // The selection as it stands now, locked until the end, against what was shown.
        QSqlQuery q = banco.lerTravando(QStringLiteral("SELECT CodPecAut, %1 FROM Produto WHERE %2 "
                                                       "ORDER BY codpeca, CodPecAut").arg(col, o.sql), o.valores);
        int i = 0;
        while (q.next()) {
            if (i >= previa.size() || previa[i].chave != q.value(0).toLongLong()
                || previa[i].antigo.centavos() != q.value(1).toLongLong())
                return Resultado::MudouDesdeAPrevia;
            ++i;
        }
        if (i != previa.size())
            return Resultado::MudouDesdeAPrevia;
    }
    // One statement for the whole selection. The percentage is rounded half away from zero
    // to the cent, in integers, as the preview worked it out.
    QString novo;
    QVariantList valores;
    if (ajuste.porcentagem) {
        novo = QStringLiteral("%1 + CASE WHEN %1 * ? >= 0 THEN (%1 * ? + 5000) / 10000 "
                              "ELSE -((5000 - %1 * ?) / 10000) END").arg(col);
        valores = {ajuste.valor, ajuste.valor, ajuste.valor};
    } else {
        novo = QStringLiteral("%1 + ?").arg(col);
        valores = {ajuste.valor};
    }
    QSqlQuery u = banco.executar(QStringLiteral("UPDATE Produto SET %1 = %2 WHERE %3").arg(col, novo, o.sql),
                                 valores + o.valores);
    if (u.numRowsAffected() != previa.size())
        return Resultado::MudouDesdeAPrevia;
    tr.commit();
    return Resultado::Aplicado;
}

}
