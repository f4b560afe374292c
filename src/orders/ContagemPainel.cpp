#include "orders/ContagemPainel.h"

#include <QSqlQuery>

#include "data/Banco.h"
#include "data/Datas.h"

namespace ContagensPainel {

namespace {

QString soma(const Condicao& c)
{
    return QStringLiteral("SUM(CASE WHEN %1 THEN 1 ELSE 0 END)").arg(c.sql);
}

} // namespace

ContagemPainel ler(Banco& banco)
{
    // Each list's own conditions, summed over the one reading of the open orders: the
    // counts can't drift from the rows the list shows.
    QStringList colunas = {QStringLiteral("COUNT(*)")};
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
    colunas << QStringLiteral("MIN(CASE WHEN %1 AND DataEntrega <> '' THEN DataEntrega END)").arg(autorizado.sql);
    valores << autorizado.valores;
    colunas << QStringLiteral("MIN(CASE WHEN %1 AND DataEntrega <> '' AND HoraSolicitada <> '' "
                              "THEN DataEntrega || ' ' || HoraSolicitada END)")
                   .arg(retirada.sql);
    valores << retirada.valores;

    ContagemPainel r;
    QSqlQuery q = banco.executar(QStringLiteral("SELECT %1 FROM OrdemServico WHERE Saida = 0 AND Excluidos = 0")
                                     .arg(colunas.join(QStringLiteral(", "))),
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
