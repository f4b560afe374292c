#include <QtTest>

#include "apoio/BancoTeste.h"
#include "data/Datas.h"
#include "data/Esquema.h"
#include "data/Sessao.h"
#include "orders/Visitas.h"

// The house calls' own rules: money in exact cents, the cells of the parts grid, the
// service date, the number series, parts that belong to one visit only, and the cash rows.
class TstVisitas : public QObject {
    Q_OBJECT

    static Visitas::PecaVisita peca(const QString& desc, qint64 milesimos, qint64 venda, qint64 custo = 0)
    {
        Visitas::PecaVisita p;
        p.descricao = desc;
        p.quantidade = Quantidade::deMilesimos(milesimos);
        p.valorVenda = Dinheiro::deCentavos(venda);
        p.valorCusto = Dinheiro::deCentavos(custo);
        return p;
    }
    static void pecaAplicada(Banco& b, qint64 codOs, qint64 codOsAut, qint64 codManu, const QString& tipo,
                             const QString& desc)
    {
        b.inserir(*Esquema::tabela("PecasAplicadas"),
                  {"CodOs", "CodOsAut", "CodManu", "NomeCliente", "TipoVisita", "Descricao", "ValorVenda"},
                  {codOs, codOsAut, codManu, "RUI", tipo, desc, 100});
    }

private slots:
    void initTestCase() { sessao().UsuarioNome = QStringLiteral("ANA"); }

    void totais_data()
    {
        QTest::addColumn<QList<Visitas::PecaVisita>>("pecas");
        QTest::addColumn<qint64>("maoObra");
        QTest::addColumn<qint64>("venda");
        QTest::addColumn<qint64>("custo");
        QTest::addColumn<qint64>("pagar");
        // 1,5 x 3,33 = 4,995, rounded to 5,00; 2 x 10,00 = 20,00.
        QTest::newRow("fractions round half away to the cent")
            << QList{peca("CABO", 1500, 333, 100), peca("FUSIVEL", 2000, 1000, 250)} << qint64(4000) << qint64(2500)
            << qint64(650) << qint64(6500);
        QTest::newRow("a row with no description counts nothing")
            << QList{peca("", 3000, 999, 999), peca("RELE", 1000, 1250)} << qint64(0) << qint64(1250) << qint64(0)
            << qint64(1250);
        QTest::newRow("labour alone") << QList<Visitas::PecaVisita>{} << qint64(8000) << qint64(0) << qint64(0)
                                      << qint64(8000);
    }
    void totais()
    {
        QFETCH(QList<Visitas::PecaVisita>, pecas);
        QFETCH(qint64, maoObra);
        const Visitas::Totais t = Visitas::totais(pecas, Dinheiro::deCentavos(maoObra));
        QTEST(t.venda.centavos(), "venda");
        QTEST(t.pecas.centavos(), "custo");
        QTEST(t.pagar.centavos(), "pagar");
    }

    void celulasEDatas_data()
    {
        QTest::addColumn<QString>("quantidade");
        QTest::addColumn<qint64>("milesimos");  // -1: refused
        QTest::addColumn<QString>("valor");
        QTest::addColumn<qint64>("centavos");
        QTest::addColumn<QString>("data");
        QTest::addColumn<QString>("gravada");   // "X": refused
        QTest::newRow("empty cells") << "" << qint64(1000) << "" << qint64(0) << "" << "";
        QTest::newRow("comma decimals") << "1,5" << qint64(1500) << "1.234,56" << qint64(123456) << "07/11/2025"
                                        << "2025/11/07";
        QTest::newRow("two commas") << "1,,5" << qint64(-1) << "2,,50" << qint64(-1) << "2025/11/07" << "2025/11/07";
        QTest::newRow("letters") << "A" << qint64(-1) << "1O,00" << qint64(-1) << "31/02/2025" << "X";
    }
    void celulasEDatas()
    {
        QFETCH(QString, quantidade);
        QFETCH(qint64, milesimos);
        QFETCH(QString, valor);
        QFETCH(qint64, centavos);
        QFETCH(QString, data);
        QFETCH(QString, gravada);
        const auto q = Visitas::lerQuantidade(quantidade);
        QCOMPARE(q ? q->milesimos() : -1, milesimos);
        const auto v = Visitas::lerValor(valor);
        QCOMPARE(v ? v->centavos() : -1, centavos);
        QCOMPARE(Visitas::dataAtendidaParaBanco(data).value_or("X"), gravada);
    }

    void pecasSoDaPropriaVisita_data() { linhasMotores(); }
    void pecasSoDaPropriaVisita()
    {
        BANCO_DO_MOTOR(b);
        pecaAplicada(b.banco(), 7, 70, 0, "", "DA ORDEM 7");
        pecaAplicada(b.banco(), 17, 170, 0, "", "DA ORDEM 17");
        pecaAplicada(b.banco(), 17, 0, 17, Visitas::TipoVisita, "DA VISITA 17");
        pecaAplicada(b.banco(), 7, 0, 7, Visitas::TipoVisita, "VELHA DA VISITA 7");
        Visitas::gravarPecas(b.banco(), 7, "RUI", {peca("NOVA", 2000, 500, 200), peca("", 1000, 100)});
        const QList<Visitas::PecaVisita> l = Visitas::pecas(b.banco(), 7);
        QCOMPARE(l.size(), 1);
        QCOMPARE(l.first().descricao, QString("NOVA"));
        QCOMPARE(l.first().codPeca, QString("S/COd"));
        QCOMPARE(b->escalar("SELECT ValorTotal FROM PecasAplicadas WHERE Descricao = 'NOVA'").toLongLong(), 1000);
        QCOMPARE(b->escalar("SELECT CodOs FROM PecasAplicadas WHERE Descricao = 'NOVA'").toLongLong(), 7);
        QCOMPARE(b->escalar("SELECT CodOsAut FROM PecasAplicadas WHERE Descricao = 'NOVA'").toLongLong(), 0);
        Visitas::excluirPecas(b.banco(), 7);
        QCOMPARE(b->escalar("SELECT COUNT(*) FROM PecasAplicadas").toInt(), 3);
        QCOMPARE(b->escalar("SELECT COUNT(*) FROM PecasAplicadas WHERE Descricao LIKE 'DA %'").toInt(), 3);
    }

    void visitaDaEntradaNumeradaComoNumero_data() { linhasMotores(); }
    void visitaDaEntradaNumeradaComoNumero()
    {
        BANCO_DO_MOTOR(b);
        for (int i = 1; i <= 10; ++i)
            b->inserir(*Esquema::tabela("VisitaTecnico"), {"CodManu", "NomeCliente"}, {i, "X"});
        const qint64 cod = Visitas::pedirDaEntrada(b.banco(), {"12", "JOÃO D'ÁVILA", "RUA A, 10", 5});
        QCOMPARE(cod, qint64(11));
        QSqlQuery q = b->executar("SELECT Solicitacao, Atendida, Aguarda, Acaminho, Excluidos, Tecnico, DataSolicitada, "
                                  "NomeCliente, TipoFormulario FROM VisitaTecnico WHERE CodManu = 11");
        QVERIFY(q.next());
        QCOMPARE(q.value(0).toString(), QString("Ordem de Serviço de entrada nº 5\nBuscar aparelho para conserto"));
        QCOMPARE(q.value(1).toInt(), 0);   // what the panel counts as open
        QCOMPARE(q.value(2).toInt(), -1);
        QCOMPARE(q.value(3).toInt(), 0);
        QCOMPARE(q.value(4).toInt(), 0);
        QCOMPARE(q.value(5).toString(), QString("ANA"));
        QCOMPARE(q.value(6).toString(), Datas::hoje());
        QCOMPARE(q.value(7).toString(), QString("JOÃO D'ÁVILA"));
        QCOMPARE(q.value(8).toString(), QString("Visita"));
    }

    void caixaDaVisita_data()
    {
        linhasMotores();
    }
    void caixaDaVisita()
    {
        BANCO_DO_MOTOR(b);
        Visitas::Caixa c;
        c.codManu = 9;
        c.nomeCliente = "RUI";
        c.tecnico = "BRUNO";
        c.usuario = "ANA";
        c.maoObra = Dinheiro::deCentavos(8000);
        c.valorVenda = Dinheiro::deCentavos(1500);
        c.valorPecas = Dinheiro::deCentavos(600);
        c.horaPendente = true;
        Visitas::lancarCaixa(b.banco(), c);
        QSqlQuery v = b->executar("SELECT CodVenda, codpeca, ValorTotal, ValorCusto, ValorVenda, MaoObra, TipoVenda, "
                                  "Departamento, Quantidade FROM VendaDetalhada");
        QVERIFY(v.next());
        QCOMPARE(v.value(0).toLongLong(), 9);
        QCOMPARE(v.value(1).toString(), QString("9"));
        QCOMPARE(v.value(2).toLongLong(), 8000);
        QCOMPARE(v.value(3).toLongLong(), 600);
        QCOMPARE(v.value(4).toLongLong(), 1500);
        QCOMPARE(v.value(5).toLongLong(), 8000);
        QCOMPARE(v.value(6).toString(), QString("Visita"));
        QCOMPARE(v.value(7).toString(), QString("Domicilio"));
        QCOMPARE(v.value(8).toLongLong(), 1000);
        QSqlQuery m = b->executar("SELECT ValorTotal, ValorPagar, Caixa, Hora, NomeCliente FROM Movimento");
        QVERIFY(m.next());
        QCOMPARE(m.value(0).toLongLong(), 8000);
        QCOMPARE(m.value(1).toLongLong(), 8000);
        QCOMPARE(m.value(2).toString(), QString("Entregue por ANA"));
        QCOMPARE(m.value(3).toString(), QString("Pendente"));
        QCOMPARE(m.value(4).toString(), QString("RUI"));
    }
};

QTEST_GUILESS_MAIN(TstVisitas)
#include "tst_visitas.moc"
