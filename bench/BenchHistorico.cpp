#include "BenchHistorico.h"

#include <QRandomGenerator>
#include <QSqlQuery>

#include "data/Banco.h"
#include "data/Texto.h"
#include "data/Transacao.h"
#include "orders/HistoricoAparelho.h"

namespace {

// The generated orders carry no serial: one is given inside the engine, shared by three
// orders in a row as an appliance that came back twice. A reused store keeps it.
void poeSeries(Banco& banco)
{
    if (!banco.escalar("SELECT NumeroSerie FROM OrdemServico WHERE CodOsAut = 1").toString().isEmpty())
        return;
    Transacao tr(banco);
    banco.executar("UPDATE OrdemServico SET NumeroSerie = 'sn-' || CAST((CodOsAut + 2) / 3 AS TEXT)");
    tr.commit();
}

int conta(QSqlQuery q)
{
    int n = 0;
    while (q.next())
        ++n;
    return n;
}

} // namespace

void medeHistorico(Banco& banco, QList<Medida>& m)
{
    if (pulaLinha("Histórico: ordens do aparelho pelo número de série")
        && pulaLinha("Histórico: ordens do cliente, tipo e modelo"))
        return;
    poeSeries(banco);
    const qint64 maxOs = banco.escalar("SELECT MAX(CodOsAut) FROM OrdemServico").toLongLong();
    QRandomGenerator sorteio(20261124);
    QStringList series, aparelhos;
    for (int i = 0; i < 200 && maxOs > 0; ++i) {
        QSqlQuery q = banco.executar("SELECT NumeroSerie, CodCliente, Tipo, Modelo FROM OrdemServico WHERE CodOsAut = ?",
                                     {1 + qint64(sorteio.bounded(quint64(maxOs)))});
        if (!q.next())
            continue;
        // Typed at the counter as it is read off the label: lower case, with spaces.
        series << QStringLiteral("  ") + q.value(0).toString().toLower() + QStringLiteral(" ");
        aparelhos << QStringList{q.value(1).toString(), q.value(2).toString(), q.value(3).toString()}.join('|');
    }
    const QString limite = QStringLiteral(" ORDER BY CodOsAut DESC LIMIT %1").arg(HistoricoAparelho::Limite);

    m << mede("Histórico: ordens do aparelho pelo número de série", 20, series,
              [&](const QString& t) {
                  HistoricoAparelho::Aparelho a;
                  a.serie = t;
                  return int(HistoricoAparelho::procurar(banco, a).size());
              },
              [&](const QString& t) {
                  return conta(banco.executar("SELECT CodOsAut FROM OrdemServico WHERE NumeroSerie_b = ? "
                                              "AND Excluidos = 0" + limite,
                                              {Texto::dobra(t.trimmed())}));
              });

    m << mede("Histórico: ordens do cliente, tipo e modelo", 20, aparelhos,
              [&](const QString& t) {
                  const QStringList p = t.split('|');
                  HistoricoAparelho::Aparelho a;
                  a.codCliente = p.value(0);
                  a.tipo = p.value(1);
                  a.modelo = p.value(2);
                  return int(HistoricoAparelho::procurar(banco, a).size());
              },
              [&](const QString& t) {
                  const QStringList p = t.split('|');
                  return conta(banco.executar("SELECT CodOsAut FROM OrdemServico WHERE CodCliente = ? AND Tipo_b = ? "
                                              "AND Modelo_b = ? AND Excluidos = 0" + limite,
                                              {p.value(0), Texto::dobra(p.value(1)), Texto::dobra(p.value(2))}));
              });
}
