#include "BenchPainel.h"

#include <QDate>
#include <QSqlQuery>

#include "data/Banco.h"
#include "data/Sessao.h"
#include "orders/ContagemPainel.h"
#include "orders/ListasPainel.h"
#include "orders/TransicoesOrdem.h"

void medePainel(Banco& banco, QList<Medida>& m)
{
    Sessao& s = sessao();
    s.DireitoOsTecLe = s.DireitoOsTecAl = s.DireitoOsSaiLe = s.DireitoOsSaiAl = s.DireitoAltOrca = 1;
    const QStringList repete(21, QString());

    m << mede("Painel: todas as contagens e piscas (uma passagem)", 50, repete,
              [&](const QString&) {
                  const ContagemPainel c = ContagensPainel::ler(banco);
                  return c.abertas;
              },
              [&](const QString&) {
                  // The bare reading of every open order with its dates, through their index.
                  return banco
                      .escalar("SELECT COUNT(*), MAX(DataEntrega), MAX(HoraSolicitada) FROM OrdemServico "
                               "WHERE Saida = 0 AND Excluidos = 0")
                      .toInt();
              });

    m << mede("Painel: linhas \"Na Fila\" na tela", 50, repete,
              [&](const QString&) { return int(ListasPainel::linhas(banco, Lista::NaFila).size()); },
              [&](const QString&) {
                  const Condicao c = ListasPainel::condicoes(Lista::NaFila).constFirst();
                  QSqlQuery q = banco.executar(ListasPainel::consulta(Lista::NaFila, c), c.valores);
                  int n = 0;
                  while (q.next())
                      ++n;
                  return n;
              });

    // Each text is one listed order; the save records the promised day and the contact.
    QList<LinhaPainel> fila = ListasPainel::linhas(banco, Lista::NaFila);
    QStringList indices;
    for (int i = 0; i < qMin<int>(25, fila.size()); ++i)
        indices << QString::number(i);
    int dia = 0;
    m << mede("Painel: Salvar (dia prometido e contato)", 10, indices,
              [&](const QString& t) {
                  TransicoesOrdem::salvarNoPainel(banco, fila.at(t.toInt()), Lista::NaFila, std::nullopt, std::nullopt,
                                                  QDate(2030, 1, 1).addDays(++dia));
                  return 1;
              },
              [&](const QString& t) {
                  banco.executar("UPDATE OrdemServico SET DataContato = ? WHERE CodOsAut = ?",
                                 {QStringLiteral("2030/01/01"), fila.at(t.toInt()).CodOsAut});
                  return 1;
              });
}
