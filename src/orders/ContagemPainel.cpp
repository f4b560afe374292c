#include "orders/ContagemPainel.h"

#include <QSqlQuery>

#include "data/Banco.h"
#include "data/Datas.h"

namespace ContagensPainel {

namespace {

QString soma(const Condicao& c)
{
    return QStringLiteral("SUM(CASE WHEN %1 THEN n ELSE 0 END)").arg(c.sql);
}

} // namespace

ContagemPainel ler(Banco& banco)
{
    // One pass over the open orders, grouped by the flags of their index (a few dozen
    // groups at most), with the earliest dates of each group. Each list's own conditions
    // are then summed over the groups: the counts can't drift from the rows the list shows,
    // and the conditions are worked a few dozen times instead of once per order.
    QStringList colunas = {QStringLiteral("SUM(n)")};
    QVariantList valores;
    QList<QPair<Lista, int>> posicoes;
    for (Lista l : ListasPainel::ordemAtualizacao())
        for (const Condicao& c : ListasPainel::condicoes(l)) {
            posicoes.append({l, int(colunas.size())});
            colunas << soma(c);
            valores << c.valores;
        }
    const Condicao autorizado = ListasPainel::condicoes(Lista::Autorizado).constFirst();
    const Condicao retirada = ListasPainel::condicoes(Lista::Visita).constFirst();
    colunas << QStringLiteral("MIN(CASE WHEN %1 THEN entrega END)").arg(autorizado.sql);
    valores << autorizado.valores;
    colunas << QStringLiteral("MIN(CASE WHEN %1 THEN solicitada END)").arg(retirada.sql);
    valores << retirada.valores;
    const QString flags = QStringLiteral("Consertado, Orcamento, AguardaPeca, Devolver, Aprovado, Recusado, ChamadoTecnico");
    const QString grupos = QStringLiteral(
        "SELECT %1, 0 AS Saida, 0 AS Excluidos, COUNT(*) AS n, "
        "MIN(CASE WHEN DataEntrega <> '' THEN DataEntrega END) AS entrega, "
        "MIN(CASE WHEN DataEntrega <> '' AND HoraSolicitada <> '' THEN DataEntrega || ' ' || HoraSolicitada END) "
        "AS solicitada FROM OrdemServico WHERE Saida = 0 AND Excluidos = 0 GROUP BY %1").arg(flags);

    ContagemPainel r;
    QSqlQuery q = banco.executar(QStringLiteral("SELECT %1 FROM (%2) g").arg(colunas.join(QStringLiteral(", ")), grupos),
                                 valores);
    if (q.next()) {
        r.abertas = q.value(0).toInt();
        for (const auto& [lista, pos] : posicoes)
            r.contagens[int(lista)] += q.value(pos).toInt();
        r.primeiraEntrega = q.value(colunas.size() - 2).toString();
        r.primeiraSolicitada = q.value(colunas.size() - 1).toString();
    }

    const Condicao v = ListasPainel::condicaoVisitas();
    QSqlQuery qv = banco.executar(
        QStringLiteral("SELECT COUNT(*), MIN(CASE WHEN DataSolicitada <> '' AND HoraSolicitada <> '' "
                       "THEN DataSolicitada || ' ' || HoraSolicitada END) FROM VisitaTecnico WHERE %1")
            .arg(v.sql),
        v.valores);
    if (qv.next()) {
        const int visitas = qv.value(0).toInt();
        r.contagens[int(Lista::Visita)] += visitas;
        r.abertas += visitas;
        const QString s = qv.value(1).toString();
        if (!s.isEmpty() && (r.primeiraSolicitada.isEmpty() || s < r.primeiraSolicitada))
            r.primeiraSolicitada = s;
    }
    return r;
}

bool piscaEntrega(const ContagemPainel& c, double diasAviso, const QDate& hoje)
{
    const auto dia = Datas::lerBanco(c.primeiraEntrega);
    return dia && hoje.daysTo(*dia) <= diasAviso;
}

bool piscaSolicitada(const ContagemPainel& c, const QDateTime& agora)
{
    const int espaco = c.primeiraSolicitada.indexOf(QLatin1Char(' '));
    if (espaco < 0)
        return false;
    const auto dia = Datas::lerBanco(c.primeiraSolicitada.left(espaco));
    const auto hora = Datas::lerHora(c.primeiraSolicitada.mid(espaco + 1));
    if (!dia || !hora)
        return false;
    // An overdue call blinks whatever its hour: it is late, not early.
    return *dia < agora.date() || (*dia == agora.date() && *hora <= agora.time());
}

}
