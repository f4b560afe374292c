#include <QTest>

#include "orders/EstadoOrdem.h"
#include "orders/Ordem.h"

class TesteEstadoOrdem : public QObject {
    Q_OBJECT
private slots:
    void legenda_data()
    {
        QTest::addColumn<bool>("aprovado");
        QTest::addColumn<bool>("recusado");
        QTest::addColumn<bool>("garantia");
        QTest::addColumn<bool>("devolver");
        QTest::addColumn<bool>("telaEntrega");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("dica");
        QTest::addColumn<bool>("caixa");
        QTest::newRow("aprovado vai ao caixa") << true << false << false << false << true << "Aprovado"
                                               << "O cliente autorizou o conserto" << true;
        QTest::newRow("recusado") << false << true << false << false << true << "Recusado"
                                  << "O cliente não autorizou o orçamento" << false;
        QTest::newRow("sem resposta") << false << false << false << false << true << "Indeciso"
                                      << "O cliente ainda não autorizou o conserto" << false;
        QTest::newRow("garantia esconde a aprovacao e sai sem caixa")
            << true << false << true << false << true << "Garantia" << "Aparelho na garantia" << false;
        QTest::newRow("garantia esconde a recusa") << false << true << true << false << false << "Garantia"
                                                   << "Aparelho na garantia" << false;
        QTest::newRow("devolver vence tudo na entrega")
            << true << false << true << true << true << "Devolver"
            << "Não tem peça,não compensa o conserto,ou não apresentou defeito" << false;
        // On the bench the caption stays "Aprovado"; the delivery screen still keeps it from the till.
        QTest::newRow("devolver nao conta na bancada") << true << false << false << true << false << "Aprovado"
                                                       << "O cliente autorizou o conserto" << false;
    }
    void legenda()
    {
        QFETCH(bool, aprovado);
        QFETCH(bool, recusado);
        QFETCH(bool, garantia);
        QFETCH(bool, devolver);
        QFETCH(bool, telaEntrega);
        QFETCH(QString, texto);
        QFETCH(QString, dica);
        QFETCH(bool, caixa);
        Ordem o;
        o.Aprovado = aprovado;
        o.Recusado = recusado;
        o.Garantia = garantia;
        o.Devolver = devolver;
        const LegendaResposta l = EstadoOrdem::legenda(o, telaEntrega);
        QCOMPARE(l.texto, texto);
        QCOMPARE(l.dica, dica);
        QCOMPARE(EstadoOrdem::vaiAoCaixa(o), caixa);
    }

    void grupos_data()
    {
        QTest::addColumn<int>("situacao");
        QTest::newRow("na fila") << int(Situacao::Nenhuma);
        QTest::newRow("consertado") << int(Situacao::Consertado);
        QTest::newRow("orcamento") << int(Situacao::Orcamento);
        QTest::newRow("aguarda peca") << int(Situacao::AguardaPeca);
        QTest::newRow("devolver") << int(Situacao::Devolver);
    }
    void grupos()
    {
        QFETCH(int, situacao);
        // From every situation, setting one clears the other three of the group.
        for (int antes = 0; antes <= 4; ++antes) {
            Ordem o;
            EstadoOrdem::definirSituacao(o, Situacao(antes));
            o.Aprovado = true;
            EstadoOrdem::definirSituacao(o, Situacao(situacao));
            QCOMPARE(int(EstadoOrdem::situacao(o)), situacao);
            QCOMPARE(int(o.Consertado) + o.Orcamento + o.AguardaPeca + o.Devolver, situacao == 0 ? 0 : 1);
            QVERIFY(o.Aprovado);  // the answer group is another group
            QCOMPARE(EstadoOrdem::naFila(o), situacao == 0);
        }
        Ordem o;
        EstadoOrdem::definirResposta(o, Resposta::Aprovado);
        EstadoOrdem::definirResposta(o, Resposta::Recusado);
        QVERIFY(!o.Aprovado && o.Recusado);
        EstadoOrdem::definirResposta(o, Resposta::Indeciso);
        QVERIFY(!o.Aprovado && !o.Recusado);
    }

    void tabelaDeEstados()
    {
        // A refused order marked repaired stands both to be undone and to be returned.
        Ordem o;
        o.Consertado = true;
        o.Recusado = true;
        QVERIFY(EstadoOrdem::recusadaAposConserto(o));
        QVERIFY(EstadoOrdem::aDevolver(o));
        QVERIFY(!EstadoOrdem::semResposta(o));
        o.Saida = true;
        QVERIFY(!EstadoOrdem::recusadaAposConserto(o) && !EstadoOrdem::aDevolver(o) && EstadoOrdem::fechada(o));
        // A warranty order repaired without an answer waits for one until the bench sets it.
        Ordem g;
        g.Garantia = true;
        g.Consertado = true;
        QVERIFY(EstadoOrdem::semResposta(g));
        Ordem r;
        r.ChamadoTecnico = true;
        QVERIFY(EstadoOrdem::retiradaPedida(r));
        r.Orcamento = true;
        QVERIFY(!EstadoOrdem::retiradaPedida(r));
    }
};

QTEST_GUILESS_MAIN(TesteEstadoOrdem)
#include "tst_estadoordem.moc"
