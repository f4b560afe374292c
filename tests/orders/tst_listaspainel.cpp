#include <QTest>

#include "apoio/BancoTeste.h"
#include "data/Transacao.h"
#include "orders/ListasPainel.h"

namespace {

const QStringList flags = {"Consertado", "Orcamento", "AguardaPeca", "Devolver", "Aprovado",
                           "Recusado", "Saida", "Excluidos", "ChamadoTecnico"};

// One order for every combination of the nine flags: CodOs is the combination + 1.
void todasAsCombinacoes(Banco& b)
{
    Transacao tr(b);
    const QString sql = QStringLiteral("INSERT INTO OrdemServico (CodOs, NomeCliente, %1) VALUES (?, ?, %2)")
                            .arg(flags.join(QLatin1Char(',')), QStringLiteral("?,").repeated(flags.size()).chopped(1));
    for (int m = 0; m < (1 << flags.size()); ++m) {
        QVariantList v = {m + 1, QStringLiteral("CLIENTE %1").arg(m)};
        for (int i = 0; i < flags.size(); ++i)
            v << ((m >> i) & 1 ? -1 : 0);
        b.executar(sql, v);
    }
    tr.commit();
}

// The rows that the classic pattern over joined flag text gives, run by the engine itself.
QList<qint64> peloPadrao(Banco& b, const QString& colunas, const QString& padrao)
{
    QStringList partes;
    for (const QString& c : colunas.split(QLatin1Char(',')))
        partes << b.textoDe(c);
    QSqlQuery q = b.executar(QStringLiteral("SELECT CodOs FROM OrdemServico WHERE (%1) LIKE ? ORDER BY CodOs")
                                 .arg(partes.join(QStringLiteral(" || "))), {padrao});
    QList<qint64> r;
    while (q.next())
        r << q.value(0).toLongLong();
    return r;
}

} // namespace

class TesteListasPainel : public QObject {
    Q_OBJECT
private slots:
    void mesmasLinhasDoPadrao_data()
    {
        QTest::addColumn<int>("motor");
        QTest::addColumn<int>("lista");
        QTest::addColumn<QStringList>("consultas");  // columns|pattern, appended in order
        const QList<QPair<const char*, QPair<int, QStringList>>> listas = {
            {"0 autorizado", {0, {"Aprovado,Consertado,Devolver,saida,Excluidos|%-10000%"}}},
            {"1 aguarda peca", {1, {"AguardaPeca,Saida,Excluidos|%-100%"}}},
            {"2 consertado", {2, {"Aprovado,Consertado,Saida,Excluidos|%-1-100%"}}},
            {"3 devolver e recusados", {3, {"Devolver,Saida,Excluidos|%-100%", "Recusado,Saida,Excluidos|%-100%"}}},
            {"4 pendente sem curingas", {4, {"Consertado,Aprovado,Recusado,Saida,Excluidos|-10000",
                                             "Orcamento,Aprovado,Recusado,Saida,Excluidos|-10000"}}},
            {"5 na fila", {5, {"Consertado,AguardaPeca,Orcamento,Devolver,Saida,Excluidos|%000000%"}}},
            {"6 nao autorizado", {6, {"Consertado,Recusado,Saida,Excluidos|%-1-100%"}}},
            {"9 retiradas", {9, {"Consertado,AguardaPeca,Orcamento,Devolver,Saida,Excluidos,ChamadoTecnico|%000000-1%"}}},
        };
        for (const auto& [nome, l] : listas) {
            QTest::newRow(qPrintable(QStringLiteral("sqlite %1").arg(nome))) << int(Motor::SQLite) << l.first << l.second;
            QTest::newRow(qPrintable(QStringLiteral("postgres %1").arg(nome)))
                << int(Motor::PostgreSQL) << l.first << l.second;
        }
    }
    void mesmasLinhasDoPadrao()
    {
        BANCO_DO_MOTOR(b);
        QFETCH(int, lista);
        QFETCH(QStringList, consultas);
        todasAsCombinacoes(b.banco());
        QList<qint64> esperado;
        for (const QString& c : consultas) {
            const QStringList p = c.split(QLatin1Char('|'));
            esperado += peloPadrao(b.banco(), p.at(0), p.at(1));
        }
        QList<qint64> obtido;
        for (const LinhaPainel& l : ListasPainel::linhas(b.banco(), Lista(lista)))
            obtido << l.CodOs.toLongLong();
        if (Lista(lista) != Lista::Autorizado)  // list 0 is in promised-day order
            QCOMPARE(obtido, esperado);
        std::sort(obtido.begin(), obtido.end());
        std::sort(esperado.begin(), esperado.end());
        QCOMPARE(obtido, esperado);
        QVERIFY(!obtido.isEmpty());
        QCOMPARE(ListasPainel::contar(b.banco(), Lista(lista)), esperado.size());
        // Only open, live orders: the index of open orders can answer every query.
        for (const Condicao& c : ListasPainel::condicoes(Lista(lista))) {
            const QStringList termos = c.sql.toLower().split(QStringLiteral(" and "));
            QVERIFY2(termos.contains(QStringLiteral("saida = 0")) && termos.contains(QStringLiteral("excluidos = 0")),
                     qPrintable(c.sql));
        }
    }

    void indiceDasAbertas()
    {
        // A shop's store: many closed orders, a few open ones, and the engine's statistics.
        BancoTeste b(Motor::SQLite);
        QVERIFY(b.pronto());
        b->executar(QStringLiteral("BEGIN"));
        for (int i = 1; i <= 3000; ++i)
            b->executar(QStringLiteral("INSERT INTO OrdemServico (CodOs, Saida, Aprovado, AguardaPeca) VALUES (?, ?, ?, ?)"),
                        {i, i % 100 == 0 ? 0 : -1, i % 3 == 0 ? -1 : 0, i % 7 == 0 ? -1 : 0});
        b->executar(QStringLiteral("COMMIT"));
        b->executar(QStringLiteral("ANALYZE"));
        for (Lista l : ListasPainel::ordemAtualizacao())
            for (const Condicao& c : ListasPainel::condicoes(l)) {
                QSqlQuery q = b->executar(QStringLiteral("EXPLAIN QUERY PLAN SELECT COUNT(*) FROM OrdemServico WHERE ")
                                              + c.sql, c.valores);
                QString plano;
                while (q.next())
                    plano += q.value(3).toString() + QLatin1Char('\n');
                QVERIFY2(plano.contains(QStringLiteral("OrdemServico_abertas")), qPrintable(plano));
            }
    }

    void visitasAntesDasRetiradas_data() { linhasMotores(); }
    void visitasAntesDasRetiradas()
    {
        BANCO_DO_MOTOR(b);
        const DefTabela& v = *Esquema::tabela(QStringLiteral("VisitaTecnico"));
        const QStringList cols = {"CodManu", "NomeCliente", "DataSolicitada", "HoraSolicitada", "Atendida", "Excluidos"};
        b->inserir(v, cols, {31, QStringLiteral("VISITA TARDE"), QStringLiteral("2026/03/02"), QStringLiteral("14:00"), 0, 0});
        b->inserir(v, cols, {30, QStringLiteral("VISITA CEDO"), QStringLiteral("2026/03/01"), QStringLiteral("09:30"), 0, 0});
        b->inserir(v, cols, {32, QStringLiteral("ATENDIDA"), QStringLiteral("2026/01/01"), QStringLiteral(""), 1, 0});
        b->inserir(v, cols, {33, QStringLiteral("EXCLUIDA"), QStringLiteral("2026/01/01"), QStringLiteral(""), 0, -1});
        b->executar(QStringLiteral("INSERT INTO OrdemServico (CodOs, NomeCliente, ChamadoTecnico, DataEntrega, "
                                   "HoraSolicitada) VALUES (7, 'BUSCAR', -1, '2026/02/10', '10:00')"));
        b->executar(QStringLiteral("INSERT INTO OrdemServico (CodOs, NomeCliente, ChamadoTecnico, Orcamento) "
                                   "VALUES (8, 'JA ORCADO', -1, -1)"));
        const QList<LinhaPainel> l = ListasPainel::linhas(b.banco(), Lista::Visita);
        QCOMPARE(l.size(), 3);
        QCOMPARE(ListasPainel::contar(b.banco(), Lista::Visita), 3);
        QCOMPARE(l.at(0).CodOs, QString("30"));
        QCOMPARE(l.at(0).Tipo, QString("Visita"));
        QCOMPARE(l.at(0).DiaPrometido, QString("01/03/2026--09:30"));
        QCOMPARE(l.at(1).CodOs, QString("31"));
        QCOMPARE(l.at(2).CodOs, QString("7"));
        QCOMPARE(l.at(2).Tipo, QString("Retirar"));
        QCOMPARE(l.at(2).DiaPrometido, QString("10/02/2026--10:00"));
        QVERIFY(l.at(2).CodOsAut > 0);
    }
};

QTEST_GUILESS_MAIN(TesteListasPainel)
#include "tst_listaspainel.moc"
